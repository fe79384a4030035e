#pragma once

#include <figura/figure/Figure.h>

namespace Velmora::Figura {

/// Tells whether a figure is still there: as long as it lives, like a QPointer, and only within a
/// function.
///
/// The figure knows its guards itself. A QPointer would leave behind a block of memory with every
/// figure that was ever moved.
class FigureGuard
{
public:
    explicit FigureGuard(const Figure *figure)
        : m_figure(const_cast<Figure *>(figure))
    {
        if (m_figure)
            enter();
    }
    ~FigureGuard()
    {
        if (m_figure)
            leave();
    }
    Q_DISABLE_COPY_MOVE(FigureGuard)

    /// Null when it is gone.
    Figure *get() const { return m_figure; }
    Figure *operator->() const { return m_figure; }
    operator Figure *() const { return m_figure; }

    static void figureDestroyed(Figure *figure)
    {
        while (FigureGuard *guard = figure->m_guards) {
            guard->leave();
            guard->m_figure = nullptr;
        }
    }

private:
    void enter()
    {
        m_link = &m_figure->m_guards;
        m_next = *m_link;
        if (m_next)
            m_next->m_link = &m_next;
        *m_link = this;
    }
    void leave() const
    {
        *m_link = m_next;
        if (m_next)
            m_next->m_link = m_link;
    }

    Figure *m_figure;
    FigureGuard *m_next = nullptr;
    FigureGuard **m_link = nullptr; // what points here: the figure, or the guard made later
};

} // namespace Velmora::Figura
