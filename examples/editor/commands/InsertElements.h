#pragma once

#include "model/Content.h"

#include <QUndoCommand>

namespace Editor {

class Document;

/// Adds nodes and edges on top: the base of creating, pasting and duplicating.
class InsertElements : public QUndoCommand
{
public:
    /// The ids in \a content have to be new ones of the document.
    InsertElements(const QString &text, Document &document, const Content &content);

    void undo() override;
    void redo() override;

private:
    Document &m_document;
    Content m_content;
};

} // namespace Editor
