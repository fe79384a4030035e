#include "anypolyline.h"

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPointF>;
using Operation = void (*)(AnyPolyline &);
using LineOperation = void (*)(Polyline *);
Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(LineOperation)

namespace {

const QPointF A(1, 2);
const QPointF B(30, 40);
const QPointF C(5, 60);
const QPointF X(70, 8);
const QPointF Y(9, 9);

// The rules for both classes, told as they come: what happens, with the points at that moment.
struct Row
{
    const char *name;
    Points before;
    Operation operation;
    Points after;
    QStringList log;
};

QString erased(const Points &points)
{
    return QStringLiteral("erase ") + toText(points);
}

QString due(const Points &points)
{
    return QStringLiteral("pathChanged ") + toText(points);
}

QString repainted(const Points &points)
{
    return QStringLiteral("repaint ") + toText(points);
}

QStringList appended(const Points &after)
{
    return {due(after), repainted(after)};
}

QStringList replaced(const Points &before, const Points &after)
{
    return {erased(before), due(after), repainted(after)};
}

QStringList removed(const Points &before, const Points &after)
{
    return {erased(before), due(after)};
}

QList<Row> appendingRows()
{
    return {
        {"addPoint to none", {}, [](AnyPolyline &l) { l.addPoint(X); }, {X}, appended({X})},
        {"addPoint", {A, B}, [](AnyPolyline &l) { l.addPoint(X); }, {A, B, X}, appended({A, B, X})},
        {"addPoint, equal to the last",
         {A},
         [](AnyPolyline &l) { l.addPoint(A); },
         {A, A},
         appended({A, A})},
        {"insertPoint in front",
         {A, B},
         [](AnyPolyline &l) { l.insertPoint(X, 0); },
         {X, A, B},
         appended({X, A, B})},
        {"insertPoint between",
         {A, B},
         [](AnyPolyline &l) { l.insertPoint(X, 1); },
         {A, X, B},
         appended({A, X, B})},
        {"insertPoint at the count appends",
         {A, B},
         [](AnyPolyline &l) { l.insertPoint(X, 2); },
         {A, B, X},
         appended({A, B, X})},
        {"insertPoint below 0 inserts in front",
         {A, B},
         [](AnyPolyline &l) { l.insertPoint(X, -5); },
         {X, A, B},
         appended({X, A, B})},
        {"insertPoint above the count appends",
         {A, B, C},
         [](AnyPolyline &l) { l.insertPoint(X, 99); },
         {A, B, C, X},
         appended({A, B, C, X})},
        {"insertPoint into none",
         {},
         [](AnyPolyline &l) { l.insertPoint(X, 3); },
         {X},
         appended({X})},
    };
}

QList<Row> replacingRows()
{
    return {
        {"setPoint, first",
         {A, B},
         [](AnyPolyline &l) { l.setPoint(X, 0); },
         {X, B},
         replaced({A, B}, {X, B})},
        {"setPoint, last",
         {A, B, C},
         [](AnyPolyline &l) { l.setPoint(X, 2); },
         {A, B, X},
         replaced({A, B, C}, {A, B, X})},
        {"setPoint, equal",
         {A, B},
         [](AnyPolyline &l) { l.setPoint(A, 0); },
         {A, B},
         replaced({A, B}, {A, B})},
        {"setLinePoints",
         {A, B},
         [](AnyPolyline &l) {
             l.setLinePoints({X, Y, C});
         },
         {X, Y, C},
         replaced({A, B}, {X, Y, C})},
        {"setLinePoints, equal",
         {A, B},
         [](AnyPolyline &l) {
             l.setLinePoints({A, B});
         },
         {A, B},
         replaced({A, B}, {A, B})},
        {"setLinePoints, none",
         {A, B},
         [](AnyPolyline &l) { l.setLinePoints({}); },
         {},
         replaced({A, B}, {})},
    };
}

QList<Row> removingRows()
{
    return {
        {"removePoint, first",
         {A, B, C},
         [](AnyPolyline &l) { l.removePoint(0); },
         {B, C},
         removed({A, B, C}, {B, C})},
        {"removePoint, last",
         {A, B, C},
         [](AnyPolyline &l) { l.removePoint(2); },
         {A, B},
         removed({A, B, C}, {A, B})},
        {"removePoint, only", {A}, [](AnyPolyline &l) { l.removePoint(0); }, {}, removed({A}, {})},
        {"removeAllPoints",
         {A, B},
         [](AnyPolyline &l) { l.removeAllPoints(); },
         {},
         removed({A, B}, {})},
        {"removeAllPoints of none",
         {},
         [](AnyPolyline &l) { l.removeAllPoints(); },
         {},
         removed({}, {})},
    };
}

QList<Row> endRows()
{
    return {
        {"setStart of none appends", {}, [](AnyPolyline &l) { l.setStart(X); }, {X}, appended({X})},
        {"setStart of one replaces it",
         {A},
         [](AnyPolyline &l) { l.setStart(X); },
         {X},
         replaced({A}, {X})},
        {"setStart of more replaces the first",
         {A, B, C},
         [](AnyPolyline &l) { l.setStart(X); },
         {X, B, C},
         replaced({A, B, C}, {X, B, C})},
        {"setEnd of none appends", {}, [](AnyPolyline &l) { l.setEnd(X); }, {X}, appended({X})},
        {"setEnd of one appends",
         {A},
         [](AnyPolyline &l) { l.setEnd(X); },
         {A, X},
         appended({A, X})},
        {"setEnd of two replaces the last",
         {A, B},
         [](AnyPolyline &l) { l.setEnd(X); },
         {A, X},
         replaced({A, B}, {A, X})},
        {"setEnd of more replaces the last",
         {A, B, C},
         [](AnyPolyline &l) { l.setEnd(X); },
         {A, B, X},
         replaced({A, B, C}, {A, B, X})},
    };
}

QList<Row> endPointsRows()
{
    return {
        {"setEndPoints of none appends both",
         {},
         [](AnyPolyline &l) { l.setEndPoints(X, Y); },
         {X, Y},
         appended({X}) + appended({X, Y})},
        {"setEndPoints of one replaces it and appends",
         {A},
         [](AnyPolyline &l) { l.setEndPoints(X, Y); },
         {X, Y},
         replaced({A}, {X}) + appended({X, Y})},
        {"setEndPoints of two replaces both",
         {A, B},
         [](AnyPolyline &l) { l.setEndPoints(X, Y); },
         {X, Y},
         replaced({A, B}, {X, B}) + replaced({X, B}, {X, Y})},
        {"setEndPoints of three keeps the middle",
         {A, B, C},
         [](AnyPolyline &l) { l.setEndPoints(X, Y); },
         {X, B, Y},
         replaced({A, B, C}, {X, B, C}) + replaced({X, B, C}, {X, B, Y})},
    };
}

QList<Row> allRows()
{
    return appendingRows() + replacingRows() + removingRows() + endRows() + endPointsRows();
}

void addClassRows()
{
    QTest::addColumn<QString>("className");
    for (const QString &className : polylineClasses)
        QTest::newRow(qPrintable(className)) << className;
}

// Between the announcement and what follows, the path is rebuilt.
QStringList withRebuiltPaths(const QStringList &log)
{
    QStringList result;
    for (const QString &entry : log) {
        result.append(entry);
        if (entry.startsWith(QStringLiteral("pathChanged ")))
            result.append(QString(entry).replace(0, 11, QStringLiteral("regeneratePath")));
    }
    return result;
}

} // namespace

