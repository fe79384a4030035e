#include "feedback/MarkFigure.h"

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Editor {
namespace {

// Into the rectangle, so that the pen does not reach beyond what the figure repaints.
QRectF inner(const QRect &rect, const QPainter *painter)
{
    const double pixel = 0.5 / qMax(0.001, painter->transform().m11());
    return QRectF(rect).adjusted(pixel, pixel, -pixel, -pixel);
}

} // namespace

MarkFigure::MarkFigure(Mark::Kind kind, const QColor &color, const QColor &paper, QObject *parent)
    : Figure(parent)
    , m_kind(kind)
    , m_color(color)
    , m_paper(paper)
{
}

void MarkFigure::setRising(bool rising)
{
    if (rising == m_rising)
        return;
    m_rising = rising;
    repaint();
}

bool MarkFigure::contains(const QPoint & /*point*/) const
{
    return false;
}

QPen MarkFigure::pen() const
{
    QPen pen(m_color);
    pen.setCosmetic(true);
    pen.setWidth(m_kind == Mark::Kind::Target ? 3 : 1);
    if (m_kind == Mark::Kind::Outline || m_kind == Mark::Kind::Line)
        pen.setStyle(Qt::DashLine);
    return pen;
}

void MarkFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    painter->save();
    painter->setPen(pen());
    painter->setBrush(Qt::NoBrush);
    const QRectF rect = inner(option.rect, painter);
    switch (m_kind) {
    case Mark::Kind::Handle:
        painter->setBrush(m_paper);
        [[fallthrough]];
    case Mark::Kind::Outline:
    case Mark::Kind::Target:
        painter->drawRect(rect);
        break;
    case Mark::Kind::Bend:
    case Mark::Kind::Segment:
    case Mark::Kind::Port:
        drawRound(painter, rect);
        break;
    case Mark::Kind::Guide:
    case Mark::Kind::Line:
        drawLine(painter, rect);
        break;
    case Mark::Kind::Bar:
        painter->fillRect(option.rect, m_color);
        break;
    }
    painter->restore();
}

void MarkFigure::drawRound(QPainter *painter, const QRectF &rect) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(m_kind == Mark::Kind::Segment ? m_paper : m_color);
    painter->drawEllipse(rect);
    if (m_kind != Mark::Kind::Port)
        return;
    painter->setPen(m_paper);
    const double arm = rect.width() / 4;
    const QPointF middle = rect.center();
    painter->drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    painter->drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
}

void MarkFigure::drawLine(QPainter *painter, const QRectF &rect) const
{
    painter->setRenderHint(QPainter::Antialiasing, m_kind == Mark::Kind::Line);
    if (m_rising)
        painter->drawLine(rect.bottomLeft(), rect.topRight());
    else
        painter->drawLine(rect.topLeft(), rect.bottomRight());
}

} // namespace Editor
