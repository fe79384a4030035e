// Parent, children, layout manager, and being attached to a displayed tree.

#include <figura/figure/Figure.h>

#include "announcedobject_p.h"
#include "childwalk_p.h"
#include "figureextras_p.h"
#include "figureguard_p.h"
#include "ownclass_p.h"
#include "paintreach_p.h"
#include "privateflags_p.h"

#include <figura/layout/DelegatingLayout.h>

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
    Layout *layout = presentLayout();
    return layout ? layout->childFigures() : QList<Figure *>();
}

int Figure::childFigureCount() const
{
    if (isLayoutDue())
        return 0;
    Layout *layout = reportMissing(getLayoutManager(), "childFigureCount");
    return layout ? layout->childFigureCount() : 0;
}

Layout *Figure::getLayoutManager() const
{
    if (getFlag(FLAG_LAYOUT_ON_DEMAND))
        const_cast<Figure *>(this)->makeLayout();
    return m_extras ? m_extras->layout.data() : nullptr;
}

void Figure::makeLayout()
{
    setFlag(FLAG_LAYOUT_ON_DEMAND, false);
    Figure::setLayoutManager(new DelegatingLayout(this));
}

Layout *Figure::setLayoutManager(Layout *layout)
{
    if (!layout)
        return nullptr;

    Layout *previous = Figure::getLayoutManager();
    if (previous)
        previous->setFigure(nullptr);
    extras().layout = layout;
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

    const FigureGuard alive(this);
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
    const FigureGuard alive(this);
    walkChildren(this, [](Figure *child) { child->removeNotify(); });
    if (alive)
        setFlag(FLAG_NOTIFIED, false);
}

UpdateManager *Figure::getUpdateManager() const
{
    if (!getFlag(FLAG_NOTIFIED))
        return nullptr;
    Figure *parent = getParentFigure();
    if (parent)
        return parent->getUpdateManager();
    return m_extras ? m_extras->updateManager.data() : nullptr;
}

void Figure::setUpdateManager(UpdateManager *manager)
{
    if (m_extras || manager)
        extras().updateManager = manager;
}

} // namespace Velmora::Figura
