#pragma once

#include <QtGlobal>

/// Marks what users of the diagram library may call; everything else stays hidden in it.
#ifdef FIGURA_DIAGRAM_BUILD
#define FIGURA_DIAGRAM_EXPORT Q_DECL_EXPORT
#else
#define FIGURA_DIAGRAM_EXPORT Q_DECL_IMPORT
#endif
