#pragma once

#include <figura/view/UpdateManager.h>

#include <QHash>
#include <QSet>

namespace Velmora::Figura::Storm {

class World;

/// An update manager that remembers what it was asked to validate, so that what a pass leaves
/// invalid can be told apart: broken promise or documented drop, which goes into the ledger.
class UpdateWatch : public UpdateManager
{
public:
    explicit UpdateWatch(World &world);

    using UpdateManager::addDirtyRegion;
    void addDirtyRegion(Figure *figure, const QRect &rect) override;
    void addInvalidFigure(Figure *figure) override;
    void performUpdate() override;

    /// How often a paint may have changed what it was to show: by a pass that had something to
    /// validate, or in a decoration, which lays out what it holds only then.
    int changes() const { return m_changes; }

    bool isPending() const; ///< There is something to validate.

    void noteInvalidated(Figure *figure); ///< Called by the figures.
    void noteValidating(Figure *figure);  ///< The same, before they do it.

private:
    /// A figure that the pass has to validate, and whose child it was when the pass began.
    struct Promise
    {
        QPointer<Figure> figure;
        QPointer<Figure> parent;
        bool hasParent;
    };

    void queue(Figure *figure);
    void beginPass();
    void performNestedUpdate();
    void promise(Figure *figure);
    bool isBroken(const Promise &promise) const;
    void reportBroken();

    World &m_world;
    bool m_validating = false;
    bool m_passing = false; // those that are still to come are known
    int m_validations = 0;  // that were under way when the pass began
    int m_changes = 0;
    QList<QPointer<Figure>> m_queued;
    QList<QPointer<Figure>> m_coming; // whose turn in the pass is still to come
    QList<Promise> m_promises;
    QList<QPointer<Figure>> m_late; // queued when their turn was over
    QSet<Figure *> m_invalidated;   // while the pass was under way
};

} // namespace Velmora::Figura::Storm
