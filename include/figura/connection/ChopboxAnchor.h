#pragma once

#include <figura/connection/AbstractConnectionAnchor.h>
#include <figura/export.h>

#include <QRect>

namespace Velmora::Figura {

/// Ends a connection where the line from the box's centre towards the reference point meets the
/// box.
class FIGURA_EXPORT ChopboxAnchor : public AbstractConnectionAnchor
{
    Q_OBJECT

public:
    /// An anchor on \a owner, which may be null.
    explicit ChopboxAnchor(Figure *owner, QObject *parent = nullptr);
    explicit ChopboxAnchor(QObject *parent = nullptr); ///< Without an owner.
    explicit ChopboxAnchor(std::nullptr_t);            ///< With neither.
    ~ChopboxAnchor() override;

protected:
    /// The box to chop, in the coordinate system of the owner's bounds: those bounds. Null without
    /// an owner.
    virtual QRect getBox();

public:
    /// True for the same owner and an equal box.
    bool operator==(const ChopboxAnchor &other) const;

    /// The box counts as one pixel larger at the left and the top, on purpose: the last pixel of
    /// every connection end depends on it. Warns and gives (0, 0) without an owner.
    QPoint getLocation(const QPoint &reference) override;
    QPoint getReferencePoint() override; ///< The integer centre of the box; warns without an owner.
};

} // namespace Velmora::Figura
