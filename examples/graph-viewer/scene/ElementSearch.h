#pragma once

#include <figura/figure/ITreeSearch.h>

namespace GraphViewer {

/// Finds elements that have a title, not their parts and not the background.
class ElementSearch : public Velmora::Figura::ITreeSearch
{
public:
    bool accept(const Velmora::Figura::Figure *figure) const override;
    bool prune(const Velmora::Figura::Figure *figure) const override;
};

} // namespace GraphViewer
