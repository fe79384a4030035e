#pragma once

#include <QHash>

#include <array>

namespace Velmora::Figura {

/// Rows or columns that are taken, as bits: every second line, 64 in a word, and no word where none
/// is taken.
class LineSet
{
public:
    bool contains(int line) const;
    void insert(int line);
    void remove(int line);

    /// How far the first free line lies from \a line, in steps of two, upwards (\a sign 1) or
    /// downwards (-1). Anything not below \a most when there is none so near.
    qint64 stepsToFree(qint64 line, int sign, qint64 most) const;

private:
    using Words = QHash<qint64, quint64>;

    const Words &wordsOf(qint64 line) const { return m_words[line & 1]; }
    Words &wordsOf(qint64 line) { return m_words[line & 1]; }

    std::array<Words, 2> m_words; // even lines, odd ones
};

} // namespace Velmora::Figura
