#include "../checks.h"
#include "../updatewatch.h"
#include "../world.h"

#include "figure/privateflags_p.h"

namespace Velmora::Figura::Storm {
namespace {

bool isAttached(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_NOTIFIED);
}

// Not what a layout has left behind when it went: nobody tells it that its tree is not shown any
// more.
bool isShown(const Figure *figure, const Figure *content)
{
    while (figure && figure != content && isAttached(figure))
        figure = figure->getParentFigure();
    return figure && figure == content && isAttached(figure);
}

/// The tree as the figures themselves tell it, held against what is known to live.
class TreeCheck
{
public:
    explicit TreeCheck(World &world)
        : m_world(world)
        , m_all(world.figures.all())
    {
    }

    void run()
    {
        for (Figure *figure : m_all) {
            checkChildren(figure);
            checkParent(figure);
            checkManager(figure);
        }
        for (FreeformLayeredPane *pane : m_world.panes.all())
            checkLayers(pane);
    }

private:
    void expect(bool truth, Figure *figure, const char *text)
    {
        if (!truth)
            m_world.report("tree", describe(figure) + ' ' + text);
    }

    // A child that is dead may not be touched, so its address is looked up first. Parts that the
    // library makes for itself are not known by name.
    void checkChildren(Figure *figure)
    {
        Layout *layout = figure->getLayoutManager();
        if (!layout)
            return;
        expect(layout->getFigure() == figure, figure, "has a layout of another figure");
        const QList<Figure *> children = figure->childFigures();
        expect(figure->childFigureCount() == children.size(), figure, "miscounts its children");
        for (Figure *child : children) {
            expect(children.count(child) == 1, figure, "has a child twice");
            const bool isKnown = m_all.contains(child);
            expect(isKnown || figure->children().contains(child), figure, "has a dead child");
            if (isKnown && !m_world.isForgotten(child))
                checkChild(figure, child);
        }
    }

    void checkChild(Figure *figure, Figure *child)
    {
        expect(child->getParentFigure() == figure, child, "has another parent than its list says");
        // A content stays attached when its viewer goes, wherever it is put then.
        const bool mayStayAttached = m_world.wasContent(child);
        expect(!isAttached(child) || isAttached(figure) || mayStayAttached, child,
               "is attached, its parent is not");
        expect(isAttached(child) || !isAttached(figure), child, "is not attached, its parent is");
    }

    void checkParent(Figure *figure)
    {
        Figure *parent = figure->getParentFigure();
        if (m_world.isForgotten(figure))
            return;
        if (!parent) {
            // A parent that is destroyed detaches nobody.
            const bool isOrphan = figure->getFlag(FLAG_HAD_PARENT);
            expect(!isAttached(figure) || isOrphan || qobject_cast<LayeredPane *>(figure), figure,
                   "is attached without a parent");
            return;
        }
        expect(!isWithin(parent, figure), figure, "is its own ancestor");
        expect(parent->childFigures().contains(figure), figure, "is not listed by its parent");
    }

    void checkManager(Figure *figure)
    {
        if (isShown(figure, m_world.content()))
            expect(figure->getUpdateManager() == m_world.updateManager(), figure,
                   "has not the viewer's update manager");
        if (!isAttached(figure))
            expect(!figure->getUpdateManager(), figure, "is not attached but has a manager");
    }

    void checkLayers(FreeformLayeredPane *pane)
    {
        for (Figure *child : pane->childFigures()) {
            auto *layer = qobject_cast<Layer *>(child);
            if (layer && !layer->objectName().isEmpty())
                expect(pane->getLayer(layer->objectName()), layer, "is not found by its key");
        }
    }

    World &m_world;
    const QList<Figure *> m_all;
};

} // namespace

void checkTree(World &world)
{
    TreeCheck(world).run();
}

} // namespace Velmora::Figura::Storm
