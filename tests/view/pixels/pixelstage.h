#pragma once

#include <figura/connection/ConnectionLayer.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>

#include <screenwatch.h>

namespace Velmora::Figura::Test {

/// A shown viewer, what stands on its screen, and what should stand there.
///
/// Three layers: "ground" with something to cover, "stage" for what is tested, "probe" on top.
class PixelStage
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

    void settle() { m_watch.settle(); }
    QString stalePixels() { return m_watch.stalePixels(); } ///< Of the screen: see ScreenWatch.

private:
    ScreenWatch m_watch{&viewer};
    double m_scale = 1.0;
};

} // namespace Velmora::Figura::Test
