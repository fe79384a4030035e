#pragma once

#include "commands/ChangeElements.h"

#include <QHash>

namespace Editor {

/// Gives nodes new rectangles: resizing, aligning, distributing.
class PlaceNodes : public ChangeElements
{
public:
    /// \a text says what it is, for the history.
    PlaceNodes(const QString &text, Document &document, const QHash<int, QRect> &rects,
               int series = noSeries);
};

} // namespace Editor