class tst_PolylinePoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newPolylineHasNoPoints_data() { addClassRows(); }
    void newPolylineHasNoPoints();

    void operationErasesAnnouncesAndRepaintsInThisOrder_data();
    void operationErasesAnnouncesAndRepaintsInThisOrder();
    void pathIsRebuiltBetweenAnnouncementAndRepaint_data();
    void pathIsRebuiltBetweenAnnouncementAndRepaint();
    void announcedRectangleIsEmpty_data();
    void announcedRectangleIsEmpty();

    void indexOutOfRangeIsRefusedWithAWarning_data();
    void indexOutOfRangeIsRefusedWithAWarning();

    void pointOutOfRangeIsTheOriginWithoutAWarning_data() { addClassRows(); }
    void pointOutOfRangeIsTheOriginWithoutAWarning();
    void pointsAreCountedAndReadByIndex_data() { addClassRows(); }
    void pointsAreCountedAndReadByIndex();
    void endsOfNothingAreTheOrigin_data() { addClassRows(); }
    void endsOfNothingAreTheOrigin();
    void endsOfOnePointAreThatPoint_data() { addClassRows(); }
    void endsOfOnePointAreThatPoint();
    void listHandedOutIsACopy();
    void lineMayBeDestroyedWhenItsPathChanges_data();
    void lineMayBeDestroyedWhenItsPathChanges();
};

