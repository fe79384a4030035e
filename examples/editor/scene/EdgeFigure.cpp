#include "scene/EdgeFigure.h"

#include "scene/ArrowHeads.h"
#include "scene/LabelLocator.h"
#include "scene/TextBlock.h"
#include "scene/Theme.h"

#include <QLineF>
#include <QPainterPath>
#include <QPolygonF>

using Velmora::Figura::IRotatableDecoration;
using Velmora::Figura::PolylineConnection;

namespace Editor {
namespace {

QPointF shortened(const QPointF &end, const QPointF &next, double length)
{
    QLineF line(end, next);
    if (line.length() <= length)
        return next;
    line.setLength(length);
    return line.p2();
}

} // namespace

EdgeFigure::EdgeFigure(QObject *parent)
    : PolylineConnection(parent)
    , m_locator(new LabelLocator(this))
{
}

void EdgeFigure::show(const Edge &edge, const Theme &theme)
{
    const QColor color = Theme::resolved(edge.style.line, theme.line);
    setEnabledFGColor(color);
    setLineStyle(edge.style.lineStyle);
    setLineWidth(edge.style.lineWidth);
    showArrows(edge, color, theme.paper);
    showLabel(edge, theme);
    revalidate();
}

void EdgeFigure::showArrows(const Edge &edge, const QColor &color, const QColor &paper)
{
    const ArrowHeads::Look look{color, paper, edge.style.lineWidth};
    m_sourceTrim = ArrowHeads::trim(edge.sourceArrow, look);
    m_targetTrim = ArrowHeads::trim(edge.targetArrow, look);
    if (edge.sourceArrow != Arrow::None || getSourceDecoration())
        setSourceDecoration(ArrowHeads::create(edge.sourceArrow, look));
    if (edge.targetArrow != Arrow::None || getTargetDecoration())
        setTargetDecoration(ArrowHeads::create(edge.targetArrow, look));
}

void EdgeFigure::showLabel(const Edge &edge, const Theme &theme)
{
    if (edge.label.isEmpty()) {
        delete m_label;
        m_label = nullptr;
        return;
    }
    m_locator->setPlace(edge.labelPercent, edge.labelOffset);
    if (m_label)
        remove(m_label);
    else
        m_label = new TextBlock(this);
    QColor paper = theme.paper;
    paper.setAlpha(0xd8); // on the line, the text could not be read without some paper beneath
    m_label->setBackgroundColor(paper);
    m_label->setFont(TextBlock::fontOf(edge.style));
    m_label->setColor(Theme::resolved(edge.style.text, theme.text));
    m_label->setText(edge.label);
    // Each time, to lie above the arrow heads, which are made anew; and only now, because it is
    // placed at once by its size.
    add(m_label, QVariant::fromValue<QObject *>(m_locator));
}

QRect EdgeFigure::getBoundingRect()
{
    const QRect bounds = getBounds();
    if (!bounds.isValid())
        return bounds;
    const int reach = getLineWidth() / 2 + 1;
    return bounds.adjusted(-reach, -reach, reach, reach);
}

// The connection itself erases its bounds only, and a wide line reaches beyond them.
void EdgeFigure::revalidate()
{
    if (getBounds().isValid())
        erase();
    PolylineConnection::revalidate();
}

void EdgeFigure::layout()
{
    PolylineConnection::layout();
    repaint();
}

// The line ends where an arrow head begins: a wide one would hide the tip.
void EdgeFigure::regeneratePath(const QRectF &rect)
{
    PolylineConnection::regeneratePath(rect);
    const QList<QPoint> ends = getLinePoints();
    if (ends.size() < 2 || (m_sourceTrim == 0 && m_targetTrim == 0))
        return;
    QPolygonF points;
    for (const QPoint &point : ends)
        points << QPointF(point);
    const qsizetype last = points.size() - 1;
    points.first() = shortened(points.first(), points.at(1), m_sourceTrim);
    points.last() = shortened(points.last(), points.at(last - 1), m_targetTrim);
    painterPath() = QPainterPath();
    painterPath().addPolygon(points);
}

} // namespace Editor
