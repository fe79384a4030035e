#pragma once

#include <QObject>
#include <QVariant>

namespace Velmora::Figura {

/// An object as the argument of a signal that carries it in a QVariant.
///
/// One slot may destroy the object while others are still to be told: they find null instead.
template<typename T>
class AnnouncedObject
{
public:
    explicit AnnouncedObject(T *object)
        : m_value(QVariant::fromValue<T *>(object))
    {
        if (object) {
            m_watch = QObject::connect(object, &QObject::destroyed,
                                       [this]() { m_value = QVariant::fromValue<T *>(nullptr); });
        }
    }

    ~AnnouncedObject() { QObject::disconnect(m_watch); }
    Q_DISABLE_COPY_MOVE(AnnouncedObject)

    const QVariant &value() const { return m_value; }

private:
    QVariant m_value;
    QMetaObject::Connection m_watch;
};

} // namespace Velmora::Figura
