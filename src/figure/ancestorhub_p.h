#pragma once

#include <figura/figure/Figure.h>

#include <list>

namespace Velmora::Figura {

class AncestorHelper;

/// Hears what happens to one figure and hands it on to the helpers that watch figures below it.
///
/// Thousands may watch below one layer. They share the connections of its hub, and leave it without
/// a search. The hub goes with the last of them.
class AncestorHub : public QObject
{
public:
    using Watchers = std::list<AncestorHelper *>; // null: gone while the others are told

    explicit AncestorHub(Figure *figure);

    Watchers::iterator add(AncestorHelper *watcher);
    void remove(Watchers::iterator watcher);

private:
    template<typename Tell>
    void tell(Tell tell);
    void clearUp();

    Watchers m_watchers;
    int m_telling = 0;
};

} // namespace Velmora::Figura
