#include "side.h"

#include <QGraphicsItem>
#include <QGraphicsObject>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <vector>

// Three uses of QGraphicsView that differ in how a rectangle is made and how its lines follow.

namespace {

QPen hairline()
{
    return {Qt::black, 0};
}

QRectF shownRect(const QGraphicsItem *box)
{
    return QRectF(box->pos(), Scene::box);
}

class LineItem : public QGraphicsLineItem
{
public:
    LineItem(const QGraphicsItem *hub, const QGraphicsItem *neighbour)
        : m_hub(hub)
        , m_neighbour(neighbour)
    {
        setPen(hairline());
        follow();
    }

    void follow()
    {
        const QRectF from = shownRect(m_hub);
        const QRectF to = shownRect(m_neighbour);
        setLine(QLineF(chop(from, to.center()), chop(to, from.center())));
    }

private:
    const QGraphicsItem *m_hub;
    const QGraphicsItem *m_neighbour;
};

class BoxItem : public QGraphicsRectItem
{
public:
    BoxItem()
        : QGraphicsRectItem(QRectF(QPointF(), Scene::box))
    {
        setPen(hairline());
    }

    void recolor(const QColor &color) { setBrush(color); }
    std::vector<LineItem *> lines;
};

class BoxObject : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return QRectF(QPointF(), Scene::box); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    {
        painter->setPen(hairline());
        painter->setBrush(m_color);
        painter->drawRect(boundingRect());
    }
    void recolor(const QColor &color)
    {
        m_color = color;
        update();
    }

private:
    QColor m_color;
};

class TileItem : public QGraphicsItem
{
public:
    TileItem() { setFlag(ItemHasNoContents); }
    QRectF boundingRect() const override { return {}; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    {
    }
};

template<class Box>
class GraphicsSide : public Side
{
public:
    explicit GraphicsSide(const Scene &scene)
        : Side(scene)
        , m_view(&m_items)
    {
        m_view.setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
        m_view.setOptimizationFlags(QGraphicsView::DontSavePainterState |
                                    QGraphicsView::DontAdjustForAntialiasing);
        m_view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }

    void build(bool withEdges) override;
    QWidget *canvas() const override { return m_view.viewport(); }
    void lookAt(const QPoint &corner) override;

    void recolor(int index, const QColor &color) override { m_boxes[index]->recolor(color); }
    void moveBy(int index, const QPoint &step) override;
    int topmostAt(const QPoint &point) const override;
    int countIn(const QRect &rect) const override;
    void repaintAll() override { m_view.viewport()->update(); }
    void setScale(double scale) override
    {
        m_view.setTransform(QTransform::fromScale(scale, scale));
    }
    void fit() override { m_view.fitInView(m_items.sceneRect(), Qt::KeepAspectRatio); }
    void scrollBy(int dy) override;
    void removeHub(int hub) override;

protected:
    virtual void place(QGraphicsItem *item, const QPointF & /*where*/) { m_items.addItem(item); }
    QGraphicsScene &items() { return m_items; }

private:
    LineItem *addLine(const Edge &edge);

