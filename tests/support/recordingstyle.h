#pragma once

#include <QColor>
#include <QList>
#include <QRect>
#include <QString>
#include <QStyle>

class QStyleOption;

namespace Velmora::Figura::Test {

/// Takes the place of the application's style while it lives, and remembers which focus rectangles
/// and rubber bands are asked for. It draws each as the bare rectangle of its option with the
/// painter's own pen, so that a recording device shows when it came.
class RecordingStyle
{
public:
    struct Call
    {
        QRect rect;
        QStyle::State state;
        int fontHeight = 0; ///< Of the option, to recognise from which one it was copied.
        bool hasWidget = false;

        QColor backgroundColor;   ///< Of a focus rectangle.
        bool isRectangle = false; ///< Of a rubber band.
        bool isOpaque = true;     ///< Of a rubber band.
    };

    RecordingStyle();
    ~RecordingStyle();
    Q_DISABLE_COPY_MOVE(RecordingStyle)

    QList<Call> focusRects;
    QList<Call> rubberBands;

private:
    class Style;

    QString m_formerName;
};

} // namespace Velmora::Figura::Test
