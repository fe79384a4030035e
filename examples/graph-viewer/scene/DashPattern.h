#pragma once

class QPainter;

namespace GraphViewer {

/// The dashes and dots of graphs: wider apart than Qt's, and as long for any width of the line, so
/// that dashed, dotted and solid lines can be told apart.
namespace DashPattern {

/// Replaces the pattern of the painter's pen; a solid pen stays as it is.
void apply(QPainter *painter);

} // namespace DashPattern

} // namespace GraphViewer
