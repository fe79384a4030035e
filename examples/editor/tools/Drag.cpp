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

// An obsolete step leaves the history when it is undone, so that there is nothing to redo.
void Drag::cancel()
{
    QUndoStack &history = m_bench.history();
    while (history.index() > m_firstStep) {
        const_cast<QUndoCommand *>(history.command(history.index() - 1))->setObsolete(true);
        history.undo();
    }
}

} // namespace Editor
