#include <recordingdevice.h>

namespace Velmora::Figura::Test {

class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine()
        : QPaintEngine(AllFeatures)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    // The painter itself is asked for its state whenever something is drawn.
    void updateState(const QPaintEngineState &) override {}

    void drawLines(const QLine *lines, int count) override;
    void drawLines(const QLineF *lines, int count) override;
    void drawRects(const QRect *rects, int count) override;
    void drawRects(const QRectF *rects, int count) override;
    void drawEllipse(const QRect &rect) override;
    void drawEllipse(const QRectF &rect) override;
    void drawPath(const QPainterPath &path) override;
    void drawPoints(const QPoint *points, int count) override;
    void drawPoints(const QPointF *points, int count) override;
    void drawPolygon(const QPoint *points, int count, PolygonDrawMode mode) override;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
    void drawTextItem(const QPointF &origin, const QTextItem &item) override;
    void drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source) override;
    void drawTiledPixmap(const QRectF &target, const QPixmap &pixmap,
                         const QPointF &offset) override;
    void drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                   Qt::ImageConversionFlags flags) override;

    QList<PaintCall> calls;

private:
    PaintCall &add(PaintCall::Kind kind, bool isInteger = false);
};

PaintCall &RecordingEngine::add(PaintCall::Kind kind, bool isInteger)
{
    Q_ASSERT(isActive());
    const QPainter *from = painter();

    PaintCall call;
    call.kind = kind;
    call.isInteger = isInteger;
    call.pen = from->pen();
    call.brush = from->brush();
    call.font = from->font();
    call.transform = from->transform();
    call.opacity = from->opacity();
    call.hints = from->renderHints();
    call.isClipped = from->hasClipping();
    if (call.isClipped) {
        call.clipRegion = from->clipRegion();
        call.clipPath = from->clipPath();
    }
    calls.append(call);
    return calls.last();
}

void RecordingEngine::drawLines(const QLine *lines, int count)
{
    PaintCall &call = add(PaintCall::Lines, true);
    for (int i = 0; i < count; ++i)
        call.lines.append(QLineF(lines[i]));
}

void RecordingEngine::drawLines(const QLineF *lines, int count)
{
    add(PaintCall::Lines).lines = QList<QLineF>(lines, lines + count);
}

void RecordingEngine::drawRects(const QRect *rects, int count)
{
    PaintCall &call = add(PaintCall::Rects, true);
    for (int i = 0; i < count; ++i)
        call.rects.append(QRectF(rects[i]));
}

void RecordingEngine::drawRects(const QRectF *rects, int count)
{
    add(PaintCall::Rects).rects = QList<QRectF>(rects, rects + count);
}

void RecordingEngine::drawEllipse(const QRect &rect)
{
    add(PaintCall::Ellipse, true).rects = {QRectF(rect)};
}

void RecordingEngine::drawEllipse(const QRectF &rect)
{
    add(PaintCall::Ellipse).rects = {rect};
}

void RecordingEngine::drawPath(const QPainterPath &path)
{
    add(PaintCall::Path).path = path;
}

void RecordingEngine::drawPoints(const QPoint *points, int count)
{
    PaintCall &call = add(PaintCall::Points, true);
    for (int i = 0; i < count; ++i)
        call.points.append(QPointF(points[i]));
}

void RecordingEngine::drawPoints(const QPointF *points, int count)
{
    add(PaintCall::Points).points = QList<QPointF>(points, points + count);
}

void RecordingEngine::drawPolygon(const QPoint *points, int count, PolygonDrawMode mode)
{
    PaintCall &call = add(PaintCall::Polygon, true);
    call.polygonMode = mode;
    for (int i = 0; i < count; ++i)
        call.points.append(QPointF(points[i]));
}

void RecordingEngine::drawPolygon(const QPointF *points, int count, PolygonDrawMode mode)
{
    PaintCall &call = add(PaintCall::Polygon);
    call.polygonMode = mode;
    call.points = QList<QPointF>(points, points + count);
}

void RecordingEngine::drawTextItem(const QPointF &origin, const QTextItem &item)
{
    PaintCall &call = add(PaintCall::Text);
    call.points = {origin};
    call.text = item.text();
}

void RecordingEngine::drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source)
{
    PaintCall &call = add(PaintCall::Pixmap);
    call.rects = {target};
    call.pixmap = pixmap;
    call.source = source;
}

void RecordingEngine::drawTiledPixmap(const QRectF &target, const QPixmap &pixmap,
                                      const QPointF &offset)
{
    PaintCall &call = add(PaintCall::Pixmap);
    call.rects = {target};
    call.pixmap = pixmap;
    call.source = QRectF(offset, QSizeF(pixmap.size()));
    call.isTiled = true;
}

void RecordingEngine::drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                                Qt::ImageConversionFlags)
{
    PaintCall &call = add(PaintCall::Image);
    call.rects = {target};
    call.image = image;
    call.source = source;
}

RecordingDevice::RecordingDevice(const QSize &size, int dpi)
    : m_size(size)
    , m_dpi(dpi)
    , m_engine(std::make_unique<RecordingEngine>())
{
}

RecordingDevice::~RecordingDevice() = default;

const QList<PaintCall> &RecordingDevice::calls() const
{
    return m_engine->calls;
}

void RecordingDevice::clear()
{
    m_engine->calls.clear();
}

QPaintEngine *RecordingDevice::paintEngine() const
{
    return m_engine.get();
}

int RecordingDevice::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return qRound(m_size.width() * 25.4 / m_dpi);
    case PdmHeightMM:
        return qRound(m_size.height() * 25.4 / m_dpi);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return m_dpi;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(metric);
    }
}

QList<PaintCall> record(const std::function<void(QPainter *)> &paint)
{
    RecordingDevice device;
    QPainter painter(&device);
    paint(&painter);
    painter.end();
    return device.calls();
}

QList<PaintCall> callsOfKind(const QList<PaintCall> &calls, PaintCall::Kind kind)
{
    QList<PaintCall> result;
    for (const PaintCall &call : calls) {
        if (call.kind == kind)
            result.append(call);
    }
    return result;
}

QList<QLineF> linesOf(const QList<PaintCall> &calls)
{
    QList<QLineF> result;
    for (const PaintCall &call : calls)
        result += call.lines;
    return result;
}

QList<QRectF> rectsOf(const QList<PaintCall> &calls)
{
    QList<QRectF> result;
    for (const PaintCall &call : callsOfKind(calls, PaintCall::Rects))
        result += call.rects;
    return result;
}

} // namespace Velmora::Figura::Test
