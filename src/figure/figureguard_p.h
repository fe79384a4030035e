#pragma once

#include <figura/export.h>

#include <QtGlobal>

#include <utility>

namespace Velmora::Figura {

class Figure;

/// Tells whether a figure still lives, for the length of one call.
///
/// What a QPointer would tell, without the block of memory that this would leave behind with every
/// figure that was ever moved. The guards lie on the stack, so those of the calls under way form a
/// chain, which a figure that is destroyed walks.
class FigureGuard
{
public:
    explicit FigureGuard(const Figure *figure)
        : m_figure(const_cast<Figure *>(figure))
        , m_outer(std::exchange(inmost, this))
    {
    }
    ~FigureGuard() { inmost = m_outer; }
    Q_DISABLE_COPY_MOVE(FigureGuard)

    /// Null when it is gone.
    Figure *get() const { return m_figure; }
    Figure *operator->() const { return m_figure; }
    operator Figure *() const { return m_figure; }

    static void figureDestroyed(const Figure *figure)
    {
        for (FigureGuard *guard = inmost; guard; guard = guard->m_outer) {
            if (guard->m_figure == figure)
                guard->m_figure = nullptr;
        }
    }

private:
    // Exported, for there must be one only, also for who has this header compiled outside the
    // library.
    FIGURA_EXPORT inline static FigureGuard *inmost = nullptr;

    Figure *m_figure;
    FigureGuard *const m_outer;
};

} // namespace Velmora::Figura
