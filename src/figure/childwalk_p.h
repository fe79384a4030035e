#pragma once

#include "figure/workcounters_p.h"
#include "layout/childtable_p.h"

#include <figura/figure/Figure.h>
#include <figura/layout/Layout.h>

#include <QList>
#include <QPointer>

#include <type_traits>

namespace Velmora::Figura {

/// The children of a Figure or a Layout as they were when the walk began.
///
/// What is called on the way may remove or destroy children, or the owner itself, so each child is
/// tested before it is used. That costs no search, however many there are: the records of the
/// layout answer, and only when something has changed.
template<typename Owner>
class ChildWalk
{
public:
    explicit ChildWalk(Owner *owner)
        : m_children(childrenOf(owner))
    {
        if (m_children.isEmpty())
            return;
        m_owner = owner;
        const Layout *layout = layoutOf(owner);
        if (layout && isUnchanged(ChildTable::of(layout).figures())) {
            m_layout = layout;
            m_revision = ChildTable::of(layout).revision();
        }
    }

    const QList<Figure *> &children() const { return m_children; }

    bool isPresent(Figure *child) const
    {
        if (!m_owner || !child) // figures of the application may list no figure
            return false;
        const Layout *layout = layoutOf(m_owner.data());
        if (layout && layout == m_layout) {
            const ChildTable &present = ChildTable::of(layout);
            return present.revision() == m_revision || present.find(child);
        }
        const QList<Figure *> present = childrenOf(m_owner.data());
        return isUnchanged(present) || present.contains(child);
    }

private:
    static const Layout *layoutOf(const Layout *layout) { return layout; }
    static const Layout *layoutOf(const Figure *figure) { return figure->getLayoutManager(); }

    static QList<Figure *> childrenOf(Owner *owner)
    {
        return const_cast<std::remove_const_t<Owner> *>(owner)->childFigures();
    }

    // A list that still shares its data with ours has not changed.
    bool isUnchanged(const QList<Figure *> &list) const
    {
        return list.constData() == m_children.constData();
    }

    QPointer<Owner> m_owner;
    const QList<Figure *> m_children;
    const Layout *m_layout = nullptr; // set when the children are just those that it has recorded
    quint64 m_revision = 0;
};

/// Calls \a visit with each child of \a owner, a Figure or a Layout, in list order.
template<typename Owner, typename Visit>
void walkChildren(Owner *owner, Visit visit)
{
    const ChildWalk<Owner> walk(owner);
    for (Figure *child : walk.children()) {
        if (walk.isPresent(child)) {
            ++workCounters().visited;
            visit(child);
        }
    }
}

} // namespace Velmora::Figura
