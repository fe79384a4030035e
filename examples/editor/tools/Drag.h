#pragma once

#include "commands/ChangeElements.h"
#include "tools/Tool.h"

namespace Editor {

/// One drag, from its beginning to its end. Whatever it changes in the document is one step.
class Drag
{
public:
    Drag(Workbench &bench, const Pointer &start);
    virtual ~Drag();

    Drag(const Drag &other) = delete;
    Drag &operator=(const Drag &other) = delete;

    virtual void moveTo(const Pointer &pointer) = 0;
    virtual void finish(const Pointer &pointer); ///< The button was released.
    virtual void cancel();                       ///< The document is as before.

protected:
    Workbench &bench() const { return m_bench; }
    QPoint start() const { return m_start; }
    int series() const { return m_series; }

private:
    Workbench &m_bench;
    QPoint m_start;
    int m_series = ChangeElements::newSeries();
    int m_firstStep;
};

} // namespace Editor
