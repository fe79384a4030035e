#include <figura/view/FreeformLayeredPane.h>

#include "figure/paintregion_p.h"
#include "grid_p.h"

#include <figura/layout/FreeformStackLayout.h>
#include <figura/view/FreeformLayer.h>

#include <QLine>
#include <QList>
#include <QPainter>
#include <QPen>
#include <QStyleOptionViewItem>

#include <algorithm>

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

QRect damagedPart(const QPainter *painter, const QRect &rect)
{
    QRect damage;
    for (const QRect &part : PaintRegion::rectsFor(painter, rect))
        damage |= part;
    return painter->hasClipping() ? damage & painter->clipBoundingRect().toAlignedRect() : damage;
}

/// The grid along one axis: where it has lines, and from where to where the others run along it.
/// Only for the damaged part, lest a pane that is far larger than the window had millions of lines.
class GridRange
{
public:
    GridRange(int from, int to, int damagedFrom, int damagedTo, int spacing)
        : m_from(from)
        , m_to(to)
        , m_damagedFrom(qint64(damagedFrom) - penWidth)
        , m_damagedTo(qint64(damagedTo) + penWidth)
        , m_spacing(spacing)
    {
    }

    // The remainder truncates, so with a negative corner the first line lies inside the rectangle
    // instead of before it. All the lines are on multiples of the spacing either way.
    qint64 first() const
    {
        const qint64 line = m_from - m_from % m_spacing;
        const qint64 missed = m_damagedFrom > m_from ? m_damagedFrom - line : 0;
        return line + (missed + m_spacing - 1) / m_spacing * m_spacing;
    }
    qint64 last() const { return std::min(m_to - 1, m_damagedTo); }

    // Whole blocks are left out, so that the dots stay where they are.
    int from() const
    {
        const qint64 missed = std::max<qint64>(m_damagedFrom - m_from, 0);
        return int(m_from + missed / block * block);
    }
    int to() const { return int(std::min(m_to, m_damagedTo + block)); }

private:
    static constexpr qint64 penWidth = 1;
    static constexpr qint64 block = qint64(3) * 4096; // of dots, each with a gap of two

    const qint64 m_from;
    const qint64 m_to;
    const qint64 m_damagedFrom;
    const qint64 m_damagedTo;
    const qint64 m_spacing;
};

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
    if (!painter || !hasGrid(m_drawGrid, m_snapSize) || !option.rect.isValid())
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
    drawGrid(painter, option.rect, mainSpacing(m_snapSize));
}

void FreeformLayeredPane::drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!painter)
        return;
    painter->setPen(QPen(QColor(QStringLiteral("#e0e0e0")), 1, Qt::DotLine));
    drawGrid(painter, option.rect, m_snapSize);
}

void FreeformLayeredPane::drawGrid(QPainter *painter, const QRect &rect, int spacing) const
{
    if (spacing < 1)
        return;

    const QRect damage = damagedPart(painter, withFirstLines(rect, spacing));
    const GridRange across(rect.left(), rect.right(), damage.left(), damage.right(), spacing);
    const GridRange down(rect.top(), rect.bottom(), damage.top(), damage.bottom(), spacing);

    QList<QLine> lines;
    for (qint64 y = down.first(); y <= down.last(); y += spacing)
        lines.append(QLine(across.from(), int(y), across.to(), int(y)));
    for (qint64 x = across.first(); x <= across.last(); x += spacing)
        lines.append(QLine(int(x), down.from(), int(x), down.to()));
    painter->drawLines(lines);
}

// Also for a layer that the base refused; only an empty key prevents the watch. Meant so.
void FreeformLayeredPane::watchExtent(Layer *layer, const QString &key)
{
    if (!key.isEmpty() && m_stackLayout && extentSource(layer))
        connect(layer, SIGNAL(extentChanged()), m_stackLayout, SLOT(examineExtent()));
}

} // namespace Velmora::Figura
