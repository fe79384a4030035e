#pragma once

#include <figura/export.h>

#include <QObject>

class QVariant;

namespace Velmora::Figura {

class Figure;

/// Is told what a layout manager does to its container figure; need not be a QObject.
///
/// Not owned by the layout: take it off with Layout::removeListener() before it dies.
class FIGURA_EXPORT ILayoutListener
{
public:
    virtual ~ILayoutListener();

    /// The layout of \a container is about to become stale.
    virtual void invalidate(Figure *container) = 0;

    /// True takes the layout over. The layout then counts as not done, so it is asked again and the
    /// children are not painted.
    virtual bool layout(Figure *container) = 0;
    /// The layout of \a container has been asked to lay out, and is done or was taken over.
    virtual void postLayout(Figure *container) = 0;
    virtual void remove(Figure *container) = 0; ///< A child of \a container is about to leave.
    /// A child of \a container is about to get another constraint.
    virtual void setConstraint(Figure *container, const QVariant &constraint) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::ILayoutListener, "ILayoutListener.Figura.Velmora.velmora.org")
