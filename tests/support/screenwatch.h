#pragma once

#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>

#include <QImage>
#include <QList>
#include <QRegion>

namespace Velmora::Figura::Test {

/// Judges what a shown viewer has on its screen by a full repaint of the present state.
class ScreenWatch : public QObject
{
public:
    /// Watches \a viewer, which stays the caller's and must live as long. Paint events from now on
    /// are remembered.
    explicit ScreenWatch(FreeformViewer *viewer);

    /// Paints what was asked for, and nothing else, until all is quiet.
    void settle();

    QImage screen() const; ///< What stands on the screen, without asking for a paint.
    QImage full();         ///< The same painted anew.

    /// Settles; then tells how the screen differs from a full repaint. Empty when it does not.
    QString stalePixels();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Paint
    {
        QRegion region; // in the coordinates of the widget
        QPoint corner;  // of the widget in the window
    };

    FreeformWidget *widget() const { return qobject_cast<FreeformWidget *>(m_viewer->widget()); }
    QPoint corner() const { return widget()->mapTo(m_viewer, QPoint()); }
    QImage paintedUnder(const Paint &paint);
    QList<QPoint> withoutExcuse(const QList<QPoint> &pixels, const QImage &screen);

    FreeformViewer *m_viewer;
    bool m_isRecording = true;
    QList<Paint> m_paints; // since the last one that left nothing out
};

} // namespace Velmora::Figura::Test
