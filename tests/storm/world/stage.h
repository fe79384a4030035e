#pragma once

#include <figura/view/FreeformViewer.h>

#include <QImage>
#include <QPointer>
#include <QRegion>

namespace Velmora::Figura {
class FreeformWidget;
}

namespace Velmora::Figura::Storm {

/// The shown viewer: what its window shows, and what it ought to show.
class Stage : public QObject
{
public:
    Stage();
    ~Stage() override;

    void open();  ///< Shows a new viewer, and destroys the present one.
    void close(); ///< Destroys the viewer.

    FreeformViewer *viewer() const { return m_viewer; }
    FreeformWidget *widget() const;

    void settle(); ///< Handles what is pending, painting included, until all is quiet.
    void askForFullRepaint();

    /// Those that are to come and those that follow from them, without painting what comes of them.
    void takeSecondTurns();

    bool isPainting() const;
    bool isSecondTurn() const { return m_secondTurn && !isPainting(); }
    bool isHandlingEvents() const { return m_settling || m_resizing; }

    QImage screen() const; ///< What the window shows, without asking it to paint.
    QImage full();         ///< The same painted anew.

    /// The pixels of the screen whose difference cannot be Qt's own: the present state, painted
    /// under the clip of a former paint event, does not give the colour that the screen shows.
    QList<QPoint> withoutExcuse(const QList<QPoint> &pixels, const QImage &screen);
    void forgetPaints(); ///< The screen is known to be right: as if painted at once.

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Paint
    {
        QRegion region; // in the coordinates of the widget
        QPoint corner;  // of the widget in the window
        QSize windowSize;
    };

    Paint paintOf(const QRegion &region) const;
    QImage paintedUnder(const Paint &paint) const;

    QPointer<FreeformViewer> m_viewer;
    QList<Paint> m_paints; // regions of the widget, the latest last
    bool m_settling = false;
    bool m_resizing = false;
    bool m_secondTurn = false; // the widget has those validated that a pass has dropped
    bool m_tookTurn = false;   // since somebody asked last
    bool m_recording = true;   // what is painted to judge the screen does not count
};

} // namespace Velmora::Figura::Storm
