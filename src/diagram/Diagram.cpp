#include <figura/diagram/Diagram.h>

#include "bendrouter_p.h"
#include "diagramlinks_p.h"
#include "diagrampane_p.h"
#include "figuresheet_p.h"
#include "line_p.h"
#include "placedlayout_p.h"
#include "reach_p.h"
#include "settle_p.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/LabelFigure.h>

#include <QGuiApplication>
#include <QPalette>
#include <QScopedValueRollback>

#include <algorithm>

// The layers, and the figures in them.

namespace Velmora::Figura {
namespace {

/// A box whose children move with it, unlike those of the stack.
class FillLayout : public StackLayout
{
public:
    using StackLayout::StackLayout;

    bool isRelativeLayout() const override { return true; }
};

template<class LayerType>
LayerType *createLayer(DiagramPane *pane, const QString &key)
{
    auto *layer = new LayerType(pane);
    delete layer->setLayoutManager(new PlacedLayout(layer));
    pane->addLayer(layer, key);
    return layer;
}

// The only child, if it is a text.
TextFigure *textInside(Figure *figure)
{
    const QList<Figure *> children = figure->childFigures();
    return children.size() == 1 ? qobject_cast<TextFigure *>(children.constFirst()) : nullptr;
}

// What no colour was chosen for takes that of the palette, which has one for the text upon it.
QColor inkOn(Figure *figure)
{
    const QPalette palette = QGuiApplication::palette();
    const auto *shape = qobject_cast<Shape *>(figure);
    const QColor fill = shape ? shape->getEnabledBGColor() : figure->getBackgroundColor();
    if (shape && shape->getFill() && !fill.isValid())
        return palette.color(QPalette::Active, QPalette::ButtonText);
    if (fill.alpha() == 0 || (shape && !shape->getFill()))
        return palette.color(QPalette::Active, QPalette::Text);
    return qGray(fill.rgb()) > 110 ? Qt::black : Qt::white;
}

TextFigure *createText(Figure *figure)
{
    figure->setLayoutManager(new FillLayout(figure));
    auto *text = new TextFigure(QString(), figure, Qt::transparent);
    text->setTextColor(inkOn(figure));
    text->setAlignment(Qt::AlignCenter);
    figure->add(text);
    return text;
}

} // namespace

const QString Diagram::FIGURES = QStringLiteral("figures");
const QString Diagram::CONNECTIONS = QStringLiteral("connections");
const QString Diagram::FEEDBACK = QStringLiteral("feedback");

// The connections lie above the figures because layers are laid out in their order: below, they
// would be routed before the figures are in their places.
Diagram::Diagram(QObject *parent)
    : QObject(parent)
    , m_pane(new DiagramPane(this, this))
    , m_figureLayer(createLayer<FigureSheet>(m_pane, FIGURES))
    , m_connectionLayer(createLayer<Sheet<ConnectionLayer>>(m_pane, CONNECTIONS))
    , m_feedbackLayer(createLayer<Sheet<FreeformLayer>>(m_pane, FEEDBACK))
    , m_bendRouter(new BendRouter(this))
    , m_manhattanRouter(new ManhattanConnectionRouter(this))
    , m_links(std::make_unique<DiagramLinks>())
    , m_watch(std::make_unique<QObject>())
{
    m_connectionLayer->setAntialias(m_antialiased);
}

Diagram::~Diagram()
{
    m_watch.reset(); // what goes now needs no further care
    delete m_pane;
}

FreeformLayeredPane *Diagram::getPane() const
{
    return m_pane;
}

FreeformLayer *Diagram::getFigureLayer() const
{
    return m_figureLayer;
}

ConnectionLayer *Diagram::getConnectionLayer() const
{
    return m_connectionLayer;
}

FreeformLayer *Diagram::getFeedbackLayer() const
{
    return m_feedbackLayer;
}

bool Diagram::addFigure(Figure *figure, const QRect &rect, int index)
{
    // What is attached without a parent is the root of another tree, or our own.
    if (!figure || qobject_cast<IConnection *>(figure) || figure->getParentFigure() ||
        figure->getFlag(Figure::FLAG_NOTIFIED))
        return false;

    const QPointer<Figure> added(figure);
    QRect place = rect;
    figure->setParent(m_figureLayer);
    if (isLine(figure)) {
        m_outlines.insert(figure, outlineOfLine(figure));
        if (rect.isValid())
            fitLine(figure, m_outlines.value(figure), rect);
        rebuildPaths(figure); // it has no bounds before
        place = figure->getBounds();
    }
    m_added.insert(figure);
    m_figureLayer->add(figure, place, index);
    figure->validate();
    settle(figure);
    rebuildPaths(figure);
    watch(figure);
    Q_EMIT figureAdded(figure);
    return !added.isNull();
}

void Diagram::watch(Figure *figure)
{
    watchForDestruction(figure);
    connect(figure, &Figure::figureMoved, m_watch.get(), [this, figure]() {
        const QPointer<Figure> alive(figure);
        settleMoved(figure);
        if (alive)
            Q_EMIT figureMoved(figure);
    });
    if (isLine(figure))
        watchLine(figure);
}

// Lines tell nobody that they have moved, so that connections would not follow them.
void Diagram::watchLine(Figure *figure)
{
    auto *line = static_cast<Shape *>(figure);
    connect(line, &Shape::pathChanged, m_watch.get(), [this, line]() {
        if (!m_fitting)
            m_outlines.insert(line, outlineOfLine(line));
        Q_EMIT line->figureMoved(line);
    });
}

void Diagram::watchForDestruction(Figure *figure)
{
    if (m_watchedForDestruction.contains(figure))
        return;
    m_watchedForDestruction.insert(figure);
    connect(figure, &QObject::destroyed, m_watch.get(),
            [this, figure]() { forgetDestroyed(figure); });
}

void Diagram::unwatch(Figure *figure)
{
    disconnect(figure, nullptr, m_watch.get(), nullptr);
    m_watchedForDestruction.remove(figure);
}

// A figure tells nobody that its size has made its layout stale.
void Diagram::settleMoved(Figure *figure)
{
    const QPointer<Figure> alive(figure);
    if (!figure->getFlag(Figure::FLAG_VALID)) {
        figure->revalidate();
        figure->validate();
    }
    if (alive)
        settle(figure);
}

void Diagram::noteReach(const Figure *figure)
{
    m_reach = std::max(m_reach, reachOf(figure));
}

// While nobody looks, nobody tells of lines that become wider.
void Diagram::noteAllReaches()
{
    m_reach = std::max(m_reach, reachOfTree(m_pane));
}

// Only the address is left of the figure.
void Diagram::forgetDestroyed(Figure *figure)
{
    m_watchedForDestruction.remove(figure);
    m_outlines.remove(figure);
    const QList<PolylineConnection *> connections = m_links->at(figure);
    for (PolylineConnection *connection : connections)
        removeConnection(connection);
    if (!m_added.remove(figure))
        return;
    removeLooseConnections();
    Q_EMIT figureRemoved(figure);
}

bool Diagram::remove(Figure *figure)
{
    if (auto *connection = qobject_cast<PolylineConnection *>(figure)) {
        const bool known = m_links->find(connection);
        removeConnection(connection);
        return known;
    }
    if (!isAdded(figure))
        return false;

    removeConnectionsInside(figure);
    unwatch(figure);
    m_added.remove(figure);
    m_outlines.remove(figure);
    m_figureLayer->remove(figure);
    figure->deleteLater();
    Q_EMIT figureRemoved(figure);
    return true;
}

// From the top, where layouts remove fastest.
void Diagram::clear()
{
    QList<Figure *> all = getFigures();
    const QList<PolylineConnection *> connections = getConnections();
    all.append(QList<Figure *>(connections.cbegin(), connections.cend()));
    std::for_each(all.crbegin(), all.crend(), [this](Figure *figure) { remove(figure); });
}

QList<Figure *> Diagram::getFigures() const
{
    QList<Figure *> figures = m_figureLayer->childFigures();
    figures.removeIf([this](Figure *figure) { return !isAdded(figure); });
    return figures;
}

bool Diagram::isAdded(const Figure *figure) const
{
    return m_added.contains(figure);
}

bool Diagram::contains(const Figure *figure) const
{
    const auto *connection = qobject_cast<const PolylineConnection *>(figure);
    return isAdded(figure) || (connection && m_links->find(connection));
}

// The figure that was added, in which another one lies, or which it is itself.
Figure *Diagram::addedFigure(Figure *inside) const
{
    while (inside && !isAdded(inside))
        inside = inside->getParentFigure();
    return inside;
}

bool Diagram::setBounds(Figure *figure, const QRect &rect)
{
    if (!addedFigure(figure))
        return false;
    if (isLine(figure)) {
        if (!rect.isValid())
            return false;
        const QScopedValueRollback<bool> fitting(m_fitting, true);
        fitLine(figure, m_outlines.value(figure, outlineOfLine(figure)), rect);
        return true;
    }
    auto *layout = qobject_cast<XYLayout *>(figure->getParentFigure()->getLayoutManager());
    if (layout)
        return layout->setConstraint(figure, rect);
    figure->setBounds(rect);
    return true;
}

int Diagram::getIndex(const Figure *figure) const
{
    if (!contains(figure))
        return -1;
    return static_cast<int>(figure->getParentFigure()->childFigures().indexOf(figure));
}

// Out and in again, past the operations of the layer: those would reset the router.
bool Diagram::setIndex(Figure *figure, int index)
{
    if (!contains(figure))
        return false;
    Layout *layout = figure->getParentFigure()->getLayoutManager();
    const QVariant constraint = layout->getConstraint(figure);
    layout->remove(figure);
    layout->add(figure, constraint, index);
    if (isLine(figure) && isAdded(figure)) {
        // Behind the slot that builds the path, which was connected anew.
        disconnect(static_cast<Shape *>(figure), &Shape::pathChanged, m_watch.get(), nullptr);
        watchLine(figure);
    }
    return true;
}

TextFigure *Diagram::setText(Figure *figure, const QString &text)
{
    if (!figure)
        return nullptr;
    auto *shown = qobject_cast<TextFigure *>(figure);
    if (auto *label = qobject_cast<LabelFigure *>(figure)) {
        label->setText(text);
        const QList<Figure *> parts = label->childFigures();
        return parts.isEmpty() ? nullptr : qobject_cast<TextFigure *>(parts.constLast());
    }
    if (!shown)
        shown = figure->getLayoutManager() ? textInside(figure) : createText(figure);
    if (shown)
        shown->setText(text);
    figure->repaint(); // a text that has no place yet gets one in the next paint
    return shown;
}

} // namespace Velmora::Figura
