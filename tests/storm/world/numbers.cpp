#include "numbers.h"

namespace Velmora::Figura::Storm {

Numbers::Numbers(const QList<int> &numbers)
    : m_numbers(numbers)
{
}

int Numbers::below(int count)
{
    const int number = m_numbers.value(m_next++);
    return count > 0 ? number % count : 0;
}

int Numbers::between(int from, int to)
{
    return from + below(to - from + 1);
}

QPoint Numbers::point()
{
    const int x = between(-30, 225);
    return {x, between(-30, 165)};
}

QSize Numbers::size()
{
    const int width = between(1, 70);
    return {width, between(1, 50)};
}

QRect Numbers::rect()
{
    const QPoint corner = point();
    return {corner, size()};
}

// Every fifth lets through what is behind it.
QColor Numbers::color()
{
    const int number = below(250);
    return QColor::fromHsv(number * 71 % 360, 200, 220, number % 5 ? 255 : 120);
}

} // namespace Velmora::Figura::Storm
