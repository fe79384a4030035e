#pragma once

#include "arrange/Alignment.h"
#include "commands/ReorderNodes.h"
#include "model/Content.h"

class QMimeData;

namespace Editor {

class Workbench;

/// What menus and keys do to the selection. Nothing happens when there is nothing to do it to.
namespace Operations {

void removeSelected(Workbench &bench);
void nudge(Workbench &bench, const QPoint &offset, int series);
void reorder(Workbench &bench, ReorderNodes::Step step);
void align(Workbench &bench, Side side);
void distribute(Workbench &bench, Qt::Orientation orientation);
void setRouting(Workbench &bench, Routing routing); ///< Of new edges, too.
void walk(Workbench &bench, int step);              ///< Selects the next or the previous figure.

/// A new node on top, which is then selected; in a lane, when its middle is in one. Returns its id.
int create(Workbench &bench, Node node);

// Clipboard.

QMimeData *copied(Workbench &bench); ///< Also as a picture; null when no node is selected.
void copy(Workbench &bench);
void cut(Workbench &bench);
void paste(Workbench &bench, const QMimeData *data); ///< Pictures and texts become nodes.
void duplicate(Workbench &bench);

/// Whether \a data has anything that paste() takes.
bool canPaste(const QMimeData *data);

/// A node for the image file \a bytes, around \a centre; a large picture is shown smaller.
Node pictureNode(const QByteArray &bytes, const QPoint &centre);

} // namespace Operations

} // namespace Editor
