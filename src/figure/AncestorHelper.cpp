#include <figura/figure/AncestorHelper.h>

#include "ancestorhub_p.h"
#include "signals_p.h"

#include <figura/figure/Figure.h>

#include <QVariant>

#include <algorithm>
#include <utility>

namespace Velmora::Figura {

AncestorHelper::AncestorHelper(Figure *figure, QObject *parent)
    : QObject(parent)
    , m_figure(figure)
{
    if (!figure)
        return;
    AncestorHelper::addAncestors(figure);
    connect(this, &AncestorHelper::ancestorAdded, figure, &Figure::ancestorAdded);
    connect(this, &AncestorHelper::ancestorMoved, figure, &Figure::ancestorMoved);
    connect(this, &AncestorHelper::ancestorRemoved, figure, &Figure::ancestorRemoved);
}

AncestorHelper::AncestorHelper(Figure *figure, Relay relay)
    : m_relay(relay)
    , m_figure(figure)
{
    AncestorHelper::addAncestors(figure);
}

AncestorHelper::~AncestorHelper()
{
    cleanup();
}

void AncestorHelper::addAncestors(Figure *figure)
{
    std::size_t height = 0;
    for (Figure *ancestor = figure; ancestor; ancestor = ancestor->getParentFigure())
        ++height;
    m_chain.reserve(m_chain.size() + height); // thousands watch, each at the same height
    for (Figure *ancestor = figure; ancestor; ancestor = ancestor->getParentFigure())
        hook(ancestor);
}

// What was hooked is let go of, not what the parent chain says now: an ancestor that is being
// destroyed can no longer be asked for its own parent.
void AncestorHelper::removeAncestors(Figure *figure)
{
    const int first = firstHook(figure);
    if (first < 0)
        return;
    const std::vector<Hook> removed(m_chain.begin() + first, m_chain.end());
    m_chain.erase(m_chain.begin() + first, m_chain.end());
    for (const Hook &hook : removed)
        unhook(hook);
}

// Only few watch a figure itself, while all that is in a layer shares what is above.
void AncestorHelper::hook(Figure *figure)
{
    Hook hook{figure, nullptr, {}};
    if (figure == m_figure && m_chain.empty()) {
        hookDirectly(figure);
    } else {
        hook.hub = figure->ancestorHub();
        hook.place = hook.hub->add(this);
    }
    m_chain.push_back(hook);
}

void AncestorHelper::hookDirectly(Figure *figure)
{
    m_direct[0] = connectNormalized(figure, "figureMoved(Figure*)", this, "figureMoved(Figure*)");
    m_direct[1] =
        connectNormalized(figure, "destroyed(QObject*)", this, "ancestorDestroyed(QObject*)");
    constexpr auto changed = "propertyChanged(QString,QVariant,QVariant)";
    m_direct[2] = connectNormalized(figure, changed, this, changed);
}

void AncestorHelper::unhook(const Hook &hook)
{
    if (hook.hub) {
        hook.hub->remove(hook.place);
        return;
    }
    for (QMetaObject::Connection &connection : m_direct)
        disconnect(std::exchange(connection, {}));
}

int AncestorHelper::firstHook(Figure *figure) const
{
    const auto hook = std::find_if(m_chain.begin(), m_chain.end(),
                                   [figure](const Hook &h) { return h.figure == figure; });
    return hook == m_chain.end() ? -1 : static_cast<int>(hook - m_chain.begin());
}

// Also when the watched figure is gone already: a hub must not keep a helper that is destroyed.
void AncestorHelper::cleanup()
{
    m_figure.clear();
    for (const Hook &hook : std::exchange(m_chain, {}))
        unhook(hook);
}

void AncestorHelper::tell(void (AncestorHelper::*own)(Figure *), void (Figure::*relayed)(Figure *),
                          Figure *ancestor)
{
    if (m_relay == Relay::BySignal)
        Q_EMIT(this->*own)(ancestor);
    else if (m_figure)
        Q_EMIT(m_figure->*relayed)(ancestor);
}

void AncestorHelper::figureMoved(Figure *pFigure)
{
    if (pFigure)
        tell(&AncestorHelper::ancestorMoved, &Figure::ancestorMoved, pFigure);
}

void AncestorHelper::ancestorDestroyed(QObject *pObj)
{
    if (pObj)
        cleanup();
}

void AncestorHelper::propertyChanged(const QString &propertyName, const QVariant &oldValue,
                                     const QVariant &newValue)
{
    if (propertyName != Figure::PROPERTY_PARENT)
        return;

    // A listener may give up watching while it is told, which deletes this helper, or destroy the
    // new parent.
    const QPointer<AncestorHelper> alive(this);
    const QPointer<Figure> newParent(qobject_cast<Figure *>(newValue.value<QObject *>()));
    if (auto *oldParent = qobject_cast<Figure *>(oldValue.value<QObject *>())) {
        removeAncestors(oldParent);
        tell(&AncestorHelper::ancestorRemoved, &Figure::ancestorRemoved, oldParent);
    }
    if (alive && newParent) {
        addAncestors(newParent);
        tell(&AncestorHelper::ancestorAdded, &Figure::ancestorAdded, newParent);
    }
}

} // namespace Velmora::Figura
