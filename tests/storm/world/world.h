#pragma once

#include "catalogue.h"
#include "dropledger.h"
#include "herd.h"
#include "messagewatch.h"
#include "stage.h"
#include "traps.h"

#include <figura/connection/AbstractRouter.h>
#include <figura/connection/ConnectionAnchorBase.h>
#include <figura/connection/IConnection.h>
#include <figura/figure/Border.h>
#include <figura/figure/Figure.h>
#include <figura/layout/ILayoutListener.h>
#include <figura/layout/Layout.h>
#include <figura/layout/PageLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>

#include <memory>

namespace Velmora::Figura::Storm {

class UpdateWatch;

/// A shown viewer and everything that operations have made. Whatever is in it may be destroyed by
/// an operation at any time, so that nothing here is taken for granted.
class World
{
public:
    explicit World(QByteArray &fault); ///< Where the first report goes; it outlives the world.
    ~World();
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    Stage stage;
    DropLedger drops;
    Herd<Figure> figures; ///< Panes, layers and connections too.
    Herd<Layout> layouts;
    Herd<Border> borders;
    Herd<ConnectionAnchorBase> anchors;
    Herd<AbstractRouter> routers;
    Herd<QObject> locators;
    Herd<QObject> listeners;
    Herd<PageLayout> pageLayouts;
    Herd<FreeformLayeredPane> panes;

    /// Runs one operation, or keeps it for the moment that it is to wait for.
    void watchUpdates(); ///< With a new manager of its own.
    void perform(const Operation &operation);
    void catchNext(Moment moment) { m_traps.arm(moment); }
    void happens(Moment moment); ///< Runs what waits for the moment.

    void settle();                            ///< Lets all that is pending come to rest.
    void checkAtRest(void (*check)(World &)); ///< Runs nothing that waits meanwhile.

    /// What is wrong, for whoever runs the storm. The first report stays.
    void report(const QByteArray &check, const QByteArray &text);
    bool hasFault() const { return !m_fault.isEmpty(); }

    template<class T>
    T *adopt(T *figure); ///< Registers and watches a figure.
    void adopt(Border *border);
    template<class T>
    T *pick(Numbers &numbers) const; ///< One of the figures of that class.

    Figure *pickContainer(Numbers &numbers) const; ///< One that takes children.
    Figure *pickMovable(Numbers &numbers) const;   ///< One that is no layer.
    FreeformLayeredPane *content() const;
    FreeformLayeredPane *ensureContent(); ///< Shows a pane where none is shown.
    FreeformLayeredPane *makePane();      ///< With two layers.
    void showContent(FreeformLayeredPane *pane);
    UpdateWatch *updateManager() const;
    void openViewer();
    void recover(); ///< Makes what is needed to go on and was destroyed.

    void noteInvalidated(Figure *figure);
    void noteValidating(Figure *figure);
    int validations = 0; ///< How many are under way, one within the other.

    /// Children whose layout was taken from under them: they keep their parent, which has forgotten
    /// them.
    void noteForgotten(const QList<Figure *> &children);
    bool isForgotten(Figure *figure) const;
    bool wasContent(Figure *figure) const; ///< Or is it.

    void setOrderOfEnd(int order) { m_orderOfEnd = order; }

    QString newKey(); ///< For a layer.

private:
    void run(const Operation &operation);
    bool mayRun(Place place) const;
    void watch(Figure *figure);
    void destroyAll();

    template<class T>
    static void destroy(const QList<T *> &objects);

    Traps m_traps;
    int m_depth = 0;
    bool m_quiet = false; // nothing that waits is run
    QByteArray &m_fault;
    MessageWatch m_messages;
    QList<QPointer<Figure>> m_forgotten;
    QList<QPointer<Figure>> m_contents; // all that there ever were
    int m_orderOfEnd = 0;
    int m_keys = 0;
    std::unique_ptr<QObject> m_context; // ends the watch over what outlives the world
};

/// Puts \a child into \a parent, with a constraint that the layout there understands.
void place(World &world, Figure *child, Figure *parent, Numbers &numbers);
QVariant constraintFor(World &world, Layout *layout, Numbers &numbers);
QObject *makeLocator(World &world, IConnection *connection, Numbers &numbers);

bool isWithin(const Figure *figure, const Figure *ancestor);
bool isProbed(const Figure *figure);
QByteArray describe(Figure *figure); ///< For a report.

template<class T>
T *World::adopt(T *figure)
{
    figures.add(figure);
    if (Layout *layout = figure->getLayoutManager())
        layouts.add(layout);
    watch(figure);
    return figure;
}

template<class T>
T *World::pick(Numbers &numbers) const
{
    QList<T *> fitting;
    for (Figure *figure : figures.all()) {
        if (T *match = qobject_cast<T *>(figure))
            fitting.append(match);
    }
    return fitting.value(numbers.below(static_cast<int>(fitting.size())));
}

} // namespace Velmora::Figura::Storm
