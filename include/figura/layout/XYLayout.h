#pragma once

#include <figura/export.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {

/// Places each child at the rectangle that is its constraint: the layout of diagram canvases.
///
/// A constraint is a QRect or a QRectF in the children's coordinates; a negative width or height
/// stands for the child's preferred one. A child that is moved by hand takes its constraint along.
class FIGURA_EXPORT XYLayout : public Layout
{
    Q_OBJECT

public:
    explicit XYLayout(QObject *parent = nullptr); ///< \a parent owns the layout as a QObject.
    ~XYLayout() override;

    /// The corner of the figure's client area; (0, 0) for null or an invalid client area.
    virtual QPoint getOrigin(Figure *figure);

public Q_SLOTS:
    /// Makes the child's new bounds its constraint, once the layout has been laid out.
    virtual void childMoved(Figure *child);

public:
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;

    /// Rectangles are stored with their size resolved: at least the minimum size where given, the
    /// preferred size (not raised to the minimum) where negative.
    bool setConstraint(Figure *child, const QVariant &constraint) override;

Q_SIGNALS:
    void constraintChanged(Figure *child); ///< A moved child has a new constraint.

protected:
    QSize calculatePreferredSize() override; ///< The minimum size and 10 units more.
    QSize calculateMinimumSize() override;   ///< Holds the children and the origin.
    bool performLayout(const QRect &clientArea) override;
    bool applyConstraint(Figure *child, const QVariant &constraint) override;

private:
    void place(Figure *child);
};

} // namespace Velmora::Figura
