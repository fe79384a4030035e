#include "scenes.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QPixmap>

#include <utility>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

/// Remembers what of a widget was painted.
class PaintWatcher : public QObject
{
public:
    QRegion take() { return std::exchange(m_painted, QRegion()); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_painted += static_cast<QPaintEvent *>(event)->region();
        return QObject::eventFilter(watched, event);
    }

private:
    QRegion m_painted;
};

// A window that is new on the screen is painted more than once.
void letQtPaint()
{
    for (int round = 0; round < 10; ++round)
        QApplication::processEvents();
}

QImage marked(QImage picture, const QRegion &region)
{
    QPainter painter(&picture);
    painter.setClipRegion(region);
    painter.fillRect(picture.rect(), QColor(255, 0, 0, 70));
    return picture;
}

} // namespace

QImage damage()
{
    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));
    for (int i = 0; i < 12; ++i)
        addShape<Ellipse>(layer, blue, QRect(20 + 60 * (i % 6), 20 + 70 * (i / 6), 50, 50));
    auto *traveller = addShape<Rectangle>(layer, sand, QRect(60, 60, 60, 40));
    rebuildPaths(&pane);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.setXYMargins(5, 5);
    viewer.resize(440, 220);
    viewer.show();
    letQtPaint();

    PaintWatcher watcher;
    viewer.widget()->installEventFilter(&watcher);
    traveller->setBounds(QRect(220, 80, 60, 40)); // asks for a repaint of both places
    letQtPaint();                                 // and both are painted at once
    const QRegion painted = watcher.take();
    return marked(viewer.grab().toImage(), painted);
}

} // namespace GuideSamples
