#pragma once

#include <figura/export.h>
#include <figura/layout/ILocator.h>

#include <QObject>
#include <QPointer>
#include <QRect>

namespace Velmora::Figura {

/// Centres a figure on a point of another figure's box, given in fractions of its width and height.
///
/// The reference figure is not owned; one that is destroyed counts as none.
class FIGURA_EXPORT RelativeLocator : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    /// \a location is a compass code: see setLocation().
    RelativeLocator(Figure *reference, int location, QObject *parent = nullptr);
    /// Write the fractions as 0.0, not 0, which would mean a location and a null parent.
    RelativeLocator(Figure *reference, double relativeX, double relativeY,
                    QObject *parent = nullptr);
    ~RelativeLocator() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    virtual void setReferenceFigure(Figure *reference); ///< Not owned; null for none.
    /// The side or corner of the box; neither or both of two opposite sides give the middle.
    virtual void setLocation(int location);

protected:
    virtual QRect getReferenceBox(); ///< The reference figure's bounds; empty without one.
    virtual Figure *getReferenceFigure() const; ///< Null when there is none.

public:
    void relocate(Figure *target) override; ///< Leaves null and hidden figures alone.

protected:
    double relativeX() const; ///< 0 is the left edge, 1 the right.
    double relativeY() const; ///< 0 is the top edge, 1 the bottom.

private:
    QPointer<Figure> m_reference;
    double m_relativeX = 0.5;
    double m_relativeY = 0.5;
};

} // namespace Velmora::Figura
