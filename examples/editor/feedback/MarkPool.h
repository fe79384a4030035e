#pragma once

#include "feedback/MarkFigure.h"

#include <QList>

namespace Velmora::Figura {
class FreeformLayer;
}

namespace Editor {

struct Theme;

/// Shows a list of marks, with the figures of the former list as far as they fit.
class MarkPool
{
public:
    explicit MarkPool(Velmora::Figura::FreeformLayer *layer); ///< Not owned; has to outlive this.
    ~MarkPool();

    void show(const QList<Mark> &marks, const Theme &theme);
    const QList<Mark> &marks() const { return m_marks; }
    void reset(); ///< Forgets the figures, whose colours are no longer right.

private:
    void place(MarkFigure *figure, const Mark &mark);
    MarkFigure *create(const Mark &mark, const Theme &theme);
    void dropFrom(qsizetype first);

    Velmora::Figura::FreeformLayer *m_layer;
    QList<Mark> m_marks;
    QList<MarkFigure *> m_figures;
};

} // namespace Editor