    QGraphicsScene m_items;
    QGraphicsView m_view;
    std::vector<Box *> m_boxes;
    std::vector<LineItem *> m_lines;
};

// How the lines of either kind of box learn that it has moved.
void watch(BoxItem *box, LineItem *line)
{
    box->lines.push_back(line);
}

void watch(BoxObject *box, LineItem *line)
{
    QObject::connect(box, &QGraphicsObject::xChanged, box, [line]() { line->follow(); });
    QObject::connect(box, &QGraphicsObject::yChanged, box, [line]() { line->follow(); });
}

void follow(const BoxItem *box)
{
    for (LineItem *line : box->lines)
        line->follow();
}

void follow(const BoxObject * /*box*/) {}

void forget(BoxItem *box, LineItem *line)
{
    std::erase(box->lines, line);
}

void forget(BoxObject *box, LineItem * /*line*/)
{
    QObject::disconnect(box, nullptr, box, nullptr);
}

template<class Box>
void GraphicsSide<Box>::build(bool withEdges)
{
    m_items.setSceneRect(QRectF(scene().area().adjusted(-50, -50, 50, 50)));
    m_boxes.reserve(scene().count());
    for (int i = 0; i < scene().count(); ++i) {
        auto *box = new Box;
        box->recolor(scene().color(i));
        box->setPos(scene().rect(i).topLeft());
        place(box, box->pos());
        m_boxes.push_back(box);
    }
    if (withEdges) {
        for (const Edge &edge : scene().edges())
            m_lines.push_back(addLine(edge));
    }
    m_view.resize(Scene::view);
    lookAt({0, 0});
    m_view.show();
}

template<class Box>
LineItem *GraphicsSide<Box>::addLine(const Edge &edge)
{
    Box *hub = m_boxes[edge.hub];
    Box *neighbour = m_boxes[edge.neighbour];
    auto *line = new LineItem(hub, neighbour);
    line->setZValue(1);
    watch(hub, line);
    watch(neighbour, line);
    place(line, hub->pos());
    return line;
}

template<class Box>
void GraphicsSide<Box>::lookAt(const QPoint &corner)
{
    const QPointF origin = m_items.sceneRect().topLeft();
    m_view.horizontalScrollBar()->setValue(int(corner.x() - origin.x()) +
                                           m_view.horizontalScrollBar()->minimum());
    m_view.verticalScrollBar()->setValue(int(corner.y() - origin.y()) +
                                         m_view.verticalScrollBar()->minimum());
}

template<class Box>
void GraphicsSide<Box>::moveBy(int index, const QPoint &step)
{
    m_boxes[index]->moveBy(step.x(), step.y());
    follow(m_boxes[index]);
}

template<class Box>
int GraphicsSide<Box>::topmostAt(const QPoint &point) const
{
    const QGraphicsItem *found = m_items.itemAt(point, QTransform());
    if (!found || found->type() == QGraphicsLineItem::Type)
        return -1;
    const QPoint corner = found->pos().toPoint();
    return scene().indexAt((corner.x() + Scene::gap) / (Scene::box.width() + Scene::gap),
                           (corner.y() + Scene::gap) / (Scene::box.height() + Scene::gap));
}

template<class Box>
int GraphicsSide<Box>::countIn(const QRect &rect) const
{
    return int(m_items.items(QRectF(rect), Qt::IntersectsItemBoundingRect).size());
}

template<class Box>
void GraphicsSide<Box>::scrollBy(int dy)
{
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->value() + dy);
}

template<class Box>
void GraphicsSide<Box>::removeHub(int hub)
{
    const auto &edges = scene().edges();
    const auto first = std::lower_bound(edges.begin(), edges.end(), hub,
                                        [](const Edge &e, int h) { return e.hub < h; });
    for (auto edge = first; edge != edges.end() && edge->hub == hub; ++edge) {
        LineItem *line = m_lines[edge - edges.begin()];
        if (Box *neighbour = m_boxes[edge->neighbour])
            forget(neighbour, line);
        delete line;
    }
    delete m_boxes[hub];
    m_boxes[hub] = nullptr;
}

class TiledSide final : public GraphicsSide<BoxItem>
{
public:
    using GraphicsSide::GraphicsSide;

protected:
    // Lines lie on tiles of their own, above all rectangles.
    void place(QGraphicsItem *item, const QPointF &where) override
    {
        const bool isLine = item->type() == QGraphicsLineItem::Type;
        const QPair<int, int> key(int(where.x()) / tileSize * 2 + isLine,
                                  int(where.y()) / tileSize);
        TileItem *&tile = m_tiles[key];
        if (!tile) {
            tile = new TileItem;
            tile->setZValue(isLine ? 1 : 0);
            items().addItem(tile);
        }
        item->setParentItem(tile);
    }

private:
    static constexpr int tileSize = 512;

    QHash<QPair<int, int>, TileItem *> m_tiles;
};

} // namespace

std::unique_ptr<Side> makeFlatSide(const Scene &scene)
{
    return std::make_unique<GraphicsSide<BoxItem>>(scene);
}

std::unique_ptr<Side> makeTiledSide(const Scene &scene)
{
    return std::make_unique<TiledSide>(scene);
}

std::unique_ptr<Side> makeObjectSide(const Scene &scene)
{
    return std::make_unique<GraphicsSide<BoxObject>>(scene);
}
