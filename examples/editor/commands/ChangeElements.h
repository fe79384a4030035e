#pragma once

#include "commands/Revision.h"

#include <QUndoCommand>

namespace Editor {

/// The base of the commands that change what is there already.
///
/// Commands of one series (a drag, a row of key presses) merge into one step. When it ends where it
/// began, nothing of it remains.
class ChangeElements : public QUndoCommand
{
public:
    static int newSeries();             ///< For the next drag.
    static constexpr int noSeries = -1; ///< A step of its own.

    void undo() override;
    void redo() override;
    int id() const override { return m_series; }
    bool mergeWith(const QUndoCommand *other) override;

    bool isEmpty() const { return m_before == m_after; } ///< Not worth a step.

protected:
    /// Everything in \a after has to be in the document.
    ChangeElements(const QString &text, Document &document, const Revision &after,
                   int series = noSeries);

private:
    Document &m_document;
    Revision m_before;
    Revision m_after;
    int m_series;
};

} // namespace Editor
