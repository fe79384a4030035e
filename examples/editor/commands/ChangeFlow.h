#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Turns lanes: their nodes are laid out below or beside each other.
class ChangeFlow : public ChangeElements
{
public:
    ChangeFlow(Document &document, const QList<int> &lanes, Qt::Orientation flow);
};

} // namespace Editor
