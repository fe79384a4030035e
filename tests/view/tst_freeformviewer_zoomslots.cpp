#include "scene.h"

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

QList<double> scalesOf(const QSignalSpy &spy)
{
    QList<double> scales;
    for (const QList<QVariant> &arguments : spy)
        scales.append(arguments.first().toDouble());
    return scales;
}

} // namespace

class tst_FreeformViewerZoomSlots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void setScaleAnnouncesTheScaleInForce_data();
    void setScaleAnnouncesTheScaleInForce();
    void setScaleAnnouncesAnUnchangedScaleToo();
    void setScaleWithoutExtentAnnouncesTheFormerScale();
    void setScaleMovesTheViewToTheGivenPoint();
    void setScaleWithoutPointZoomsAboutTheCentre();
    void negativeScaleFitsOnce();
    void scaleToNormalIsScaleOne();
    void scaleToNormalIsSubjectToTheBounds();
    void scaleToFitFitsTwice();
    void scaleToFitWithoutExtentAnnouncesMinusOneTwice();
    void secondPassOfScaleToFitSeesTheScrollBarsOfTheFirst();
    void scaleBoundsAnnounceNothing();
    void scaleBoundsAreForwarded();
    void slotsMayBeInvokedByName();
    void scaleIsAnnouncedAfterTheChange();
};

void tst_FreeformViewerZoomSlots::setScaleAnnouncesTheScaleInForce_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("expected");
    QTest::newRow("allowed") << 2.0 << 2.0;
    QTest::newRow("too large") << 9.0 << 4.0;
    QTest::newRow("too small") << 0.1 << 0.5;
    QTest::newRow("as it is") << 1.0 << 1.0;
}

void tst_FreeformViewerZoomSlots::setScaleAnnouncesTheScaleInForce()
{
    QFETCH(double, scale);
    QFETCH(double, expected);
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScaleBounds(0.5, 4);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.setScale(scale);

    QCOMPARE(scalesOf(changed), QList<double>{expected});
    QCOMPARE(scene.viewer.getScale(), expected);
}

void tst_FreeformViewerZoomSlots::setScaleAnnouncesAnUnchangedScaleToo()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.setScale(2);
    scene.viewer.setScale(0);

    QCOMPARE(scalesOf(changed), (QList<double>{2, 2}));
}

void tst_FreeformViewerZoomSlots::setScaleWithoutExtentAnnouncesTheFormerScale()
{
    Scene scene;
    FreeformViewer empty;
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);
    QSignalSpy emptyChanged(&empty, &FreeformViewer::scaleChanged);

    scene.viewer.setScale(2);
    empty.setScale(2);

    QCOMPARE(scalesOf(changed), QList<double>{1});
    QCOMPARE(scalesOf(emptyChanged), QList<double>{1});
}

void tst_FreeformViewerZoomSlots::setScaleMovesTheViewToTheGivenPoint()
{
    Scene scene;
    QPoint topLeft(30, 40);
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);

    scene.viewer.setScale(2, &topLeft);

    QCOMPARE(scene.viewer.getViewLocation(), QPoint(30, 40));
    QCOMPARE(topLeft, QPoint(30, 40));
}

void tst_FreeformViewerZoomSlots::setScaleWithoutPointZoomsAboutTheCentre()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);

    scene.viewer.setScale(2, nullptr);

    QCOMPARE(scene.viewer.getViewLocation(), QPoint(99, 74));
}

void tst_FreeformViewerZoomSlots::negativeScaleFitsOnce()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 700, 400);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.setScale(-1);

    QCOMPARE(scalesOf(changed), QList<double>{0.5});
}

void tst_FreeformViewerZoomSlots::scaleToNormalIsScaleOne()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScale(2);
    const QPoint centre = scene.viewer.getViewRect().center();
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.scaleToNormal();

    QCOMPARE(scalesOf(changed), QList<double>{1});
    QCOMPARE(scene.viewer.getScale(), 1.0);
    QVERIFY((scene.viewer.getViewRect().center() - centre).manhattanLength() <= 2);
}

