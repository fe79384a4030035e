#pragma once

#include <QObject>
#include <QPointer>

namespace Velmora::Figura {

/// Points to an interface of an object that is not owned, and becomes null when that object is
/// destroyed. An implementation that is not a QObject cannot be watched and stays set.
template<typename Interface>
class InterfacePointer
{
public:
    InterfacePointer() = default;
    InterfacePointer(Interface *target) // implicit, as a QPointer is made from a plain pointer
        : m_target(target)
        , m_object(dynamic_cast<QObject *>(target))
        , m_watched(!m_object.isNull())
    {
    }

    Interface *get() const { return m_watched && !m_object ? nullptr : m_target; }
    QObject *object() const { return m_object; } ///< Null when the target is not a QObject.

    Interface *operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    Interface *m_target = nullptr;
    QPointer<QObject> m_object;
    bool m_watched = false;
};

} // namespace Velmora::Figura
