#include "side.h"

#include <QPainter>
#include <QPaintEvent>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <vector>

// What the machine can do at best: no objects, no notices, no layout, nothing that could be
// changed by whoever uses it.

namespace {

constexpr int cellSize = 128;
constexpr int margin = 50;
constexpr int fewRects = 32;

struct Cell
{
    std::vector<int> boxes;
    std::vector<int> lines;
};

class FloorWidget final : public QWidget
{
public:
    explicit FloorWidget(const Scene &scene)
        : area(scene.area().adjusted(-margin, -margin, margin, margin))
        , m_columns(area.width() / cellSize + 1)
        , m_cells(std::size_t(m_columns) * (area.height() / cellSize + 1))
    {
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::Base);
    }

    void addBox(const QRect &rect, QRgb color);
    void addLine(const Edge &edge);
    void setColor(int index, QRgb color);
    void moveBy(int index, const QPoint &step);
    int topmostAt(const QPoint &point) const;
    int countIn(const QRect &rect) const;
    void removeHub(int hub, int firstLine, int lineCount);
    void setScale(double factor);

    const QRect area;
    double scale = 1.0;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    template<typename Visit>
    void visitCells(const QRect &rect, Visit visit) const;
    QLineF lineBetween(const Edge &edge) const;
    QRect lineBounds(int line) const
    {
        return QRectF(m_lines[line].p1(), m_lines[line].p2())
            .normalized()
            .toAlignedRect()
            .adjusted(-1, -1, 1, 1);
    }
    void damage(const QRect &rect);
    void shiftInGrid(int index, const QRect &before, const QRect &after);
    void paintPart(QPainter &painter, const QRect &rect);

    int m_columns;
    std::vector<Cell> m_cells;
    std::vector<QRect> m_rects;
    std::vector<QRgb> m_colors;
    std::vector<Edge> m_edges;
    std::vector<QLineF> m_lines;
    std::vector<std::vector<int>> m_linesOf;
    std::vector<int> m_stampOfBox;
    std::vector<int> m_stampOfLine;
    int m_stamp = 0;
    int m_pending = 0;
    QRect m_pendingArea;
};

template<typename Visit>
void FloorWidget::visitCells(const QRect &rect, Visit visit) const
{
    const QRect r = rect.translated(-area.topLeft()) & QRect(QPoint(), area.size());
    for (int y = r.top() / cellSize; y <= r.bottom() / cellSize; ++y) {
        for (int x = r.left() / cellSize; x <= r.right() / cellSize; ++x)
            visit(m_cells[std::size_t(y) * m_columns + x]);
    }
}

void FloorWidget::addBox(const QRect &rect, QRgb color)
{
    const int index = int(m_rects.size());
    m_rects.push_back(rect);
    m_colors.push_back(color);
    m_linesOf.emplace_back();
    m_stampOfBox.push_back(0);
    visitCells(rect,
               [index](const Cell &cell) { const_cast<Cell &>(cell).boxes.push_back(index); });
}

QLineF FloorWidget::lineBetween(const Edge &edge) const
{
    const QRectF from(m_rects[edge.hub]);
    const QRectF to(m_rects[edge.neighbour]);
    return {chop(from, to.center()), chop(to, from.center())};
}

void FloorWidget::addLine(const Edge &edge)
{
    const int index = int(m_lines.size());
    m_edges.push_back(edge);
    m_lines.push_back(lineBetween(edge));
    m_linesOf[edge.hub].push_back(index);
    m_linesOf[edge.neighbour].push_back(index);
    m_stampOfLine.push_back(0);
    visitCells(lineBounds(index),
               [index](const Cell &cell) { const_cast<Cell &>(cell).lines.push_back(index); });
}

void FloorWidget::damage(const QRect &rect)
{
    const QRect pixels = QTransform::fromScale(scale, scale)
                             .mapRect(QRectF(rect.translated(-area.topLeft())))
                             .toAlignedRect();
    if (!visibleRegion().boundingRect().intersects(pixels))
        return;
    if (++m_pending <= fewRects) {
        m_pendingArea |= pixels;
        update(pixels);
    } else if (!m_pendingArea.contains(pixels)) {
        m_pendingArea = visibleRegion().boundingRect();
        update(m_pendingArea);
    }
}

void FloorWidget::setColor(int index, QRgb color)
{
    m_colors[index] = color;
    damage(m_rects[index].adjusted(0, 0, 1, 1));
}

void FloorWidget::shiftInGrid(int index, const QRect &before, const QRect &after)
{
    visitCells(before,
               [index](const Cell &cell) { std::erase(const_cast<Cell &>(cell).boxes, index); });
    visitCells(after, [index](const Cell &cell) {
        auto &boxes = const_cast<Cell &>(cell).boxes;
        boxes.insert(std::lower_bound(boxes.begin(), boxes.end(), index), index);
    });
}

void FloorWidget::moveBy(int index, const QPoint &step)
{
    const QRect before = m_rects[index];
    const QRect after = before.translated(step);
    damage((before | after).adjusted(0, 0, 1, 1));
    m_rects[index] = after;
    shiftInGrid(index, before, after);
    for (int line : m_linesOf[index]) {
        const QRect old = lineBounds(line);
        m_lines[line] = lineBetween(m_edges[line]);
        damage(old | lineBounds(line));
    }
}

