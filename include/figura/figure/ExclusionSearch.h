#pragma once

#include <figura/export.h>
#include <figura/figure/ITreeSearch.h>

#include <QList>
#include <QObject>

namespace Velmora::Figura {

/// Accepts every figure but skips the listed ones with everything below them.
class FIGURA_EXPORT ExclusionSearch : public QObject, public ITreeSearch
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ITreeSearch)

public:
    /// Keeps a copy of the list: later changes of \a excluded have no effect.
    explicit ExclusionSearch(const QList<Figure *> &excluded, QObject *parent = nullptr);
    ~ExclusionSearch() override;

    bool accept(const Figure *figure) const override;
    bool prune(const Figure *figure) const override; ///< A null figure is pruned too.

private:
    QList<Figure *> m_excluded;
};

} // namespace Velmora::Figura
