#pragma once

#include "world.h"

#include <figura/figure/IAncestorListener.h>
#include <figura/figure/IPropertyChangeListener.h>

namespace Velmora::Figura::Storm {

/// Listens to figures; what it is told is a moment for others.
class FigureListener : public QObject, public IAncestorListener, public IPropertyChangeListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IAncestorListener Velmora::Figura::IPropertyChangeListener)

public:
    explicit FigureListener(World &world);

    void listenTo(Figure *figure, bool toAncestors); ///< Else to its properties.
    void stopListening(); ///< To the figure that it has listened to for the longest time.

public Q_SLOTS:
    void ancestorAdded(Figure *ancestor) override;
    void ancestorMoved(Figure *ancestor) override;
    void ancestorRemoved(Figure *ancestor) override;
    void propertyChanged(const QString &propertyName, const QVariant &oldValue,
                         const QVariant &newValue) override;

private:
    struct Subject
    {
        QPointer<Figure> figure;
        bool toAncestors;
    };

    World &m_world;
    QList<Subject> m_subjects;
};

} // namespace Velmora::Figura::Storm
