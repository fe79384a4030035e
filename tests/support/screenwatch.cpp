#include "screenwatch.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QScopedValueRollback>

#include <cstring>

namespace Velmora::Figura::Test {
namespace {

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

ScreenWatch::ScreenWatch(FreeformViewer *viewer)
    : m_viewer(viewer)
{
    widget()->installEventFilter(this);
}

void ScreenWatch::settle()
{
    for (int turn = 0; turn < settlingTurns; ++turn) {
        QCoreApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(m_viewer, &update);
    }
}

QString ScreenWatch::stalePixels()
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
QImage ScreenWatch::screen() const
{
    const QPaintDevice *device = m_viewer->backingStore()->paintDevice();
    const bool isImage = device->devType() == QInternal::Image;
    return isImage ? comparable(*static_cast<const QImage *>(device)) : QImage();
}

QImage ScreenWatch::full()
{
    const QScopedValueRollback<bool> recording(m_isRecording, false);
    return comparable(m_viewer->grab().toImage());
}

// All of the window is painted, but only the clip lets anything through: figures that do not know
// how far they reach find no excuse here.
QImage ScreenWatch::paintedUnder(const Paint &paint)
{
    const QScopedValueRollback<bool> recording(m_isRecording, false);
    const double ratio = m_viewer->devicePixelRatioF();
    QImage image(m_viewer->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setClipRegion(paint.region.translated(paint.corner));
    painter.translate(paint.corner - corner());
    m_viewer->render(&painter);
    painter.end();
    return comparable(image);
}

// Qt may round a slanted edge differently under another clip. The last paint of a pixel counts.
QList<QPoint> ScreenWatch::withoutExcuse(const QList<QPoint> &pixels, const QImage &screen)
{
    const double ratio = m_viewer->devicePixelRatioF();
    QList<QPoint> left = pixels;
    QList<QPoint> stale;
    for (auto paint = m_paints.crbegin(); paint != m_paints.crend() && !left.isEmpty(); ++paint) {
        const QRegion painted =
            QTransform::fromScale(ratio, ratio).map(paint->region.translated(corner()));
        QList<QPoint> mine;
        left.removeIf([&](const QPoint &pixel) {
            if (painted.contains(pixel))
                mine.append(pixel);
            return painted.contains(pixel);
        });
        if (mine.isEmpty())
            continue;
        const QImage image = paintedUnder(*paint);
        const QPoint shift = (QPointF(paint->corner - corner()) * ratio).toPoint();
        mine.removeIf([&](const QPoint &pixel) {
            const QPoint then = pixel + shift;
            return image.rect().contains(then) && image.pixel(then) == screen.pixel(pixel);
        });
        stale += mine;
    }
    return stale + left;
}

bool ScreenWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || watched != widget() || !m_isRecording)
        return false;
    const QRegion region = static_cast<QPaintEvent *>(event)->region();
    if (widget()->visibleRegion().subtracted(region).isEmpty())
        m_paints.clear();
    m_paints.append({region, corner()});
    return false;
}

} // namespace Velmora::Figura::Test
