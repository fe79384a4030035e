#pragma once

#include <figura/export.h>
#include <figura/shape/Shape.h>

namespace Velmora::Figura {

/// A rectangle whose corners are quarters of ellipses.
class FIGURA_EXPORT RoundedRectangle : public Shape
{
    Q_OBJECT
    Q_PROPERTY(int xRnd READ getXRnd WRITE setXRnd)
    Q_PROPERTY(int yRnd READ getYRnd WRITE setYRnd)

public:
    /// \a parent owns the figure as a QObject.
    explicit RoundedRectangle(QObject *parent = nullptr);
    ~RoundedRectangle() override;

    /// The width of the corner ellipses in percent of the rectangle's width; 25 at first. Values
    /// above 99 count as 99, below 1 the corners are square. Shows after the next change of bounds.
    void setXRnd(int percent);
    int getXRnd() const;       ///< In percent, as stored.
    void setYRnd(int percent); ///< The same for the height.
    int getYRnd() const;       ///< In percent, as stored.

protected:
    void regeneratePath(const QRectF &rect) override;

private:
    int m_xRnd = 25;
    int m_yRnd = 25;
};

} // namespace Velmora::Figura
