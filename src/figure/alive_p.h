#pragma once

namespace Velmora::Figura {

class Figure;

/// Whether a figure still lives, for the length of one call of its own.
///
/// What a QPointer would tell, without the two places in memory that this has to look up for each
/// figure. The guards lie on the stack, so those of calls under way form a chain that a destroyed
/// figure can walk.
class Alive
{
public:
    explicit Alive(const Figure *figure)
        : m_figure(figure)
        , m_outer(inmost)
    {
        inmost = this;
    }
    ~Alive() { inmost = m_outer; }
    Alive(const Alive &) = delete;
    Alive &operator=(const Alive &) = delete;

    explicit operator bool() const { return m_figure; }

    static void figureDestroyed(const Figure *figure)
    {
        for (Alive *guard = inmost; guard; guard = guard->m_outer) {
            if (guard->m_figure == figure)
                guard->m_figure = nullptr;
        }
    }

private:
    inline static Alive *inmost = nullptr;

    const Figure *m_figure;
    Alive *const m_outer;
};

} // namespace Velmora::Figura
