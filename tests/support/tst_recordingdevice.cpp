#include <recordingdevice.h>

#include <QTest>

using namespace Velmora::Figura::Test;

class tst_RecordingDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void linesKeepWhetherTheyAreInteger();
    void filledRectangleArrivesAsARectangleWithItsBrush();
    void stateIsTheOneInForceAtTheCall();
    void clipIsRecordedInLogicalCoordinates();
    void rotatedDrawingIsNotTurnedIntoAPath();
    void textPixmapAndImageKeepWhatIsDrawn();
    void clearForgetsTheCalls();
};

void tst_RecordingDevice::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_RecordingDevice::linesKeepWhetherTheyAreInteger()
{
    const auto calls = record([](QPainter *painter) {
        painter->drawLine(1, 2, 3, 4);
        painter->drawLine(QLineF(1.5, 2, 3, 4));
    });

    QCOMPARE(calls.size(), 2);
    QVERIFY(calls[0].isInteger);
    QVERIFY(!calls[1].isInteger);
    QCOMPARE(linesOf(calls), QList<QLineF>({{1, 2, 3, 4}, {1.5, 2, 3, 4}}));
}

void tst_RecordingDevice::filledRectangleArrivesAsARectangleWithItsBrush()
{
    const auto calls =
        record([](QPainter *painter) { painter->fillRect(QRect(5, 6, 7, 8), Qt::red); });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].kind, PaintCall::Rects);
    QCOMPARE(rectsOf(calls), QList<QRectF>({{5, 6, 7, 8}}));
    QCOMPARE(calls[0].brush.color(), QColor(Qt::red));
    QCOMPARE(calls[0].pen.style(), Qt::NoPen);
}

void tst_RecordingDevice::stateIsTheOneInForceAtTheCall()
{
    const auto calls = record([](QPainter *painter) {
        painter->save();
        painter->setPen(QPen(Qt::blue, 3));
        painter->setOpacity(0.5);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(10, 20);
        painter->drawEllipse(0, 0, 4, 4);
        painter->restore();
        painter->drawPoint(1, 1);
    });

    QCOMPARE(calls[0].pen, QPen(Qt::blue, 3));
    QCOMPARE(calls[0].opacity, 0.5);
    QVERIFY(calls[0].hints.testFlag(QPainter::Antialiasing));
    QCOMPARE(calls[0].transform, QTransform::fromTranslate(10, 20));
    QCOMPARE(calls[1].pen, QPen(Qt::black));
    QCOMPARE(calls[1].transform, QTransform());
}

void tst_RecordingDevice::clipIsRecordedInLogicalCoordinates()
{
    const auto calls = record([](QPainter *painter) {
        painter->drawPoint(0, 0);
        painter->setClipRect(QRect(10, 10, 20, 20));
        painter->setClipRect(QRect(20, 0, 50, 50), Qt::IntersectClip);
        painter->translate(5, 0);
        painter->drawPoint(0, 0);
    });

    QVERIFY(!calls[0].isClipped);
    QVERIFY(calls[1].isClipped);
    QCOMPARE(calls[1].clipRegion, QRegion(15, 10, 10, 20));
    QCOMPARE(calls[1].clipPath.boundingRect(), QRectF(15, 10, 10, 20));
}

void tst_RecordingDevice::rotatedDrawingIsNotTurnedIntoAPath()
{
    const auto calls = record([](QPainter *painter) {
        painter->rotate(30);
        painter->setBrush(QLinearGradient(0, 0, 1, 1));
        painter->drawRect(0, 0, 4, 4);
        painter->drawPolygon(QPolygon({{0, 0}, {4, 0}, {0, 4}}));
        painter->drawPolyline(QPolygonF({{0, 0}, {4, 0}, {0, 4}}));
    });

    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls[0].kind, PaintCall::Rects);
    QCOMPARE(calls[1].kind, PaintCall::Polygon);
    QCOMPARE(calls[2].polygonMode, QPaintEngine::PolylineMode);
}

void tst_RecordingDevice::textPixmapAndImageKeepWhatIsDrawn()
{
    QPixmap pixmap(3, 3);
    pixmap.fill(Qt::green);
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::green);

    const auto calls = record([&](QPainter *painter) {
        painter->drawText(10, 20, QStringLiteral("Figura"));
        painter->drawPixmap(1, 2, pixmap);
        painter->drawImage(3, 4, image);
    });

    QCOMPARE(calls[0].text, QStringLiteral("Figura"));
    QCOMPARE(calls[0].points, QList<QPointF>({{10, 20}}));
    QCOMPARE(calls[1].rects, QList<QRectF>({{1, 2, 3, 3}}));
    QCOMPARE(calls[1].pixmap.cacheKey(), pixmap.cacheKey());
    QCOMPARE(calls[2].rects, QList<QRectF>({{3, 4, 2, 2}}));
    QCOMPARE(calls[2].image, image);
}

void tst_RecordingDevice::clearForgetsTheCalls()
{
    RecordingDevice device;
    QPainter painter(&device);
    painter.drawPoint(1, 1);

    device.clear();
    painter.drawEllipse(0, 0, 4, 4);

    QCOMPARE(device.calls().size(), 1);
    QCOMPARE(device.calls().first().kind, PaintCall::Ellipse);
}

QTEST_MAIN(tst_RecordingDevice)
#include "tst_recordingdevice.moc"
