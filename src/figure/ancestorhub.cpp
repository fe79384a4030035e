#include "ancestorhub_p.h"

#include <figura/figure/AncestorHelper.h>

namespace Velmora::Figura {

AncestorHub::AncestorHub(Figure *figure)
{
    connect(figure, &Figure::figureMoved, this, [this](Figure *moved) {
        tell([moved](AncestorHelper *watcher) { watcher->figureMoved(moved); });
    });
    connect(figure, &QObject::destroyed, this, [this](QObject *destroyed) {
        tell([destroyed](AncestorHelper *watcher) { watcher->ancestorDestroyed(destroyed); });
    });
    connect(
        figure, &Figure::propertyChanged, this,
        [this](const QString &name, const QVariant &before, const QVariant &after) {
            tell([&](AncestorHelper *watcher) { watcher->propertyChanged(name, before, after); });
        });
}

AncestorHub::Watchers::iterator AncestorHub::add(AncestorHelper *watcher)
{
    return m_watchers.insert(m_watchers.end(), watcher);
}

void AncestorHub::remove(Watchers::iterator watcher)
{
    *watcher = nullptr;
    if (m_telling > 0)
        return;
    m_watchers.erase(watcher);
    if (m_watchers.empty())
        delete this;
}

// As with a signal: who comes while others are told is not told, who goes is not told any more.
template<typename Tell>
void AncestorHub::tell(Tell tell)
{
    if (m_watchers.empty())
        return;
    const QPointer<AncestorHub> alive(this);
    ++m_telling;
    const auto last = std::prev(m_watchers.end());
    for (auto watcher = m_watchers.begin();; ++watcher) {
        if (*watcher)
            tell(*watcher);
        if (!alive)
            return;
        if (watcher == last)
            break;
    }
    if (--m_telling == 0)
        clearUp();
}

void AncestorHub::clearUp()
{
    m_watchers.remove(nullptr);
    if (m_watchers.empty())
        delete this;
}

} // namespace Velmora::Figura
