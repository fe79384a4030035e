#include "pixelstage.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Velmora::Figura::Test {
namespace {

constexpr QSize windowSize(220, 160);
constexpr int settlingTurns = 4;

QImage comparable(const QImage &image)
{
    return image.convertToFormat(QImage::Format_RGB32);
}

QList<QPoint> differences(const QImage &a, const QImage &b)
{
    QList<QPoint> points;
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), size_t(a.width()) * 4) == 0)
            continue;
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                points.append(QPoint(x, y));
        }
    }
    return points;
}

QString describe(const QList<QPoint> &points)
{
    QRect area;
    for (const QPoint &point : points)
        area |= QRect(point, QSize(1, 1));
    return QStringLiteral("%1 stale pixels in (%2, %3) %4 x %5")
        .arg(points.size())
        .arg(area.x())
        .arg(area.y())
        .arg(area.width())
        .arg(area.height());
}

} // namespace

PixelStage::PixelStage()
{
    viewer.setFrameShape(QFrame::NoFrame);
    viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.resize(windowSize);
    widget()->setProperty("backgroundColor", QColor(250, 250, 240));
    pane.addLayer(&ground, QStringLiteral("ground"));
    pane.addLayer(&stage, QStringLiteral("stage"));
    pane.addLayer(&top, QStringLiteral("probe"));
}

bool PixelStage::show(double scale, const QPoint &topLeft)
{
    m_scale = scale;
    auto *cover = new Figure(&ground, QColor(200, 220, 255));
    ground.add(cover, units(-200, -150, 700, 500));
    auto *stripe = new Figure(&ground, QColor(255, 235, 200));
    ground.add(stripe, units(15, 30, 50, 90));

    viewer.setContent(&pane);
    viewer.show();
    const bool isExposed = QTest::qWaitForWindowExposed(&viewer);
    QPoint corner = topLeft;
    viewer.setScale(scale, &corner);
    settle();
    widget()->installEventFilter(this);
    return isExposed;
}

int PixelStage::units(int pixels) const
{
    return std::max(1, int(std::lround(pixels / m_scale)));
}

QRect PixelStage::units(int x, int y, int width, int height) const
{
    return {int(std::lround(x / m_scale)), int(std::lround(y / m_scale)), units(width),
            units(height)};
}

void PixelStage::settle()
{
    for (int turn = 0; turn < settlingTurns; ++turn) {
        QCoreApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&viewer, &update);
    }
}

QString PixelStage::stalePixels()
{
    settle();
    const QImage wanted = full();
    const QImage present = screen();
    if (present.size() != wanted.size())
        return QStringLiteral("the window has another size");

    const QList<QPoint> stale = withoutExcuse(differences(present, wanted), present);
    return stale.isEmpty() ? QString() : describe(stale);
}

// Not a grab of the window: offscreen, that cuts off what lies beyond the size in units.
QImage PixelStage::screen() const
{
    const QPaintDevice *device = viewer.backingStore()->paintDevice();
    const bool isImage = device->devType() == QInternal::Image;
    return isImage ? comparable(*static_cast<const QImage *>(device)) : QImage();
}

QImage PixelStage::full()
{
    const QScopedValueRollback<bool> recording(m_isRecording, false);
    return comparable(viewer.grab().toImage());
}

// All of the window is painted, but only the clip lets anything through: figures that do not know
// how far they reach find no excuse here.
QImage PixelStage::paintedUnder(const QRegion &clip)
{
    const QScopedValueRollback<bool> recording(m_isRecording, false);
    const double ratio = viewer.devicePixelRatioF();
    QImage image(viewer.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setClipRegion(clip);
    viewer.render(&painter);
    painter.end();
    return comparable(image);
}

// Qt may round a slanted edge differently under another clip. The last paint of a pixel counts.
QList<QPoint> PixelStage::withoutExcuse(const QList<QPoint> &pixels, const QImage &screen)
{
    const double ratio = viewer.devicePixelRatioF();
    QList<QPoint> left = pixels;
    QList<QPoint> stale;
    for (auto paint = m_paints.crbegin(); paint != m_paints.crend() && !left.isEmpty(); ++paint) {
        const QRegion painted = QTransform::fromScale(ratio, ratio).map(*paint);
        QList<QPoint> mine;
        left.removeIf([&](const QPoint &p) {
            if (painted.contains(p))
                mine.append(p);
            return painted.contains(p);
        });
        if (mine.isEmpty())
            continue;
        const QImage image = paintedUnder(*paint);
        mine.removeIf([&](const QPoint &p) { return image.pixel(p) == screen.pixel(p); });
        stale += mine;
    }
    return stale + left;
}

// Kept in the window's coordinates; scrolling and resizing repaint all of it anyhow.
bool PixelStage::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() != QEvent::Paint || !m_isRecording)
        return false;
    const QRegion region = static_cast<QPaintEvent *>(event)->region();
    const QRegion inWindow = region.translated(widget()->mapTo(&viewer, QPoint()));
    if (QRegion(viewer.rect()).subtracted(inWindow).isEmpty())
        m_paints.clear();
    m_paints.append(inWindow);
    return false;
}

} // namespace Velmora::Figura::Test
