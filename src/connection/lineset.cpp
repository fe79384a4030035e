#include "lineset_p.h"

#include <bit>

namespace Velmora::Figura {
namespace {

constexpr int wordSize = 64;

// Among the lines of the same parity; shifting keeps the order of negative ones.
qint64 placeOf(qint64 line)
{
    return line >> 1;
}

qint64 wordOf(qint64 place)
{
    return place >> 6;
}

int bitOf(qint64 place)
{
    return int(place & (wordSize - 1));
}

quint64 maskOf(qint64 place)
{
    return quint64(1) << bitOf(place);
}

// How far ahead in its word the first free line lies; the size of a word when there is none.
int stepsInWord(quint64 taken, int bit, int sign)
{
    const quint64 free = ~taken;
    return sign > 0 ? std::countr_zero(free >> bit)
                    : std::countl_zero(free << (wordSize - 1 - bit));
}

} // namespace

bool LineSet::contains(int line) const
{
    const qint64 place = placeOf(line);
    return (wordsOf(line).value(wordOf(place)) & maskOf(place)) != 0;
}

void LineSet::insert(int line)
{
    const qint64 place = placeOf(line);
    wordsOf(line)[wordOf(place)] |= maskOf(place);
}

void LineSet::remove(int line)
{
    const qint64 place = placeOf(line);
    const auto word = wordsOf(line).find(wordOf(place));
    if (word == wordsOf(line).end())
        return;
    *word &= ~maskOf(place);
    if (*word == 0)
        wordsOf(line).erase(word);
}

qint64 LineSet::stepsToFree(qint64 line, int sign, qint64 most) const
{
    const Words &words = wordsOf(line);
    const qint64 from = placeOf(line);
    qint64 steps = 0;
    while (steps < most) {
        const qint64 place = from + sign * steps;
        const int found = stepsInWord(words.value(wordOf(place)), bitOf(place), sign);
        if (found < wordSize)
            return steps + found;
        steps += sign > 0 ? wordSize - bitOf(place) : bitOf(place) + 1;
    }
    return most;
}

} // namespace Velmora::Figura
