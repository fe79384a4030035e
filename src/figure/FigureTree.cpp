// Parent, children, layout manager, and being attached to a displayed tree.

#include <figura/figure/Figure.h>

#include "announcedobject_p.h"
#include "childwalk_p.h"
#include "hadparent_p.h"
#include "paintreach_p.h"

#include <figura/layout/Layout.h>
#include <figura/view/UpdateManager.h>

#include <QMetaMethod>

namespace Velmora::Figura {
namespace {

Layout *reportMissing(Layout *layout, const char *operation)
{
    if (!layout)
        QMessageLogger().debug("Figure::%s(): failed, no layout manager", operation);
    return layout;
}

} // namespace

bool Figure::add(Figure *child, const QVariant &constraint, int index)
{
    Layout *layout = reportMissing(getLayoutManager(), "add");
    return layout && layout->add(child, constraint, index);
}

bool Figure::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    Layout *layout = reportMissing(getLayoutManager(), "add");
    return layout && layout->add(child, vStretch, hStretch, index);
}

bool Figure::remove(Figure *child)
{
    Layout *layout = reportMissing(getLayoutManager(), "remove");
    return layout && layout->remove(child);
}

QList<Figure *> Figure::childFigures()
{
    Layout *layout = getLayoutManager();
    return layout ? layout->childFigures() : QList<Figure *>();
}

int Figure::childFigureCount() const
{
    Layout *layout = reportMissing(getLayoutManager(), "childFigureCount");
    return layout ? layout->childFigureCount() : 0;
}

Layout *Figure::getLayoutManager() const
{
    return m_layout;
}

Layout *Figure::setLayoutManager(Layout *layout)
{
    if (!layout)
        return nullptr;

    Layout *previous = m_layout;
    if (previous)
        previous->setFigure(nullptr);
    m_layout = layout;
    layout->setFigure(this);
    noteArea();
    return previous;
}

Figure *Figure::getParentFigure() const
{
    return m_parentFigure;
}

void Figure::setParentFigure(Figure *parent)
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&Figure::propertyChanged);
    const QPointer<Figure> previous = m_parentFigure;
    m_parentFigure = parent;
    setFlag(FLAG_HAD_PARENT, parent != nullptr);
    noteArea();
    if (!isSignalConnected(signal)) // spares most figures the watch over both parents
        return;
    const AnnouncedObject<Figure> before(previous);
    const AnnouncedObject<Figure> after(parent);
    Q_EMIT propertyChanged(PROPERTY_PARENT, before.value(), after.value());
}

bool Figure::isVisible() const
{
    return getFlag(FLAG_VISIBLE);
}

void Figure::setVisible(bool visible)
{
    if (isVisible() == visible)
        return;

    const QPointer<Figure> alive(this);
    if (!visible)
        erase(); // while it still counts as visible
    if (!alive)
        return;
    setFlag(FLAG_VISIBLE, visible);
    if (visible)
        repaint();
    if (alive)
        revalidate();
}

void Figure::addNotify()
{
    if (getFlag(FLAG_NOTIFIED)) {
        QMessageLogger().debug("Figure::addNotify() should not be call multiple times");
        return;
    }
    setFlag(FLAG_NOTIFIED, true);
    PaintReach::refresh(*this);
    walkChildren(this, [](Figure *child) { child->addNotify(); });
}

void Figure::removeNotify()
{
    const QPointer<Figure> alive(this);
    walkChildren(this, [](Figure *child) { child->removeNotify(); });
    if (alive)
        setFlag(FLAG_NOTIFIED, false);
}

UpdateManager *Figure::getUpdateManager() const
{
    if (!getFlag(FLAG_NOTIFIED))
        return nullptr;
    Figure *parent = getParentFigure();
    return parent ? parent->getUpdateManager() : m_updateManager.data();
}

void Figure::setUpdateManager(UpdateManager *manager)
{
    m_updateManager = manager;
}

} // namespace Velmora::Figura
