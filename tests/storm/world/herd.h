#pragma once

#include "numbers.h"

#include <QPointer>

namespace Velmora::Figura::Storm {

/// Objects that an operation may pick from, in the order of their birth. The dead leave by
/// themselves.
template<class T>
class Herd
{
public:
    void add(T *object) { m_members.append(object); }

    QList<T *> all() const
    {
        QList<T *> living;
        for (const QPointer<T> &member : m_members) {
            if (member)
                living.append(member);
        }
        return living;
    }

    /// Null when there is none.
    T *pick(Numbers &numbers)
    {
        m_members.removeIf([](const QPointer<T> &member) { return member.isNull(); });
        const int index = numbers.below(static_cast<int>(m_members.size()));
        return m_members.value(index);
    }

    bool isFull(int limit) const { return m_members.size() >= limit && all().size() >= limit; }

private:
    QList<QPointer<T>> m_members;
};

} // namespace Velmora::Figura::Storm
