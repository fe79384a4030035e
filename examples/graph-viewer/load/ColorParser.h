#pragma once

#include <QBrush>
#include <QColor>

class QByteArray;
class QTransform;

namespace GraphViewer {

/// Colours as the layout engine writes them. It has resolved colour names, schemes, lists and HSV
/// triples by then; what it does not know it has turned black itself.
namespace ColorParser {

/// "#rrggbb" or "#rrggbbaa"; black when it is anything else.
QColor color(const QByteArray &text);

/// A colour, or a gradient: "[x0 y0 x1 y1 n stops]" along a line, "(x0 y0 r0 x1 y1 r1 n stops)"
/// between two circles. \a toScene maps its coordinates to ours.
QBrush brush(const QByteArray &text, const QTransform &toScene);

} // namespace ColorParser

} // namespace GraphViewer
