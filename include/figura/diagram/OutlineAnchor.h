#pragma once

#include <figura/connection/AbstractConnectionAnchor.h>
#include <figura/diagram/export.h>

namespace Velmora::Figura {

class Shape;

/// Ends a connection on the outline of a shape: a polygon, a rounded rectangle, any path.
///
/// The connection ends where the line from the centre of the bounds towards the reference point
/// crosses the outline last before that point; when the point lies inside, where the line goes on
/// to cross it. A shape that has no path yet counts as its bounds.
class FIGURA_DIAGRAM_EXPORT OutlineAnchor : public AbstractConnectionAnchor
{
    Q_OBJECT

public:
    /// \a owner is not owned; one that is destroyed counts as none.
    explicit OutlineAnchor(Shape *owner, QObject *parent = nullptr);
    ~OutlineAnchor() override;

    /// Absolute coordinates, rounded. Warns and gives (0, 0) without an owner.
    QPoint getLocation(const QPoint &reference) override;
};

} // namespace Velmora::Figura
