#pragma once

/// Everything of the diagram library, and of the library below it, in one include.

#include <figura/diagram/Diagram.h>
#include <figura/diagram/DiagramView.h>
#include <figura/diagram/export.h>
#include <figura/diagram/exportDiagram.h>
#include <figura/diagram/OutlineAnchor.h>
#include <figura/diagram/Overview.h>
#include <figura/Figura.h>
