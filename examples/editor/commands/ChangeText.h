#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Changes the text of a node or the label of an edge.
class ChangeText : public ChangeElements
{
public:
    ChangeText(Document &document, int id, const QString &text, int series = noSeries);
};

} // namespace Editor
