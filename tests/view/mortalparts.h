#pragma once

#include "fate.h"
#include "mortalconnection.h"
#include "mortallayout.h"

#include <figura/connection/IAnchorListener.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>
#include <figura/figure/ITreeSearch.h>
#include <figura/layout/ILayoutListener.h>
#include <figura/layout/PageLayout.h>
#include <figura/view/Layer.h>

namespace Velmora::Figura::Test {

/// A page that announces what is asked of it.
class MortalPage : public Mortal<PageLayout>
{
public:
    using Mortal::Mortal;

    QRectF getContentRect(QPainter *painter) override
    {
        return with("getContentRect", [&] { return PageLayout::getContentRect(painter); });
    }
    void decoratePage(QPainter *, const QVariant &) override
    {
        with("decoratePage", [] {});
    }
};

/// Listens to everything that has a listener interface, and is an object of its own.
class MortalListener : public QObject,
                       public IAncestorListener,
                       public IPropertyChangeListener,
                       public IAnchorListener
{
    Q_OBJECT

public:
    explicit MortalListener(Fate *fate)
        : m_fate(fate)
    {
    }

public Q_SLOTS:
    void ancestorAdded(Figure *) override { reach("ancestorAdded"); }
    void ancestorMoved(Figure *) override { reach("ancestorMoved"); }
    void ancestorRemoved(Figure *) override { reach("ancestorRemoved"); }
    void propertyChanged(const QString &, const QVariant &before, const QVariant &after) override
    {
        // Both are read, as a listener would: they must be alive, or null.
        for (const QVariant &value : {before, after}) {
            if (auto *object = value.value<QObject *>())
                object->objectName();
        }
        reach("propertyChanged");
    }
    void anchorMoved(IConnectionAnchor *) override { reach("anchorMoved"); }

private:
    void reach(const char *slot) { m_fate->reach("listener", slot); }

    Fate *m_fate;
};

/// Is told of a layout. No object: it outlives everything.
class FatefulLayoutListener : public ILayoutListener
{
public:
    explicit FatefulLayoutListener(Fate *fate)
        : m_fate(fate)
    {
    }

    void invalidate(Figure *) override { reach("invalidate"); }
    bool layout(Figure *) override
    {
        reach("layout");
        return false;
    }
    void postLayout(Figure *) override { reach("postLayout"); }
    void remove(Figure *) override { reach("remove"); }
    void setConstraint(Figure *, const QVariant &) override { reach("setConstraint"); }

private:
    void reach(const char *operation) { m_fate->reach("layout listener", operation); }

    Fate *m_fate;
};

/// A search that takes every figure but the layers, which lie over one another.
class FatefulSearch : public ITreeSearch
{
public:
    explicit FatefulSearch(Fate *fate)
        : m_fate(fate)
    {
    }

    bool accept(const Figure *figure) const override
    {
        const bool isLayer = qobject_cast<const Layer *>(figure);
        m_fate->reach("search", "accept");
        return !isLayer;
    }
    bool prune(const Figure *) const override
    {
        m_fate->reach("search", "prune");
        return false;
    }

private:
    Fate *m_fate;
};

} // namespace Velmora::Figura::Test
