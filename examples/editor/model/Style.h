#pragma once

#include <QColor>
#include <QString>

namespace Editor {

/// How a node or an edge is drawn.
struct Style
{
    // Invalid colours are those of the palette: light or dark, as the window is.
    QColor line;
    QColor fill; ///< Of edges, nothing.
    QColor text;
    int lineWidth = 1; ///< In content units, 1 to largestLineWidth.
    Qt::PenStyle lineStyle = Qt::SolidLine;
    QString fontFamily; ///< Empty: the application's.
    int fontSize = 10;  ///< In points, smallestFont to largestFont.
    bool bold = false;
    bool italic = false;

    static constexpr int largestLineWidth = 20;
    static constexpr int smallestFont = 4;
    static constexpr int largestFont = 200;

    bool operator==(const Style &other) const = default;
};

} // namespace Editor
