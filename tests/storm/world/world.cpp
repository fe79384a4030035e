#include "world.h"

#include "layout/areasearch_p.h"

#include "probe.h"
#include "updatewatch.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineF.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Shape.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace Velmora::Figura::Storm {
namespace {

constexpr int deepest = 2; // operations within operations

// To look past a fault that is known: FIGURA_STORM_SKIP=picture,validity
bool isSkipped(const QByteArray &check)
{
    static const QList<QByteArray> skipped = qgetenv("FIGURA_STORM_SKIP").split(',');
    return skipped.contains(check);
}

bool isConnection(const Figure *figure)
{
    return qobject_cast<const IConnection *>(figure);
}

} // namespace

World::World(QByteArray &fault)
    : m_fault(fault)
    , m_messages([this](const QByteArray &text) { report("message", text); })
    , m_context(std::make_unique<QObject>())
{
    areaSearch().fewestChildren = 2; // no world has many
    recover();
    settle();
}

World::~World()
{
    m_quiet = true;
    m_context.reset();
    destroyAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

template<class T>
void World::destroy(const QList<T *> &objects)
{
    const QList<QPointer<T>> guarded(objects.begin(), objects.end());
    for (const QPointer<T> &object : guarded)
        delete object;
}

// No order may matter, so that several are tried.
void World::destroyAll()
{
    if (m_orderOfEnd % 2 == 0)
        stage.close();
    if (m_orderOfEnd / 2 % 2 == 0) {
        destroy(layouts.all());
        destroy(routers.all());
        destroy(anchors.all());
    }
    QList<Figure *> all = figures.all();
    if (m_orderOfEnd / 4 % 2 == 0)
        std::reverse(all.begin(), all.end());
    destroy(all);
    destroy(layouts.all());
    destroy(routers.all());
    destroy(anchors.all());
    destroy(borders.all());
    destroy(locators.all());
    destroy(listeners.all());
    destroy(pageLayouts.all());
    stage.close();
}

// The viewer deletes only managers that are replaced: the last one goes with it as its child.
void World::watchUpdates()
{
    if (!updateManager()) // what it was to validate went with it, or with its widget
        drops = DropLedger();
    auto *watch = new UpdateWatch(*this);
    watch->setParent(stage.viewer());
    stage.viewer()->setUpdateManager(watch);
}

void World::openViewer()
{
    stage.open();
    watchUpdates();
    QObject::connect(stage.viewer(), &FreeformViewer::scaleChanged, m_context.get(),
                     [this]() { happens(Moment::Scaled); });
}

void World::recover()
{
    if (!stage.viewer() || !stage.widget())
        openViewer();
    if (!updateManager()) {
        watchUpdates();
        stage.askForFullRepaint();
    }
    ensureContent();
}

void World::perform(const Operation &operation)
{
    if (!m_traps.capture(operation))
        run(operation);
}

void World::run(const Operation &operation)
{
    const Entry &entry = catalogue().at(operation.code);
    if (!mayRun(entry.place))
        return;
    Numbers numbers(operation.numbers);
    entry.run(*this, numbers);
}

bool World::mayRun(Place place) const
{
    switch (place) {
    case Place::Anywhere:
        return true;
    case Place::OutsidePaint:
        return !stage.isPainting();
    case Place::OutsideEvents:
        return !stage.isPainting() && !stage.isHandlingEvents();
    case Place::Top:
        return m_depth == 0;
    }
    return false;
}

void World::happens(Moment moment)
{
    if (m_quiet || m_depth >= deepest)
        return;
    const std::optional<Operation> operation = m_traps.take(moment);
    const QScopedValueRollback<int> depth(m_depth, m_depth + 1);
    if (operation)
        run(*operation);
}

// What still waits may go on for ever, so it has one chance. What is queued while nothing is
// painted waits for the next paint, as documented; a program that cannot wait asks for the update
// itself.
void World::settle()
{
    stage.settle();
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    stage.settle();
    if (UpdateWatch *manager = updateManager())
        manager->performUpdate();
    stage.settle();
}

void World::checkAtRest(void (*check)(World &))
{
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    check(*this);
}

void World::report(const QByteArray &check, const QByteArray &text)
{
    if (m_fault.isEmpty() && !isSkipped(check))
        m_fault = check + ": " + text;
}

void World::watch(Figure *figure)
{
    const auto on = [&](auto *sender, auto signal, Moment moment) {
        QObject::connect(sender, signal, m_context.get(), [this, moment]() { happens(moment); });
    };
    on(figure, &Figure::figureMoved, Moment::Moved);
    on(figure, &Figure::propertyChanged, Moment::Parented);
    on(figure, &Figure::ancestorAdded, Moment::Ancestor);
    on(figure, &Figure::ancestorMoved, Moment::Ancestor);
    on(figure, &Figure::ancestorRemoved, Moment::Ancestor);
    if (auto *shape = qobject_cast<Shape *>(figure))
        on(shape, &Shape::pathChanged, Moment::Path);
    if (auto *layer = qobject_cast<FreeformLayer *>(figure))
        on(layer, &FreeformLayer::extentChanged, Moment::Extent);
}

// It tells none of those that it is set on when it dies, with its owner say.
void World::adopt(Border *border)
{
    borders.add(border);
    QObject::connect(border, &QObject::destroyed, m_context.get(),
                     [this]() { stage.askForFullRepaint(); });
}

Figure *World::pickContainer(Numbers &numbers) const
{
    QList<Figure *> fitting;
    for (Figure *figure : figures.all()) {
        if (figure->getLayoutManager() && !isConnection(figure) &&
            !qobject_cast<LayeredPane *>(figure))
            fitting.append(figure);
    }
    return fitting.value(numbers.below(static_cast<int>(fitting.size())));
}

Figure *World::pickMovable(Numbers &numbers) const
{
    QList<Figure *> fitting;
    for (Figure *figure : figures.all()) {
        if (!qobject_cast<Layer *>(figure))
            fitting.append(figure);
    }
    return fitting.value(numbers.below(static_cast<int>(fitting.size())));
}

FreeformLayeredPane *World::content() const
{
    FreeformViewer *viewer = stage.viewer();
    return viewer ? qobject_cast<FreeformLayeredPane *>(viewer->getContent()) : nullptr;
}

FreeformLayeredPane *World::ensureContent()
{
    if (content() || !stage.viewer())
        return content();
    FreeformLayeredPane *pane = nullptr;
    for (FreeformLayeredPane *candidate : panes.all()) {
        if (!pane && !candidate->getParentFigure())
            pane = candidate;
    }
    showContent(pane ? pane : makePane());
    return content();
}

// Nothing may happen to it before it is complete.
FreeformLayeredPane *World::makePane()
{
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    auto *pane = adopt(new Probed<FreeformLayeredPane>(*this));
    panes.add(pane);
    for (int i = 0; i < 2; ++i)
        pane->addLayer(adopt(new Probed<FreeformLayer>(*this, i ? nullptr : pane)), newKey());
    return pane;
}

// A content is as large as its own bounds say, and has none before somebody looks at it.
void World::showContent(FreeformLayeredPane *pane)
{
    m_contents.append(pane);
    pane->setVisible(true);
    stage.viewer()->setContent(pane);
    stage.viewer()->setViewLocation(QPoint(-10, -10));
    stage.askForFullRepaint();
}

UpdateWatch *World::updateManager() const
{
    FreeformViewer *viewer = stage.viewer();
    return viewer ? dynamic_cast<UpdateWatch *>(viewer->getUpdateManager()) : nullptr;
}

void World::noteInvalidated(Figure *figure)
{
    if (UpdateWatch *manager = updateManager())
        manager->noteInvalidated(figure);
}

void World::noteValidating(Figure *figure)
{
    if (UpdateWatch *manager = updateManager())
        manager->noteValidating(figure);
}

void World::noteForgotten(const QList<Figure *> &children)
{
    for (Figure *child : children)
        m_forgotten.append(child);
}

bool World::isForgotten(Figure *figure) const
{
    return m_forgotten.contains(figure);
}

bool World::wasContent(Figure *figure) const
{
    return m_contents.contains(figure);
}

QString World::newKey()
{
    return QStringLiteral("layer%1").arg(++m_keys);
}

bool isWithin(const Figure *figure, const Figure *ancestor)
{
    while (figure && figure != ancestor)
        figure = figure->getParentFigure();
    return figure;
}

bool isProbed(const Figure *figure)
{
    return dynamic_cast<const Probe *>(figure);
}

QByteArray describe(Figure *figure)
{
    if (!figure)
        return "no figure";
    const QRect bounds = figure->getBounds();
    return QStringLiteral("%1 (%2, %3) %4 x %5")
        .arg(QLatin1String(figure->metaObject()->className()))
        .arg(bounds.x())
        .arg(bounds.y())
        .arg(bounds.width())
        .arg(bounds.height())
        .toUtf8();
}

void place(World &world, Figure *child, Figure *parent, Numbers &numbers)
{
    Layout *layout = parent ? parent->getLayoutManager() : nullptr;
    if (!child || !layout || isWithin(parent, child))
        return;
    const int index = numbers.between(-1, 3);
    if (numbers.oneIn(4))
        parent->add(child, 1U, 1U, index);
    else
        parent->add(child, constraintFor(world, layout, numbers), index);
}

} // namespace Velmora::Figura::Storm
