#include "shrink.h"

#include <algorithm>

namespace Velmora::Figura::Storm {
namespace {

/// Delta debugging: parts of the list are left out as long as it still fails.
class Shrinker
{
public:
    Shrinker(const Script &script, const Judge &fails, int patience)
        : m_script(script)
        , m_fails(fails)
        , m_patience(patience)
    {
    }

    Script run()
    {
        cutEnd();
        for (qsizetype length = m_script.size() / 2; length > 0; length /= 2)
            leaveOutParts(length);
        for (qsizetype before = -1; before != m_script.size();) {
            before = m_script.size();
            leaveOutParts(1);
        }
        simplifyNumbers();
        return m_script;
    }

private:
    bool accept(const Script &candidate)
    {
        if (candidate == m_script || m_patience-- <= 0 || !m_fails(candidate))
            return false;
        m_script = candidate;
        return true;
    }

    // Most of what is too much comes after the cause.
    void cutEnd()
    {
        qsizetype passing = 0;
        for (qsizetype length = m_script.size() / 2; length > passing;
             length = (passing + m_script.size()) / 2) {
            if (!accept(m_script.first(length)))
                passing = length;
        }
    }

    void leaveOutParts(qsizetype length)
    {
        for (qsizetype start = 0; start < m_script.size();) {
            Script candidate = m_script;
            candidate.remove(start, std::min(length, candidate.size() - start));
            if (!accept(candidate))
                start += length;
        }
    }

    void simplifyNumbers()
    {
        for (qsizetype i = 0; i < m_script.size(); ++i) {
            for (qsizetype k = m_script.at(i).numbers.size() - 1; k >= 0; --k)
                simplifyNumber(i, k);
        }
    }

    // Missing is simpler than 0, and 0 is simpler than anything else.
    void simplifyNumber(qsizetype operation, qsizetype number)
    {
        Script candidate = m_script;
        QList<int> &numbers = candidate[operation].numbers;
        if (number == numbers.size() - 1)
            numbers.removeLast();
        else
            numbers[number] = 0;
        accept(candidate);
    }

    Script m_script;
    const Judge &m_fails;
    int m_patience;
};

} // namespace

Script shrink(const Script &script, const Judge &fails, int patience)
{
    return Shrinker(script, fails, patience).run();
}

} // namespace Velmora::Figura::Storm
