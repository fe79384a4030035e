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

    bool isPainting() const;
    bool isHandlingEvents() const { return m_settling; }

    QImage screen() const; ///< What the window shows, without asking it to paint.
    QImage full() const;   ///< The same painted anew.

    /// Whether Qt alone can have made the difference at a pixel: the present state, painted under
    /// the clip of a former paint event, gives the pixel that the screen shows.
    bool isExcused(const QPoint &pixel, QRgb color) const;
    void forgetPaints(); ///< The screen is known to be right.

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<FreeformViewer> m_viewer;
    QList<QRegion> m_paints; // regions of the widget, the latest last
    bool m_settling = false;
};

} // namespace Velmora::Figura::Storm
