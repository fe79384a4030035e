#pragma once

#include "model/Content.h"

#include <QUndoCommand>

namespace Editor {

class Document;

/// Removes nodes and edges; what is in a lane goes with it, and edges go with their nodes.
class DeleteElements : public QUndoCommand
{
public:
    /// \a ids are those of nodes and edges alike.
    DeleteElements(Document &document, const QList<int> &ids,
                   const QString &text = QString()); ///< Without a text it is a deletion.

    void undo() override;
    void redo() override;

private:
    template<class Item>
    struct Place
    {
        qsizetype index;
        Item item;
    };

    Document &m_document;
    QList<Place<Node>> m_nodes; // in ascending order
    QList<Place<Edge>> m_edges;
};

} // namespace Editor
