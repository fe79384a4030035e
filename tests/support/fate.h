#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>
#include <type_traits>
#include <utility>

namespace Velmora::Figura::Test {

/// The moments of a test, each an operation of somebody, and the one of them at which something is
/// to happen.
class Fate
{
public:
    /// Does it when the moment, "who::operation", comes for the given time, counted from 1.
    void at(const QString &moment, int occurrence, const std::function<void()> &act)
    {
        const QByteArray name = moment.toLatin1();
        const qsizetype colons = name.indexOf("::");
        m_who = name.left(colons);
        m_operation = name.mid(colons + 2);
        m_remaining = occurrence;
        m_act = act;
    }

    void reach(const QByteArray &who, const char *operation)
    {
        if (m_isCounting)
            ++m_reached[QString::fromLatin1(who + "::" + operation)];
        if (m_act && m_operation == operation && m_who == who && --m_remaining == 0)
            std::exchange(m_act, nullptr)();
    }

    bool hasStruck() const { return !m_operation.isEmpty() && !m_act; }

    void count() { m_isCounting = true; }
    const QMap<QString, int> &reached() const { return m_reached; } ///< How often each one came.

private:
    QByteArray m_who;
    QByteArray m_operation;
    int m_remaining = 0;
    std::function<void()> m_act;
    bool m_isCounting = false;
    QMap<QString, int> m_reached;
};

/// For objects whose operations are moments: they come when the operation has been carried out.
///
/// The object may not be there any more by then, so all that is needed is taken along.
template<class Base>
class Mortal : public Base
{
public:
    template<typename... Arguments>
    Mortal(Fate *fate, const char *name, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , m_fate(fate)
        , m_name(name)
    {
    }

protected:
    template<typename Call>
    auto with(const char *operation, Call call) const
    {
        Fate *const fate = m_fate;
        const QByteArray name = m_name;
        if constexpr (std::is_void_v<decltype(call())>) {
            call();
            fate->reach(name, operation);
        } else {
            const auto answer = call();
            fate->reach(name, operation);
            return answer;
        }
    }

private:
    Fate *m_fate;
    QByteArray m_name;
};

} // namespace Velmora::Figura::Test
