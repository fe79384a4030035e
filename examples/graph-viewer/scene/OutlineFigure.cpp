#include "OutlineFigure.h"

#include "DashPattern.h"

#include <QPainter>

namespace GraphViewer {
namespace {

double ratio(double to, double from)
{
    return from > 0 ? to / from : 1;
}

QTransform fitting(const QRectF &from, const QRectF &to)
{
    return QTransform::fromTranslate(-from.x(), -from.y()) *
           QTransform::fromScale(ratio(to.width(), from.width()),
                                 ratio(to.height(), from.height())) *
           QTransform::fromTranslate(to.x(), to.y());
}

} // namespace

OutlineFigure::OutlineFigure(const Stroke &stroke, const QPoint &origin, QObject *parent)
    : Shape(parent)
    , m_outline(stroke.path.translated(-origin))
    , m_origin(origin)
{
    setLineStyle(stroke.pen.style());
    setLineWidth(qMax(1, qRound(stroke.pen.widthF())));
    setEnabledFGColor(stroke.pen.color());
    setEnabledBGColor(stroke.brush.color());
    setFill(stroke.brush.style() != Qt::NoBrush);
    if (stroke.brush.gradient())
        m_gradient = stroke.brush;
}

// A straight line has no height or no width, but a figure without them is not painted.
QRect OutlineFigure::box() const
{
    const QRect tight = m_outline.boundingRect().toAlignedRect();
    return {tight.topLeft(), tight.size().expandedTo(QSize(1, 1))};
}

QRect OutlineFigure::getBoundingRect()
{
    const int reach = getLineWidth() / 2 + 1;
    return getBounds().adjusted(-reach, -reach, reach, reach);
}

QSize OutlineFigure::getMinimumSize()
{
    return {};
}

void OutlineFigure::regeneratePath(const QRectF &rect)
{
    if (m_home.isNull())
        m_home = rect; // the first bounds are those that the outline was computed for
    painterPath() = fitting(m_home, rect).map(m_outline);
}

void OutlineFigure::drawShape(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_gradient.style() != Qt::NoBrush) {
        const QPointF now = absolutePath(getPainterPath()).boundingRect().topLeft();
        const QPointF then = m_outline.boundingRect().topLeft() + m_origin;
        QBrush brush = m_gradient;
        brush.setTransform(QTransform::fromTranslate(now.x() - then.x(), now.y() - then.y()));
        painter->setBrush(brush);
    }
    DashPattern::apply(painter);
    Shape::drawShape(painter, option);
}

} // namespace GraphViewer
