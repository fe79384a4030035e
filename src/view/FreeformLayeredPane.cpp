#include <figura/view/FreeformLayeredPane.h>

#include <figura/layout/FreeformStackLayout.h>
#include <figura/view/FreeformLayer.h>

#include <QLine>
#include <QList>
#include <QPainter>
#include <QPen>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <limits>

namespace Velmora::Figura {
namespace {

// A layer that announces its extent; null for any other.
Layer *extentSource(Layer *layer)
{
    const bool freeform =
        qobject_cast<FreeformLayeredPane *>(layer) || qobject_cast<FreeformLayer *>(layer);
    return freeform ? layer : nullptr;
}

FreeformStackLayout *freeformStack(const Figure *figure)
{
    return qobject_cast<FreeformStackLayout *>(figure->getLayoutManager());
}

} // namespace

FreeformLayeredPane::FreeformLayeredPane(QObject *parent)
    : LayeredPane(parent)
    , m_stackLayout(new FreeformStackLayout(this))
{
    delete setLayoutManager(m_stackLayout); // the stack that came with the base
    connect(m_stackLayout, SIGNAL(extentChanged()), this, SIGNAL(extentChanged()));
}

FreeformLayeredPane::~FreeformLayeredPane() = default;

void FreeformLayeredPane::addLayerAbove(Layer *layer, const QString &key, Layer *above)
{
    const QPointer<FreeformLayeredPane> self(this);
    const QPointer<Layer> added(layer);
    LayeredPane::addLayerAbove(layer, key, above);
    if (self)
        watchExtent(added, key);
}

void FreeformLayeredPane::addLayerBeneath(Layer *layer, const QString &key, Layer *beneath)
{
    const QPointer<FreeformLayeredPane> self(this);
    const QPointer<Layer> added(layer);
    LayeredPane::addLayerBeneath(layer, key, beneath);
    if (self)
        watchExtent(added, key);
}

Layer *FreeformLayeredPane::removeLayer(const QString &key)
{
    const QPointer<FreeformLayeredPane> self(this);
    Layer *layer = LayeredPane::removeLayer(key);
    if (self && m_stackLayout && extentSource(layer))
        disconnect(layer, SIGNAL(extentChanged()), m_stackLayout, SLOT(examineExtent()));
    return layer;
}

void FreeformLayeredPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    LayeredPane::render(painter, option);
}

QRect FreeformLayeredPane::getFreeformExtent()
{
    FreeformStackLayout *layout = freeformStack(this);
    return layout ? layout->getFreeformExtent() : QRect();
}

void FreeformLayeredPane::setFreeformBounds(const QRect &rect)
{
    const QPointer<FreeformStackLayout> layout(freeformStack(this));
    if (!layout || rect == getBounds())
        return;

    setBounds(rect);
    if (layout)
        layout->setFreeformBounds(rect);
}

void FreeformLayeredPane::setDrawGrid(bool on)
{
    if (on == m_drawGrid)
        return;
    m_drawGrid = on;
    repaint();
}

void FreeformLayeredPane::setSnapSize(int size)
{
    if (size == m_snapSize)
        return;
    m_snapSize = size;
    repaint();
}

void FreeformLayeredPane::drawBackground(QPainter *painter,
                                         const QStyleOptionViewItem &option) const
{
    if (!painter || !m_drawGrid || m_snapSize < 2 || !option.rect.isValid())
        return;

    painter->save();
    drawMainGrid(painter, option);
    drawSubGrid(painter, option);
    painter->restore();
}

void FreeformLayeredPane::drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setPen(QPen(Qt::gray, 1, Qt::SolidLine));
    drawGrid(painter, option.rect, std::min(m_snapSize, std::numeric_limits<int>::max() / 5) * 5);
}

void FreeformLayeredPane::drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setPen(QPen(QColor(QStringLiteral("#e0e0e0")), 1, Qt::DotLine));
    drawGrid(painter, option.rect, m_snapSize);
}

// The remainder truncates, so with a negative corner the first line lies inside the rectangle
// instead of before it. All the lines are on multiples of the spacing either way.
void FreeformLayeredPane::drawGrid(QPainter *painter, const QRect &rect, int spacing) const
{
    if (spacing < 1)
        return;

    const qint64 step = spacing; // the sum may leave the range of int
    QList<QLine> lines;
    for (qint64 y = rect.top() - rect.top() % step; y < rect.bottom(); y += step)
        lines.append(QLine(rect.left(), int(y), rect.right(), int(y)));
    for (qint64 x = rect.left() - rect.left() % step; x < rect.right(); x += step)
        lines.append(QLine(int(x), rect.top(), int(x), rect.bottom()));
    painter->drawLines(lines);
}

// Also for a layer that the base refused; only an empty key prevents the watch. Meant so.
void FreeformLayeredPane::watchExtent(Layer *layer, const QString &key)
{
    if (!key.isEmpty() && m_stackLayout && extentSource(layer))
        connect(layer, SIGNAL(extentChanged()), m_stackLayout, SLOT(examineExtent()));
}

} // namespace Velmora::Figura
