#pragma once

#include <figura/connection/ConnectionLayer.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>

#include <QImage>
#include <QList>
#include <QRegion>

namespace Velmora::Figura::Test {

/// A shown viewer, what stands on its screen, and what should stand there.
///
/// Three layers: "ground" with something to cover, "stage" for what is tested, "probe" on top.
class PixelStage : public QObject
{
public:
    PixelStage();

    FreeformLayeredPane pane;
    FreeformLayer ground;
    ConnectionLayer stage;
    FreeformLayer top;
    FreeformViewer viewer;

    FreeformWidget *widget() const { return qobject_cast<FreeformWidget *>(viewer.widget()); }
    bool show(double scale, const QPoint &topLeft);

    /// So many figure units that they cover \a pixels, but at least one.
    int units(int pixels) const;
    QRect units(int x, int y, int width, int height) const;

    /// Paints what was asked for, and nothing else, until all is quiet.
    void settle();
    /// Settles; then tells how the screen differs from a full repaint. Empty when it does not.
    QString stalePixels();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QImage screen() const;
    QImage full();
    QImage paintedUnder(const QRegion &clip);
    QList<QPoint> withoutExcuse(const QList<QPoint> &pixels, const QImage &screen);

    double m_scale = 1.0;
    bool m_isRecording = true;
    QList<QRegion> m_paints; // since the last one that left nothing out
};

} // namespace Velmora::Figura::Test
