#pragma once

#include "model/Edge.h"
#include "model/Node.h"

#include <optional>

namespace Editor {

/// The words for enumerators in files and in tests.
namespace Names {

QString of(NodeKind kind);
QString of(Routing routing);
QString of(Arrow arrow);
QString of(Qt::PenStyle style);
QString of(Qt::Orientation orientation);

/// Nothing for a word that stands for no enumerator.
template<class Enum>
std::optional<Enum> find(const QString &name);

template<class Enum>
QList<Enum> all(); ///< In the order in which they are offered.

} // namespace Names

} // namespace Editor
