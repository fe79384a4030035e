#pragma once

#include <figura/figure/Figure.h>
#include <figura/figure/IAncestorListener.h>

#include <QList>

namespace Velmora::Figura::Test {

/// Remembers what it is told about the ancestors of a figure.
class AncestorRecorder : public QObject, public IAncestorListener
{
    Q_OBJECT

public:
    QList<Figure *> added;
    QList<Figure *> moved;
    QList<Figure *> removed;
    QList<Figure *> all; ///< Of all three kinds, in order.

    void clear()
    {
        added.clear();
        moved.clear();
        removed.clear();
        all.clear();
    }

public Q_SLOTS:
    void ancestorAdded(Figure *ancestor) override
    {
        added.append(ancestor);
        all.append(ancestor);
    }

    void ancestorMoved(Figure *ancestor) override
    {
        moved.append(ancestor);
        all.append(ancestor);
    }

    void ancestorRemoved(Figure *ancestor) override
    {
        removed.append(ancestor);
        all.append(ancestor);
    }
};

} // namespace Velmora::Figura::Test
