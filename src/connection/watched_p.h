#pragma once

#include "connectionobject_p.h"

#include <QObject>
#include <QPointer>

namespace Velmora::Figura {

/// Whether the object behind an interface still lives, for as long as one call takes. One that is
/// not a QObject cannot be watched and counts as alive; null counts as gone.
class Watched
{
public:
    template<class Interface>
    explicit Watched(Interface *target)
        : m_object(objectOf(target))
        , m_isUnwatched(target && !m_object)
    {
    }

    explicit operator bool() const { return m_isUnwatched || m_object; }

private:
    const QPointer<QObject> m_object;
    const bool m_isUnwatched;
};

} // namespace Velmora::Figura
