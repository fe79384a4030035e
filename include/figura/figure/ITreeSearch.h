#pragma once

#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

class Figure;

/// Filters a search through the figure tree.
class FIGURA_EXPORT ITreeSearch
{
public:
    virtual ~ITreeSearch();

    virtual bool accept(const Figure *figure) const = 0; ///< Whether \a figure may be a result.
    virtual bool prune(const Figure *figure) const = 0;  ///< Whether to skip it and all below it.
};

} // namespace Velmora::Figura

// The module word differs from that of the other interfaces on purpose: the id is published.
Q_DECLARE_INTERFACE(Velmora::Figura::ITreeSearch, "ITreeSearch.Morvane.Velmora.velmora.org")
