#pragma once

#include <QBrush>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QRectF>
#include <QRegion>
#include <QString>
#include <QTransform>

#include <functional>
#include <memory>

namespace Velmora::Figura::Test {

class RecordingEngine;

/// One drawing operation, as the painter handed it over, with the painter's state at that moment.
struct PaintCall
{
    enum Kind { Lines, Rects, Path, Ellipse, Points, Polygon, Text, Pixmap, Image };

    Kind kind = Lines;
    bool isInteger = false; ///< Integer coordinates; those of text and pictures never are.

    QList<QLineF> lines;   ///< Lines.
    QList<QRectF> rects;   ///< Rects; the one target of an ellipse, pixmap or image.
    QList<QPointF> points; ///< Points and polygons; the origin of a text.
    QPainterPath path;     ///< Path.
    QString text;          ///< Text.
    QPixmap pixmap;        ///< Pixmap.
    QImage image;          ///< Image.
    QRectF source;         ///< The part of the pixmap or image.
    bool isTiled = false;  ///< The pixmap fills its target by repetition.

    /// Polygons: how it is filled, or that it is an open line.
    QPaintEngine::PolygonDrawMode polygonMode = QPaintEngine::OddEvenMode;

    QPen pen;
    QBrush brush;
    QFont font;
    QTransform transform;
    double opacity = 1.0;
    QPainter::RenderHints hints;
    bool isClipped = false;
    QRegion clipRegion;    ///< In logical coordinates, as the path.
    QPainterPath clipPath; ///< For clips that are no region, and for fractions.
};

/// A paint device that shows nothing and remembers what it was asked to draw.
///
/// It claims every feature of painting, so that no operation is turned into another one.
class RecordingDevice : public QPaintDevice
{
public:
    explicit RecordingDevice(const QSize &size = QSize(1000, 1000), int dpi = 96);
    ~RecordingDevice() override;

    const QList<PaintCall> &calls() const;
    void clear();

    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSize m_size;
    int m_dpi;
    std::unique_ptr<RecordingEngine> m_engine;
};

/// What \a paint draws with a fresh painter on a device of 1000 x 1000 pixels.
QList<PaintCall> record(const std::function<void(QPainter *)> &paint);

QList<PaintCall> callsOfKind(const QList<PaintCall> &calls, PaintCall::Kind kind);
QList<QLineF> linesOf(const QList<PaintCall> &calls); ///< Of all calls, in order.
QList<QRectF> rectsOf(const QList<PaintCall> &calls); ///< Of the calls of kind Rects, in order.

} // namespace Velmora::Figura::Test