int FloorWidget::topmostAt(const QPoint &point) const
{
    int found = -1;
    visitCells(QRect(point, QSize(1, 1)), [this, &point, &found](const Cell &cell) {
        for (int box : cell.boxes) {
            if (m_rects[box].contains(point))
                found = std::max(found, box);
        }
    });
    return found;
}

int FloorWidget::countIn(const QRect &rect) const
{
    auto *self = const_cast<FloorWidget *>(this);
    const int stamp = ++self->m_stamp;
    int count = 0;
    visitCells(rect, [this, self, &rect, stamp, &count](const Cell &cell) {
        for (int box : cell.boxes) {
            if (self->m_stampOfBox[box] != stamp && m_rects[box].intersects(rect))
                ++count;
            self->m_stampOfBox[box] = stamp;
        }
        for (int line : cell.lines) {
            if (self->m_stampOfLine[line] != stamp && lineBounds(line).intersects(rect))
                ++count;
            self->m_stampOfLine[line] = stamp;
        }
    });
    return count;
}

void FloorWidget::removeHub(int hub, int firstLine, int lineCount)
{
    for (int line = firstLine; line < firstLine + lineCount; ++line) {
        const QRect bounds = lineBounds(line);
        visitCells(bounds,
                   [line](const Cell &cell) { std::erase(const_cast<Cell &>(cell).lines, line); });
        std::erase(m_linesOf[m_edges[line].neighbour], line);
        damage(bounds);
    }
    visitCells(m_rects[hub],
               [hub](const Cell &cell) { std::erase(const_cast<Cell &>(cell).boxes, hub); });
    damage(m_rects[hub].adjusted(0, 0, 1, 1));
}

void FloorWidget::setScale(double factor)
{
    scale = factor;
    resize((QSizeF(area.size()) * scale).toSize());
    update();
}

void FloorWidget::paintEvent(QPaintEvent *event)
{
    m_pending = 0;
    m_pendingArea = QRect();
    QPainter painter(this);
    painter.scale(scale, scale);
    painter.translate(-area.topLeft());
    for (const QRect &rect : event->region()) {
        const QRectF logical = QTransform::fromScale(1 / scale, 1 / scale).mapRect(QRectF(rect));
        paintPart(painter, logical.toAlignedRect().translated(area.topLeft()));
    }
}

void FloorWidget::paintPart(QPainter &painter, const QRect &rect)
{
    ++m_stamp;
    const QRect reached = rect.adjusted(-1, -1, 0, 0);
    painter.setPen(QPen(Qt::black, 0));
    visitCells(reached, [&](const Cell &cell) {
        for (int box : cell.boxes) {
            if (m_stampOfBox[box] == m_stamp || !m_rects[box].intersects(reached))
                continue;
            m_stampOfBox[box] = m_stamp;
            painter.setBrush(QColor::fromRgb(m_colors[box]));
            painter.drawRect(m_rects[box]);
        }
    });
    visitCells(reached, [&](const Cell &cell) {
        for (int line : cell.lines) {
            if (m_stampOfLine[line] == m_stamp)
                continue;
            m_stampOfLine[line] = m_stamp;
            painter.drawLine(m_lines[line]);
        }
    });
}

class FloorSide final : public Side
{
public:
    using Side::Side;

    void build(bool withEdges) override;
    QWidget *canvas() const override { return m_widget; }
    void lookAt(const QPoint &corner) override;

    void recolor(int index, const QColor &color) override
    {
        m_widget->setColor(index, color.rgb());
    }
    void moveBy(int index, const QPoint &step) override { m_widget->moveBy(index, step); }
    int topmostAt(const QPoint &point) const override { return m_widget->topmostAt(point); }
    int countIn(const QRect &rect) const override { return m_widget->countIn(rect); }
    void repaintAll() override { m_widget->update(); }
    void setScale(double scale) override { m_widget->setScale(scale); }
    void fit() override;
    void scrollBy(int dy) override;
    void removeHub(int hub) override;

private:
    QScrollArea m_view;
    FloorWidget *m_widget = nullptr;
};

void FloorSide::build(bool withEdges)
{
    m_widget = new FloorWidget(scene());
    for (int i = 0; i < scene().count(); ++i)
        m_widget->addBox(scene().rect(i), scene().color(i).rgb());
    if (withEdges) {
        for (const Edge &edge : scene().edges())
            m_widget->addLine(edge);
    }
    m_widget->resize(m_widget->area.size());
    m_view.setWidget(m_widget);
    m_view.resize(Scene::view);
    m_view.show();
}

void FloorSide::lookAt(const QPoint &corner)
{
    m_view.horizontalScrollBar()->setValue(corner.x() - m_widget->area.x());
    m_view.verticalScrollBar()->setValue(corner.y() - m_widget->area.y());
}

void FloorSide::fit()
{
    const QSizeF full = m_widget->area.size();
    const QSizeF shown = m_view.viewport()->size();
    setScale(std::min(shown.width() / full.width(), shown.height() / full.height()));
}

void FloorSide::scrollBy(int dy)
{
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->value() + dy);
}

void FloorSide::removeHub(int hub)
{
    const auto &edges = scene().edges();
    const auto [first, last] =
        std::equal_range(edges.begin(), edges.end(), Edge{hub, 0},
                         [](const Edge &a, const Edge &b) { return a.hub < b.hub; });
    m_widget->removeHub(hub, int(first - edges.begin()), int(last - first));
}

} // namespace

std::unique_ptr<Side> makeFloorSide(const Scene &scene)
{
    return std::make_unique<FloorSide>(scene);
}
