#include "stage.h"

#include <figura/view/FreeformWidget.h>

#include <QApplication>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QScreen>

namespace Velmora::Figura::Storm {
namespace {

constexpr QSize windowSize(200, 150);
constexpr int settlingTurns = 4;
constexpr int mostSecondTurns = 100; // each figure has one, and no world has as many
constexpr qsizetype rememberedPaints = 60;

/// Tells when it is being resized, which may happen in many an operation.
class ShownViewer : public FreeformViewer
{
public:
    explicit ShownViewer(bool &resizing)
        : FreeformViewer(nullptr)
        , m_resizing(resizing)
    {
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        const QScopedValueRollback<bool> resizing(m_resizing, true);
        FreeformViewer::resizeEvent(event);
    }

private:
    bool &m_resizing;
};

QImage comparable(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

Stage::Stage() = default;

Stage::~Stage()
{
    close();
}

void Stage::open()
{
    close();
    m_viewer = new ShownViewer(m_resizing);
    m_viewer->setFrameShape(QFrame::NoFrame);
    m_viewer->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_viewer->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_viewer->resize(windowSize);
    m_viewer->widget()->setProperty("backgroundColor", QColor(250, 250, 240));
    m_viewer->widget()->installEventFilter(this);
    m_viewer->show();
}

void Stage::close()
{
    m_paints.clear();
    delete m_viewer;
}

FreeformWidget *Stage::widget() const
{
    return m_viewer ? qobject_cast<FreeformWidget *>(m_viewer->widget()) : nullptr;
}

// Only what was asked for is painted. One turn asks for what the next one does.
void Stage::settle()
{
    const QScopedValueRollback<bool> settling(m_settling, true);
    for (int turn = 0; turn < settlingTurns; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QEvent update(QEvent::UpdateRequest);
        if (m_viewer)
            QCoreApplication::sendEvent(m_viewer, &update);
    }
}

void Stage::askForFullRepaint()
{
    if (m_viewer)
        m_viewer->update();
}

// What is painted for ever never lets everybody have it. Who is dropped in the turn of others has
// one after that, which Qt leaves for the next call.
void Stage::takeSecondTurns()
{
    const QScopedValueRollback<bool> settling(m_settling, true);
    m_tookTurn = true;
    for (int turn = 0; m_tookTurn && turn < mostSecondTurns; ++turn) {
        m_tookTurn = false;
        if (widget())
            QCoreApplication::sendPostedEvents(widget(), QEvent::MetaCall);
    }
}

bool Stage::isPainting() const
{
    return widget() && widget()->testAttribute(Qt::WA_WState_InPaintEvent);
}

QImage Stage::screen() const
{
    return comparable(m_viewer->screen()->grabWindow(m_viewer->winId()));
}

QImage Stage::full()
{
    const QScopedValueRollback<bool> recording(m_recording, false);
    return comparable(m_viewer->grab());
}

// On something as large as the window was, and as far into it: its edges clip, too.
QImage Stage::paintedUnder(const Paint &paint) const
{
    const double ratio = m_viewer->devicePixelRatioF();
    QImage image(paint.windowSize * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget()->render(&image, paint.corner + paint.region.boundingRect().topLeft(), paint.region);
    return image;
}

// Qt rounds a slanted edge differently under another clip.
QList<QPoint> Stage::withoutExcuse(const QList<QPoint> &pixels, const QImage &screen)
{
    const QScopedValueRollback<bool> recording(m_recording, false);
    const double ratio = m_viewer->devicePixelRatioF();
    const QPoint corner = widget()->mapTo(m_viewer, QPoint());
    QList<QPoint> left = pixels;
    for (const Paint &paint : std::as_const(m_paints)) {
        if (left.isEmpty())
            break;
        const QImage image = paintedUnder(paint);
        const QPoint shift = (QPointF(paint.corner - corner) * ratio).toPoint();
        left.removeIf([&](const QPoint &pixel) {
            const QPoint then = pixel + shift;
            return paint.region.contains((QPointF(pixel) / ratio).toPoint() - corner) &&
                   image.rect().contains(then) && image.pixel(then) == screen.pixel(pixel);
        });
    }
    return left;
}

Stage::Paint Stage::paintOf(const QRegion &region) const
{
    return {region, widget()->mapTo(m_viewer, QPoint()), m_viewer->size()};
}

void Stage::forgetPaints()
{
    m_paints = {paintOf(widget()->visibleRegion())};
}

bool Stage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched == widget() && m_recording) {
        m_paints.append(paintOf(static_cast<QPaintEvent *>(event)->region()));
        if (m_paints.size() > rememberedPaints)
            m_paints.removeFirst();
    }
    // The only call that the widget ever puts off.
    if (event->type() == QEvent::MetaCall && watched == widget()) {
        const QScopedValueRollback<bool> secondTurn(m_secondTurn, true);
        m_tookTurn = true;
        return watched->event(event);
    }
    return false;
}

} // namespace Velmora::Figura::Storm
