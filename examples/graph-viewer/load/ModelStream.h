#pragma once

#include "GraphModel.h"

class QDataStream;

namespace GraphViewer {

// How a layout travels from the process that made it to the one that shows it.

QDataStream &operator<<(QDataStream &out, const LoadReply &reply);
QDataStream &operator>>(QDataStream &in, LoadReply &reply);

} // namespace GraphViewer
