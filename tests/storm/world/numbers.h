#pragma once

#include <QColor>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace Velmora::Figura::Storm {

/// The numbers of one operation, read in their order and reduced to what is needed. Numbers that
/// are missing count as 0, so that any list of numbers means something.
class Numbers
{
public:
    explicit Numbers(const QList<int> &numbers);

    int below(int count);            ///< From 0 to \a count - 1; 0 when there is nothing to choose.
    int between(int from, int to);   ///< Both included.
    bool coin() { return below(2); } ///< False for 0.
    bool oneIn(int count) { return below(count) == count - 1; } ///< False for 0.

    template<class Value>
    Value oneOf(std::initializer_list<Value> values)
    {
        return values.begin()[below(static_cast<int>(values.size()))];
    }

    QPoint point(); ///< Around what a viewer shows at first. Takes two numbers.
    QSize size();   ///< Takes two numbers.
    QRect rect();   ///< Takes four numbers.
    QColor color(); ///< Takes one number.

private:
    const QList<int> m_numbers;
    qsizetype m_next = 0;
};

} // namespace Velmora::Figura::Storm