void tst_PolylinePoints::newPolylineHasNoPoints()
{
    QFETCH(QString, className);

    const AnyPolylinePointer line = makePolyline(className);

    QCOMPARE(line->getPointCount(), 0);
    QCOMPARE(line->getLinePoints(), Points());
}

void tst_PolylinePoints::operationErasesAnnouncesAndRepaintsInThisOrder_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Points>("before");
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<Points>("after");
    QTest::addColumn<QStringList>("log");

    for (const QString &className : polylineClasses) {
        for (const Row &row : allRows())
            QTest::addRow("%s: %s", qPrintable(className), row.name)
                << className << row.before << row.operation << row.after << row.log;
    }
}

void tst_PolylinePoints::operationErasesAnnouncesAndRepaintsInThisOrder()
{
    QFETCH(QString, className);
    QFETCH(Points, before);
    QFETCH(Operation, operation);
    QFETCH(Points, after);
    QFETCH(QStringList, log);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(before);
    line->log().clear();

    operation(*line);

    QCOMPARE(line->getLinePoints(), after);
    QCOMPARE(line->log(), log);
}

void tst_PolylinePoints::pathIsRebuiltBetweenAnnouncementAndRepaint_data()
{
    operationErasesAnnouncesAndRepaintsInThisOrder_data();
}

void tst_PolylinePoints::pathIsRebuiltBetweenAnnouncementAndRepaint()
{
    QFETCH(QString, className);
    QFETCH(Points, before);
    QFETCH(Operation, operation);
    QFETCH(Points, after);
    QFETCH(QStringList, log);
    const AnyPolylinePointer line = makePolyline(className);
    line->shape().addNotify();
    line->setLinePoints(before);
    line->log().clear();

    operation(*line);

    QCOMPARE(line->log(), withRebuiltPaths(log));
    QCOMPARE(line->path(), pathThrough(after));
}

void tst_PolylinePoints::announcedRectangleIsEmpty_data()
{
    operationErasesAnnouncesAndRepaintsInThisOrder_data();
}

void tst_PolylinePoints::announcedRectangleIsEmpty()
{
    QFETCH(QString, className);
    QFETCH(Points, before);
    QFETCH(Operation, operation);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(before);

    operation(*line);

    QVERIFY(line->announcedRects().size() > 1);
    for (const QRectF &rect : line->announcedRects())
        QCOMPARE(rect, QRectF());
}

void tst_PolylinePoints::indexOutOfRangeIsRefusedWithAWarning_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Points>("points");
    QTest::addColumn<QString>("operationName");
    QTest::addColumn<int>("index");

    for (const QString &className : polylineClasses) {
        for (const char *name : {"setPoint", "removePoint"}) {
            const QByteArray prefix = className.toLatin1() + "::" + name;
            QTest::addRow("%s, the count", prefix.constData())
                << className << Points{A, B, C} << QString::fromLatin1(name) << 3;
            QTest::addRow("%s, beyond", prefix.constData())
                << className << Points{A, B, C} << QString::fromLatin1(name) << 99;
            QTest::addRow("%s, negative", prefix.constData())
                << className << Points{A, B, C} << QString::fromLatin1(name) << -1;
            QTest::addRow("%s, no points", prefix.constData())
                << className << Points() << QString::fromLatin1(name) << 0;
        }
    }
}

