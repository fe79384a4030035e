#pragma once

#include "model/Content.h"

#include <QRandomGenerator>

class QUndoCommand;

namespace Editor {

class Document;

/// What the tests of the diagram editor share.
namespace EditorFixtures {

Node node(int id, const QRect &rect, NodeKind kind = NodeKind::Rectangle);
Edge edge(int id, int source, int target);

/// A PNG file of that size in one colour.
QByteArray picture(const QSize &size, const QColor &color);

/// Two boxes and an ellipse with two connections, the second through bends; ids 1 to 5.
Content smallContent();

/// Anything that a document may hold.
Content randomContent(QRandomGenerator &random, int nodes, int edges);

/// Any command that \a document can take; never null while it has nodes.
QUndoCommand *randomCommand(QRandomGenerator &random, Document &document);

/// Some command of the kind named \a which, from 0 to commandKinds - 1.
QUndoCommand *someCommand(int which, QRandomGenerator &random, Document &document);
constexpr int commandKinds = 16;

} // namespace EditorFixtures

} // namespace Editor
