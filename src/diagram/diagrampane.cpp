#include "diagrampane_p.h"

#include "papercolor_p.h"

#include <figura/diagram/Diagram.h>
#include <figura/view/IFreeformFigure.h>

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Velmora::Figura {

DiagramPane::DiagramPane(Diagram *diagram, QObject *parent)
    : Sheet<FreeformLayeredPane>(parent)
    , m_diagram(diagram)
{
    DiagramPane::addNotify();
}

void DiagramPane::setStandIn(const QRect &extent)
{
    m_standIn = extent;
}

void DiagramPane::addNotify()
{
    if (!getFlag(FLAG_NOTIFIED))
        FreeformLayeredPane::addNotify();
}

void DiagramPane::addLayerAbove(Layer *layer, const QString &key, Layer *above)
{
    FreeformLayeredPane::addLayerAbove(layer, key, above);
    unroll(getLayer(key));
}

void DiagramPane::addLayerBeneath(Layer *layer, const QString &key, Layer *beneath)
{
    FreeformLayeredPane::addLayerBeneath(layer, key, beneath);
    unroll(getLayer(key));
}

// A layer that comes later would get its bounds with the next change of ours, and show nothing
// until then.
void DiagramPane::unroll(Layer *layer)
{
    if (auto *freeform = qobject_cast<IFreeformFigure *>(layer))
        freeform->setFreeformBounds(getBounds());
}

QRect DiagramPane::getFreeformExtent()
{
    const QRect extent = m_diagram ? m_diagram->paintedExtent() : QRect();
    return extent.isValid() ? extent : m_standIn;
}

// Figures just outside the damage reach into it with their lines and smooth edges.
void DiagramPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter || !m_diagram)
        return;
    const int reach = m_diagram->m_reach;
    QStyleOptionViewItem wider(option);
    wider.rect.adjust(-reach, -reach, reach, reach);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, m_diagram->isAntialiased());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    FreeformLayeredPane::render(painter, wider);
    painter->restore();
}

// The lines of the grid lie between pixels for smooth edges, and would blur.
void DiagramPane::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setRenderHint(QPainter::Antialiasing, false);
    FreeformLayeredPane::drawBackground(painter, option);
}

bool DiagramPane::isOnDarkPaper() const
{
    const auto *view = m_diagram ? qobject_cast<DiagramView *>(m_diagram->m_view) : nullptr;
    return view && qGray(paperColor(view).rgb()) < 128;
}

// The colours of the grid are made for white paper. On a dark one they outshine the figures.
void DiagramPane::drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (painter && isOnDarkPaper())
        painter->setOpacity(0.3);
    FreeformLayeredPane::drawMainGrid(painter, option);
}

void DiagramPane::drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (painter && isOnDarkPaper())
        painter->setOpacity(0.15);
    FreeformLayeredPane::drawSubGrid(painter, option);
}

} // namespace Velmora::Figura
