#include "tools/Drag.h"

#include "edit/Workbench.h"
#include "feedback/Feedback.h"

namespace Editor {

Drag::Drag(Workbench &bench, const Pointer &start)
    : m_bench(bench)
    , m_start(start.at)
    , m_firstStep(bench.history().index())
{
    m_bench.beginDrag();
}

Drag::~Drag()
{
    m_bench.feedback().clear();
    m_bench.endDrag();
}

void Drag::finish(const Pointer & /*pointer*/) {}

// An obsolete step leaves the history, so that there is nothing to redo; but that does not undo it.
void Drag::cancel()
{
    QUndoStack &history = m_bench.history();
    while (history.index() > m_firstStep) {
        auto *step = const_cast<QUndoCommand *>(history.command(history.index() - 1));
        step->undo();
        step->setObsolete(true);
        history.undo();
    }
}

} // namespace Editor
