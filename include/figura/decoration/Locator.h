#pragma once

#include <figura/export.h>
#include <figura/geometry/IPositionConstants.h>
#include <figura/layout/ILocator.h>

#include <QObject>

class QPoint;
class QRect;
class QSize;

namespace Velmora::Figura {

/// Places a figure beside a reference point that a subclass supplies.
///
/// The figure takes its preferred size and is centred on the point, or pushed off to one side.
class FIGURA_EXPORT Locator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    explicit Locator(QObject *parent = nullptr); ///< \a parent owns the locator as a QObject.
    ~Locator() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    /// Units kept between the point and the near edge; unused while centred.
    virtual int getGap() const;
    virtual int getRelativePosition() const; ///< A compass code, CENTER at first.
    virtual void setGap(int gap);            ///< Only stores.
    /// WEST wins over EAST, NORTH over SOUTH. Only stores.
    virtual void setRelativePosition(int position);

protected:
    /// The bounds of a figure of \a size beside \a point.
    virtual QRect getNewBounds(const QSize &size, const QPoint &point);
    virtual QPoint getReferencePoint() = 0; ///< In absolute coordinates.

public:
    void relocate(Figure *target) override; ///< Leaves null and hidden figures alone.

private:
    int m_gap = 0;
    int m_relativePosition = IPositionConstants::CENTER;
};

} // namespace Velmora::Figura
