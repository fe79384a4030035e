#pragma once

#include <figura/figure/Figure.h>
#include <figura/layout/ILocator.h>

#include <QList>
#include <QObject>
#include <QRect>
#include <QVariant>

namespace Velmora::Figura::Test {

/// A locator that gives its targets the place it was set to, if any, and remembers them.
class LocatorProbe : public QObject, public ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    explicit LocatorProbe(const QRect &targetPlace = QRect(), QObject *parent = nullptr)
        : QObject(parent)
        , place(targetPlace)
    {
    }

    QRect place;
    QList<Figure *> targets;

    void relocate(Figure *target) override
    {
        targets.append(target);
        if (place.isValid())
            target->setBounds(place);
    }
};

inline QVariant asConstraint(QObject *object)
{
    return QVariant::fromValue<QObject *>(object);
}

} // namespace Velmora::Figura::Test
