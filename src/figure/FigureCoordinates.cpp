// From the coordinate system of one figure to that of another.

#include <figura/figure/Figure.h>

#include "figureextras_p.h"

#include <figura/figure/Border.h>
#include <figura/layout/Layout.h>

namespace Velmora::Figura {
namespace {

void shift(QPoint &point, const QPoint &offset)
{
    point += offset;
}

void shift(QPointF &point, const QPoint &offset)
{
    point += offset;
}

void shift(QRect &rect, const QPoint &offset)
{
    rect.translate(offset);
}

void shift(QRectF &rect, const QPoint &offset)
{
    rect.translate(offset);
}

template<typename Value>
Value &shifted(Value &value, const QPoint &offset)
{
    shift(value, offset);
    return value;
}

template<typename Value>
Value &toAbsolute(const Figure &figure, Value &value)
{
    if (Figure *parent = figure.getParentFigure()) {
        parent->translateToParent(value);
        parent->translateToAbsolute(value);
    }
    return value;
}

template<typename Value>
Value &toRelative(const Figure &figure, Value &value)
{
    if (Figure *parent = figure.getParentFigure()) {
        parent->translateToRelative(value);
        parent->translateFromParent(value);
    }
    return value;
}

} // namespace

bool Figure::useLocalCoordinates() const
{
    if (isLayoutDue())
        return false; // as the layout would say
    Layout *layout = getLayoutManager();
    return !layout || layout->isRelativeLayout();
}

// Where child coordinates begin, in the coordinates of the bounds. The border counts with its left
// inset here, while the client area begins at the right one; both are meant.
QPoint Figure::clientOffset()
{
    const QRect bounds = getBounds();
    if (!useLocalCoordinates() || !bounds.isValid())
        return QPoint();

    const int margin = getMargin();
    QPoint offset = bounds.topLeft() + QPoint(margin, margin);
    if (Border *border = getBorder())
        offset += QPoint(border->getInsets().left(), border->getInsets().top());
    return offset;
}

QPointF &Figure::translateFromParent(QPointF &point)
{
    return shifted(point, -clientOffset());
}

QRectF &Figure::translateFromParent(QRectF &rect)
{
    return shifted(rect, -clientOffset());
}

QPoint &Figure::translateFromParent(QPoint &point)
{
    return shifted(point, -clientOffset());
}

QRect &Figure::translateFromParent(QRect &rect)
{
    return shifted(rect, -clientOffset());
}

QPointF &Figure::translateToParent(QPointF &point)
{
    return shifted(point, clientOffset());
}

QRectF &Figure::translateToParent(QRectF &rect)
{
    return shifted(rect, clientOffset());
}

QPoint &Figure::translateToParent(QPoint &point)
{
    return shifted(point, clientOffset());
}

QRect &Figure::translateToParent(QRect &rect)
{
    return shifted(rect, clientOffset());
}

QPointF &Figure::translateToAbsolute(QPointF &point)
{
    return toAbsolute(*this, point);
}

QRectF &Figure::translateToAbsolute(QRectF &rect)
{
    return toAbsolute(*this, rect);
}

QPoint &Figure::translateToAbsolute(QPoint &point)
{
    return toAbsolute(*this, point);
}

QRect &Figure::translateToAbsolute(QRect &rect)
{
    return toAbsolute(*this, rect);
}

QPointF &Figure::translateToRelative(QPointF &point)
{
    return toRelative(*this, point);
}

QRectF &Figure::translateToRelative(QRectF &rect)
{
    return toRelative(*this, rect);
}

QPoint &Figure::translateToRelative(QPoint &point)
{
    return toRelative(*this, point);
}

QRect &Figure::translateToRelative(QRect &rect)
{
    return toRelative(*this, rect);
}

} // namespace Velmora::Figura
