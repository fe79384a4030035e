#pragma once

#include <QColor>
#include <QList>
#include <QPoint>
#include <QString>

namespace Velmora::Figura {
class IRotatableDecoration;
}

namespace GraphViewer {

/// The arrow heads that graph files name, as decorations of a connection.
namespace ArrowHeads {

/// What a name stands for, in the units of the decorations' templates.
struct Shape
{
    QList<QPoint> outline; ///< Empty: no arrow head at all.
    bool closed = true;    ///< An area rather than a line.
    bool hollow = false;
    int length = 0; ///< How far the line of the edge ends before the tip.
};

/// One template unit at arrow size 1.
constexpr double unit = 0.1;

/// Of a compound such as "crowdot" the first part counts. An unknown name is a normal arrow, as the
/// layout engine has it.
Shape shape(const QString &name);

/// Null for none. The caller owns it.
Velmora::Figura::IRotatableDecoration *create(const Shape &shape, double scale, const QColor &color,
                                              int lineWidth);

} // namespace ArrowHeads

} // namespace GraphViewer