void tst_FreeformViewerZoomSlots::scaleToNormalIsSubjectToTheBounds()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);
    scene.viewer.setScaleBounds(2, 4);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.scaleToNormal();

    QCOMPARE(scalesOf(changed), QList<double>{2});
}

void tst_FreeformViewerZoomSlots::scaleToFitFitsTwice()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.pane.extent = QRect(0, 0, 700, 400);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.scaleToFit();

    QCOMPARE(scalesOf(changed), (QList<double>{0.5, 0.5}));
    QVERIFY(scene.viewer.getViewRect().contains(QRect(0, 0, 700, 400)));
}

void tst_FreeformViewerZoomSlots::scaleToFitWithoutExtentAnnouncesMinusOneTwice()
{
    Scene scene;
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.scaleToFit();

    QCOMPARE(scalesOf(changed), (QList<double>{-1, -1}));
    QCOMPARE(scene.viewer.getScale(), 1.0);
}

// At scale 3 the bars are shown; the first pass hides them and so frees room for the second.
void tst_FreeformViewerZoomSlots::secondPassOfScaleToFitSeesTheScrollBarsOfTheFirst()
{
    Scene scene;
    scene.viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scene.viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scene.addFigure(QRect(0, 0, 600, 400), Qt::red);
    QVERIFY(scene.show());
    scene.viewer.setScale(3);
    QCoreApplication::processEvents();
    QVERIFY(scene.viewer.viewport()->width() < 400);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.scaleToFit();

    QCOMPARE(changed.count(), 2);
    QVERIFY(scene.viewer.getViewRect().contains(QRect(0, 0, 600, 400)));
}

void tst_FreeformViewerZoomSlots::scaleBoundsAnnounceNothing()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);
    QSignalSpy changed(&scene.viewer, &FreeformViewer::scaleChanged);

    scene.viewer.setScaleBounds(2, 4);

    QCOMPARE(scene.viewer.getScale(), 2.0);
    QCOMPARE(changed.count(), 0);
}

void tst_FreeformViewerZoomSlots::scaleBoundsAreForwarded()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);

    scene.viewer.setScaleBounds(4, 0.5);
    QCOMPARE(scene.widget()->setScale(9), 4.0);
    scene.viewer.resetScaleBounds();
    QCOMPARE(scene.viewer.getScale(), 4.0);
    QCOMPARE(scene.widget()->setScale(9), 9.0);
}

void tst_FreeformViewerZoomSlots::slotsMayBeInvokedByName()
{
    Scene scene;
    QPoint topLeft(10, 20);
    scene.pane.extent = QRect(0, 0, 600, 400);

    QVERIFY(QMetaObject::invokeMethod(&scene.viewer, "setScale", Q_ARG(double, 2.0)));
    QCOMPARE(scene.viewer.getScale(), 2.0);
    QVERIFY(QMetaObject::invokeMethod(&scene.viewer, "setScale", Q_ARG(double, 3.0),
                                      Q_ARG(QPoint *, &topLeft)));
    QCOMPARE(scene.viewer.getViewLocation(), topLeft);
    QVERIFY(QMetaObject::invokeMethod(&scene.viewer, "scaleToNormal"));
    QCOMPARE(scene.viewer.getScale(), 1.0);
    QVERIFY(QMetaObject::invokeMethod(&scene.viewer, "setScaleBounds", Q_ARG(double, 4.0),
                                      Q_ARG(double, 2.0)));
    QCOMPARE(scene.viewer.getScale(), 2.0);
    QVERIFY(QMetaObject::invokeMethod(&scene.viewer, "scaleToFit"));
}

void tst_FreeformViewerZoomSlots::scaleIsAnnouncedAfterTheChange()
{
    Scene scene;
    scene.pane.extent = QRect(0, 0, 600, 400);
    double inForce = 0;
    connect(&scene.viewer, &FreeformViewer::scaleChanged, this,
            [&] { inForce = scene.widget()->getScale(); });

    scene.viewer.setScale(3);

    QCOMPARE(inForce, 3.0);
}

QTEST_MAIN(tst_FreeformViewerZoomSlots)
#include "tst_freeformviewer_zoomslots.moc"
