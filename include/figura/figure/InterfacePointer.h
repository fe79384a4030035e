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
    InterfacePointer() = default; ///< Null.
    /// Begins to watch \a target, which may be null.
    InterfacePointer(Interface *target) // implicit, as a QPointer is made from a plain pointer
        : m_target(target)
        , m_object(dynamic_cast<QObject *>(target))
        , m_watched(!m_object.isNull())
    {
    }

    /// Null when there is no target, or it was destroyed.
    Interface *get() const { return m_watched && !m_object ? nullptr : m_target; }
    QObject *object() const { return m_object; } ///< Null when the target is not a QObject.

    /// Only while get() is not null.
    Interface *operator->() const { return get(); }
    /// True while get() is not null.
    explicit operator bool() const { return get() != nullptr; }

private:
    Interface *m_target = nullptr;
    QPointer<QObject> m_object;
    bool m_watched = false;
};

} // namespace Velmora::Figura
