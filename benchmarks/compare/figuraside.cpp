#include "side.h"

#include <figura/Figura.h>

#include <QScrollBar>

#include <algorithm>
#include <vector>

using namespace Velmora::Figura;

namespace {

struct Line
{
    std::unique_ptr<ChopboxAnchor> source;
    std::unique_ptr<ChopboxAnchor> target;
    std::unique_ptr<PolylineConnection> figure;
};

// Layers are figures too, and cover everything.
class ShapeSearch final : public ITreeSearch
{
public:
    explicit ShapeSearch(const Figure *pane)
        : m_pane(pane)
    {
    }
    bool accept(const Figure *figure) const override
    {
        return figure != m_pane && figure->getParentFigure() != m_pane;
    }
    bool prune(const Figure * /*figure*/) const override { return false; }

private:
    const Figure *m_pane;
};

class FiguraSide final : public Side
{
public:
    using Side::Side;

    void build(bool withEdges) override;
    QWidget *canvas() const override { return m_viewer.widget(); }
    void lookAt(const QPoint &corner) override { m_viewer.setViewLocation(corner, false); }

    void recolor(int index, const QColor &color) override;
    void moveBy(int index, const QPoint &step) override;
    int topmostAt(const QPoint &point) const override;
    int countIn(const QRect &rect) const override;
    void repaintAll() override { m_viewer.widget()->update(); }
    void setScale(double scale) override { m_viewer.setScale(scale, nullptr); }
    void fit() override { m_viewer.setScale(-1.0, nullptr); }
    void scrollBy(int dy) override;
    void removeHub(int hub) override;

private:
    static constexpr int m_margin = 50;

    void addBox(int index);
    void addLine(const Edge &edge);

    // In this order, so that the figures go first, while everything is still shown.
    mutable FreeformViewer m_viewer;
    FreeformLayeredPane m_pane;
    FreeformLayer *m_layer = nullptr;
    ConnectionLayer *m_lineLayer = nullptr;
    std::vector<std::unique_ptr<Rectangle>> m_boxes;
    std::vector<Line> m_lines;
};

void FiguraSide::build(bool withEdges)
{
    m_layer = new FreeformLayer(&m_pane);
    m_lineLayer = new ConnectionLayer(&m_pane);
    m_pane.addLayer(m_layer, QStringLiteral("boxes"));
    m_pane.addLayer(m_lineLayer, QStringLiteral("lines"));
    m_viewer.setContent(&m_pane);

    m_boxes.reserve(scene().count());
    for (int i = 0; i < scene().count(); ++i)
        addBox(i);
    if (withEdges) {
        m_lines.reserve(scene().edges().size());
        for (const Edge &edge : scene().edges())
            addLine(edge);
    }
    rebuildPaths(&m_pane);
    m_viewer.resize(Scene::view);
    QPoint corner(-m_margin, -m_margin);
    m_viewer.setScale(1.0, &corner); // gives the canvas the size of the content
    m_viewer.show();
}

void FiguraSide::addBox(int index)
{
    auto &box = m_boxes.emplace_back(std::make_unique<Rectangle>(nullptr));
    box->setEnabledFGColor(Qt::black);
    box->setEnabledBGColor(scene().color(index));
    m_layer->add(box.get(), scene().rect(index));
}

void FiguraSide::addLine(const Edge &edge)
{
    Rectangle *hub = m_boxes.at(edge.hub).get();
    Rectangle *neighbour = m_boxes.at(edge.neighbour).get();
    Line line{std::make_unique<ChopboxAnchor>(hub, nullptr),
              std::make_unique<ChopboxAnchor>(neighbour, nullptr),
              std::make_unique<PolylineConnection>(nullptr)};
    line.figure->setEnabledFGColor(Qt::black);
    line.figure->setEnabledBGColor(Qt::black);
    line.figure->setSourceAnchor(line.source.get());
    line.figure->setTargetAnchor(line.target.get());
    m_lineLayer->add(line.figure.get());
    m_lines.push_back(std::move(line));
}

void FiguraSide::recolor(int index, const QColor &color)
{
    m_boxes[index]->setEnabledBGColor(color);
}

void FiguraSide::moveBy(int index, const QPoint &step)
{
    Rectangle &box = *m_boxes[index];
    box.setBounds(box.getBounds().translated(step));
}

int FiguraSide::topmostAt(const QPoint &point) const
{
    const Figure *found = m_pane.findFigureAt(point.x(), point.y(), ShapeSearch(&m_pane));
    if (!found || found->getParentFigure() != m_layer)
        return -1;
    const QRect bounds = const_cast<Figure *>(found)->getBounds();
    return scene().indexAt((bounds.x() + Scene::gap) / (Scene::box.width() + Scene::gap),
                           (bounds.y() + Scene::gap) / (Scene::box.height() + Scene::gap));
}

int FiguraSide::countIn(const QRect &rect) const
{
    QList<Figure *> found;
    m_pane.findFigures(found, rect, ShapeSearch(&m_pane), false);
    return int(found.size());
}

void FiguraSide::scrollBy(int dy)
{
    m_viewer.verticalScrollBar()->setValue(m_viewer.verticalScrollBar()->value() + dy);
}

void FiguraSide::removeHub(int hub)
{
    const auto &edges = scene().edges();
    // The lines of a hub follow one another.
    const auto first = std::lower_bound(edges.begin(), edges.end(), hub,
                                        [](const Edge &e, int h) { return e.hub < h; });
    for (auto edge = first; edge != edges.end() && edge->hub == hub; ++edge) {
        Line &line = m_lines[edge - edges.begin()];
        m_lineLayer->remove(line.figure.get());
        line = Line();
    }
    m_layer->remove(m_boxes[hub].get());
    m_boxes[hub].reset();
}

} // namespace

std::unique_ptr<Side> makeFiguraSide(const Scene &scene)
{
    return std::make_unique<FiguraSide>(scene);
}
