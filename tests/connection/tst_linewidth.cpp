#include <figura/layout/FreeformLayout.h>
#include <figura/shape/Polygon.h>

#include <figureprobe.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/connection/PolylineF.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QString ERASE = QStringLiteral("erase");
const QString REPAINT = QStringLiteral("repaint");
const QString ANNOUNCE = QStringLiteral("pathChanged");
const QString REBUILD = QStringLiteral("regeneratePath");

// What a change of width tells, each entry with the width at that moment.
struct Change
{
    QStringList log;
    QList<QRectF> rects;
};

template<typename Line>
Change changeWidth(int from, int to, bool attached)
{
    ShapeProbe<Line> line;
    line.setLineWidth(from);
    if (attached)
        line.addNotify();
    line.log.clear();
    line.announcedRects.clear();
    line.detail = [&line] { return QString::number(line.getLineWidth()); };

    line.setLineWidth(to);

    return {line.log, line.announcedRects};
}

Change changeWidthOf(const QString &className, int from, int to, bool attached)
{
    if (className == QStringLiteral("Polygon"))
        return changeWidth<Polygon>(from, to, attached);
    if (className == QStringLiteral("PolylineF"))
        return changeWidth<PolylineF>(from, to, attached);
    return changeWidth<Polyline>(from, to, attached);
}

QString at(const QString &entry, int width)
{
    return entry + QLatin1Char(' ') + QString::number(width);
}

void addClassRows()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("Polyline") << QStringLiteral("Polyline");
    QTest::newRow("PolylineF") << QStringLiteral("PolylineF");
    QTest::newRow("Polygon") << QStringLiteral("Polygon");
}

} // namespace

class tst_LineWidth : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void narrowerLineIsErasedWhileTheOldWidthIsKnown_data() { addClassRows(); }
    void narrowerLineIsErasedWhileTheOldWidthIsKnown();
    void widerLineIsNotErased_data() { addClassRows(); }
    void widerLineIsNotErased();
    void sameWidthDoesNothing_data() { addClassRows(); }
    void sameWidthDoesNothing();
    void attachedPathIsRebuiltLast_data() { addClassRows(); }
    void attachedPathIsRebuiltLast();
    void announcedRectangleIsEmpty_data() { addClassRows(); }
    void announcedRectangleIsEmpty();
    void narrowerLineReportsItsParentsDamageFirst();
};

void tst_LineWidth::narrowerLineIsErasedWhileTheOldWidthIsKnown()
{
    QFETCH(QString, className);

    const Change change = changeWidthOf(className, 5, 3, false);

    QCOMPARE(change.log, QStringList({at(ERASE, 5), at(REPAINT, 3), at(ANNOUNCE, 3)}));
}

void tst_LineWidth::widerLineIsNotErased()
{
    QFETCH(QString, className);

    const Change change = changeWidthOf(className, 3, 5, false);

    QCOMPARE(change.log, QStringList({at(REPAINT, 5), at(ANNOUNCE, 5)}));
}

void tst_LineWidth::sameWidthDoesNothing()
{
    QFETCH(QString, className);

    const Change change = changeWidthOf(className, 3, 3, true);

    QCOMPARE(change.log, QStringList());
}

void tst_LineWidth::attachedPathIsRebuiltLast()
{
    QFETCH(QString, className);

    const Change change = changeWidthOf(className, 3, 5, true);

    QCOMPARE(change.log, QStringList({at(REPAINT, 5), at(ANNOUNCE, 5), at(REBUILD, 5)}));
}

void tst_LineWidth::announcedRectangleIsEmpty()
{
    QFETCH(QString, className);

    const Change change = changeWidthOf(className, 3, 5, false);

    QCOMPARE(change.rects, QList<QRectF>{QRectF()});
}

void tst_LineWidth::narrowerLineReportsItsParentsDamageFirst()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    Polyline line;
    root.add(&line);
    line.setEndPoints(QPoint(0, 0), QPoint(10, 10));
    line.setLineWidth(5);
    manager.clear();

    line.setLineWidth(3);

    const QList<RecordingUpdateManager::Request> requests = manager.dirtyRequests();
    QCOMPARE(requests.size(), 2);
    QCOMPARE(requests[0].figure, &root);
    QCOMPARE(requests[1].figure, &line);
}

QTEST_MAIN(tst_LineWidth)
#include "tst_linewidth.moc"