void tst_PolylinePoints::indexOutOfRangeIsRefusedWithAWarning()
{
    QFETCH(QString, className);
    QFETCH(Points, points);
    QFETCH(QString, operationName);
    QFETCH(int, index);
    const AnyPolylinePointer line = makePolyline(className);
    line->setLinePoints(points);
    line->log().clear();
    const QString message =
        QStringLiteral("%1::%2(): index out-of-bounds").arg(className, operationName);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(message));

    if (operationName == QStringLiteral("setPoint"))
        line->setPoint(X, index);
    else
        line->removePoint(index);

    QCOMPARE(line->getLinePoints(), points);
    QCOMPARE(line->log(), QStringList());
}

void tst_PolylinePoints::pointOutOfRangeIsTheOriginWithoutAWarning()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);
    QCOMPARE(line->getPoint(0), QPoint(0, 0));
    line->setLinePoints({A, B});

    QCOMPARE(line->getPoint(-1), QPoint(0, 0));
    QCOMPARE(line->getPoint(2), QPoint(0, 0));
    QCOMPARE(line->getPoint(99), QPoint(0, 0));
}

void tst_PolylinePoints::pointsAreCountedAndReadByIndex()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);

    line->setLinePoints({A, B, C});

    QCOMPARE(line->getPointCount(), 3);
    QCOMPARE(line->getPoint(0), A.toPoint());
    QCOMPARE(line->getPoint(1), B.toPoint());
    QCOMPARE(line->getPoint(2), C.toPoint());
    QCOMPARE(line->getStart(), A);
    QCOMPARE(line->getEnd(), C);
}

void tst_PolylinePoints::endsOfNothingAreTheOrigin()
{
    QFETCH(QString, className);

    const AnyPolylinePointer line = makePolyline(className);

    QCOMPARE(line->getStart(), QPointF(0, 0));
    QCOMPARE(line->getEnd(), QPointF(0, 0));
}

void tst_PolylinePoints::endsOfOnePointAreThatPoint()
{
    QFETCH(QString, className);
    const AnyPolylinePointer line = makePolyline(className);

    line->addPoint(A);

    QCOMPARE(line->getStart(), A);
    QCOMPARE(line->getEnd(), A);
}

void tst_PolylinePoints::listHandedOutIsACopy()
{
    Polyline line;
    line.setLinePoints({QPoint(1, 2), QPoint(3, 4)});

    QList<QPoint> points = line.getLinePoints();
    points.clear();
    points = line.getLinePoints();
    line.setPoint(QPoint(5, 6), 0);

    QCOMPARE(line.getPoint(0), QPoint(5, 6));
    QCOMPARE(points, QList<QPoint>({QPoint(1, 2), QPoint(3, 4)}));
}

void tst_PolylinePoints::lineMayBeDestroyedWhenItsPathChanges_data()
{
    QTest::addColumn<LineOperation>("operation");
    QTest::newRow("addPoint") << LineOperation([](Polyline *l) { l->addPoint(QPoint(7, 8)); });
    QTest::newRow("insertPoint") << LineOperation(
        [](Polyline *l) { l->insertPoint(QPoint(7, 8), 1); });
    QTest::newRow("setPoint") << LineOperation([](Polyline *l) { l->setPoint(QPoint(7, 8), 1); });
    QTest::newRow("setLinePoints") << LineOperation([](Polyline *l) { l->setLinePoints({}); });
}

void tst_PolylinePoints::lineMayBeDestroyedWhenItsPathChanges()
{
    QFETCH(LineOperation, operation);
    const QPointer<Polyline> line(new Polyline);
    line->setLinePoints({QPoint(1, 2), QPoint(3, 4)});
    connect(line, &Shape::pathChanged, this, [line] { delete line; });

    operation(line);

    QVERIFY(line.isNull());
}

QTEST_MAIN(tst_PolylinePoints)
#include "tst_polyline_points.moc"
