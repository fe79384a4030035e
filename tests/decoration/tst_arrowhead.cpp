#include "arrowheads.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Points = QList<QPoint>;

namespace {

const double QUARTER = std::acos(-1.0) / 2;
const Points ARROW{{-1, 1}, {0, 0}, {-1, -1}};
const Points AT_REST{{-7, 3}, {0, 0}, {-7, -3}};

void addClassRows()
{
    QTest::addColumn<QString>("className");
    for (const QString &className : arrowHeadClasses)
        QTest::newRow(qPrintable(className)) << className;
}

// The direction comes from the two points and not from an angle.
Points turned(const Points &outline, const QPointF &scale, const QPointF &tip,
              const QPointF &reference)
{
    const QPointF way = tip - reference;
    const QPointF unit = way / std::hypot(way.x(), way.y());
    Points result;
    for (const QPoint &point : outline) {
        const QPointF p(point.x() * scale.x(), point.y() * scale.y());
        const QPointF at = tip + p.x() * unit + p.y() * QPointF(-unit.y(), unit.x());
        result.append(QPoint(int(std::lround(at.x())), int(std::lround(at.y()))));
    }
    return result;
}

QPointF randomPoint(QRandomGenerator &random, double reach)
{
    const double x = random.bounded(2 * reach) - reach;
    return QPointF(x, random.bounded(2 * reach) - reach);
}

Points randomOutline(QRandomGenerator &random)
{
    Points outline;
    for (int i = random.bounded(6); i >= 0; --i) {
        const int x = random.bounded(-5, 3);
        outline.append(QPoint(x, random.bounded(-4, 5)));
    }
    return outline;
}

} // namespace

// What the filled and the open arrow head have in common.
class tst_ArrowHead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newHeadPointsRightAtTheOrigin_data() { addClassRows(); }
    void newHeadPointsRightAtTheOrigin();
    void locationMovesTheTip_data() { addClassRows(); }
    void locationMovesTheTip();
    void fractionsOfTheLocationCount_data();
    void fractionsOfTheLocationCount();
    void bodyPointsBackToTheReference_data();
    void bodyPointsBackToTheReference();
    void integerReferenceIsTheSame_data() { addClassRows(); }
    void integerReferenceIsTheSame();
    void referenceAtTheTipTurnsRight_data() { addClassRows(); }
    void referenceAtTheTipTurnsRight();
    void referenceIsNotStored_data() { addClassRows(); }
    void referenceIsNotStored();
    void referenceIsSeenFromThePresentLocation_data() { addClassRows(); }
    void referenceIsSeenFromThePresentLocation();
    void rotationTurnsFromXTowardY_data() { addClassRows(); }
    void rotationTurnsFromXTowardY();
    void scaleStretchesBeforeTheTurn_data() { addClassRows(); }
    void scaleStretchesBeforeTheTurn();
    void halvesAreRoundedAwayFromZero_data() { addClassRows(); }
    void halvesAreRoundedAwayFromZero();
    void templateReplacesTheOutline_data();
    void templateReplacesTheOutline();
    void equalTemplateHasNoEffect_data() { addClassRows(); }
    void equalTemplateHasNoEffect();
    void otherTemplateRecalculates_data();
    void otherTemplateRecalculates();
    void settersRecalculateAlways_data() { addClassRows(); }
    void settersRecalculateAlways();
    void pointsSetByHandLastUntilTheNextSetter_data() { addClassRows(); }
    void pointsSetByHandLastUntilTheNextSetter();
    void boundsFollowWhileAttached_data() { addClassRows(); }
    void boundsFollowWhileAttached();
    void randomHeadsAgree_data() { addClassRows(); }
    void randomHeadsAgree();
};

void tst_ArrowHead::newHeadPointsRightAtTheOrigin()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    QCOMPARE(head->figure().getLinePoints(), AT_REST);
}

void tst_ArrowHead::locationMovesTheTip()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    head->rotatable().setLocation(QPoint(100, 50));
    QCOMPARE(head->figure().getLinePoints(), (Points{{93, 53}, {100, 50}, {93, 47}}));
    head->rotatable().setLocation(QPointF(-100, -50));
    QCOMPARE(head->figure().getLinePoints(), (Points{{-107, -47}, {-100, -50}, {-107, -53}}));
}

void tst_ArrowHead::fractionsOfTheLocationCount_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QPointF>("location");
    QTest::addColumn<Points>("points");
    for (const QString &className : arrowHeadClasses) {
        QTest::addRow("%s: positive", qPrintable(className))
            << className << QPointF(10.5, 20.25) << Points{{4, 23}, {11, 20}, {4, 17}};
        QTest::addRow("%s: negative", qPrintable(className))
            << className << QPointF(-10.5, 0.5) << Points{{-18, 4}, {-11, 1}, {-18, -3}};
    }
}

void tst_ArrowHead::fractionsOfTheLocationCount()
{
    QFETCH(QString, className);
    QFETCH(QPointF, location);
    QFETCH(Points, points);
    const auto head = makeArrowHead(className);

    head->rotatable().setLocation(location);

    QCOMPARE(head->figure().getLinePoints(), points);
}

void tst_ArrowHead::bodyPointsBackToTheReference_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QPointF>("reference");
    QTest::addColumn<Points>("points");
    for (const QString &className : arrowHeadClasses) {
        const QByteArray name = className.toLatin1();
        QTest::addRow("%s: from the left", name.constData())
            << className << QPointF(0, 50) << Points{{93, 53}, {100, 50}, {93, 47}};
        QTest::addRow("%s: from above", name.constData())
            << className << QPointF(100, 0) << Points{{97, 43}, {100, 50}, {103, 43}};
        QTest::addRow("%s: from the right", name.constData())
            << className << QPointF(300, 50) << Points{{107, 47}, {100, 50}, {107, 53}};
        QTest::addRow("%s: from below", name.constData())
            << className << QPointF(100, 50.25) << Points{{103, 57}, {100, 50}, {97, 57}};
        QTest::addRow("%s: from the upper left", name.constData())
            << className << QPointF(0, -50) << Points{{93, 47}, {100, 50}, {97, 43}};
    }
}

void tst_ArrowHead::bodyPointsBackToTheReference()
{
    QFETCH(QString, className);
    QFETCH(QPointF, reference);
    QFETCH(Points, points);
    const auto head = makeArrowHead(className);
    head->rotatable().setLocation(QPoint(100, 50));

    head->rotatable().setReferencePoint(reference);

    QCOMPARE(head->figure().getLinePoints(), points);
}

void tst_ArrowHead::integerReferenceIsTheSame()
{
    QFETCH(QString, className);
    const auto floating = makeArrowHead(className);
    const auto integer = makeArrowHead(className);

    floating->rotatable().setReferencePoint(QPointF(-13, 29));
    integer->rotatable().setReferencePoint(QPoint(-13, 29));

    QCOMPARE(integer->figure().getLinePoints(), floating->figure().getLinePoints());
    QVERIFY(integer->figure().getLinePoints() != AT_REST);
}

void tst_ArrowHead::referenceAtTheTipTurnsRight()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    head->setRotation(1.0);

    head->rotatable().setReferencePoint(QPointF(0, 0));

    QCOMPARE(head->figure().getLinePoints(), AT_REST);
}

void tst_ArrowHead::referenceIsNotStored()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    head->rotatable().setLocation(QPoint(100, 50));
    head->rotatable().setReferencePoint(QPoint(100, 0));

    head->rotatable().setLocation(QPoint(200, 0));

    QCOMPARE(head->figure().getLinePoints(), (Points{{197, -7}, {200, 0}, {203, -7}}));
}

void tst_ArrowHead::referenceIsSeenFromThePresentLocation()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    head->rotatable().setReferencePoint(QPoint(0, -50)); // from (0, 0), so from above
    head->rotatable().setLocation(QPoint(100, -50));

    QCOMPARE(head->figure().getLinePoints(), (Points{{97, -57}, {100, -50}, {103, -57}}));
}

void tst_ArrowHead::rotationTurnsFromXTowardY()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    head->setRotation(QUARTER);
    QCOMPARE(head->figure().getLinePoints(), (Points{{-3, -7}, {0, 0}, {3, -7}}));
    head->setRotation(2 * QUARTER);
    QCOMPARE(head->figure().getLinePoints(), (Points{{7, -3}, {0, 0}, {7, 3}}));
    head->setRotation(0);
    QCOMPARE(head->figure().getLinePoints(), AT_REST);
}

void tst_ArrowHead::scaleStretchesBeforeTheTurn()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    head->rotatable().setLocation(QPoint(100, 50));
    head->setRotation(QUARTER);

    head->setScale(10, 2);
    QCOMPARE(head->figure().getLinePoints(), (Points{{98, 40}, {100, 50}, {102, 40}}));
    head->setScale(0, -2);
    QCOMPARE(head->figure().getLinePoints(), (Points{{102, 50}, {100, 50}, {98, 50}}));
}

void tst_ArrowHead::halvesAreRoundedAwayFromZero()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    head->setScale(1.5, 2.5);

    QCOMPARE(head->figure().getLinePoints(), (Points{{-2, 3}, {0, 0}, {-2, -3}}));
}

void tst_ArrowHead::templateReplacesTheOutline_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Points>("outline");
    QTest::addColumn<Points>("points");
    for (const QString &className : arrowHeadClasses) {
        const QByteArray name = className.toLatin1();
        QTest::addRow("%s: diamond", name.constData())
            << className << Points{{0, 0}, {-1, 1}, {-2, 0}, {-1, -1}}
            << Points{{100, 50}, {93, 53}, {86, 50}, {93, 47}};
        QTest::addRow("%s: one point", name.constData())
            << className << Points{{1, 2}} << Points{{107, 56}};
        QTest::addRow("%s: nothing", name.constData()) << className << Points() << Points();
    }
}

void tst_ArrowHead::templateReplacesTheOutline()
{
    QFETCH(QString, className);
    QFETCH(Points, outline);
    QFETCH(Points, points);
    const auto head = makeArrowHead(className);
    head->rotatable().setLocation(QPoint(100, 50));

    head->setTemplate(outline);

    QCOMPARE(head->figure().getLinePoints(), points);
}

void tst_ArrowHead::equalTemplateHasNoEffect()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    const QSignalSpy recalculated(&head->figure(), &Shape::pathChanged);

    head->setTemplate(ARROW);
    QCOMPARE(recalculated.count(), 0);
    head->setTemplate({{0, 0}, {-3, 4}});
    head->setTemplate({{0, 0}, {-3, 4}});
    QCOMPARE(recalculated.count(), 1);
}

void tst_ArrowHead::otherTemplateRecalculates_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Points>("outline");
    for (const QString &className : arrowHeadClasses) {
        const QByteArray name = className.toLatin1();
        QTest::addRow("%s: other order", name.constData())
            << className << Points{{-1, -1}, {0, 0}, {-1, 1}};
        QTest::addRow("%s: one more", name.constData()) << className << ARROW + Points{{-1, 1}};
        QTest::addRow("%s: one less", name.constData()) << className << ARROW.mid(0, 2);
        QTest::addRow("%s: none", name.constData()) << className << Points();
    }
}

void tst_ArrowHead::otherTemplateRecalculates()
{
    QFETCH(QString, className);
    QFETCH(Points, outline);
    const auto head = makeArrowHead(className);
    const QSignalSpy recalculated(&head->figure(), &Shape::pathChanged);

    head->setTemplate(outline);

    QCOMPARE(recalculated.count(), 1);
    QCOMPARE(head->figure().getPointCount(), outline.size());
}

void tst_ArrowHead::settersRecalculateAlways()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    const QSignalSpy recalculated(&head->figure(), &Shape::pathChanged);

    head->rotatable().setLocation(QPointF(0, 0));
    QCOMPARE(recalculated.count(), 1);
    head->rotatable().setLocation(QPoint(0, 0));
    QCOMPARE(recalculated.count(), 2);
    head->rotatable().setReferencePoint(QPointF(-1, 0));
    QCOMPARE(recalculated.count(), 3);
    head->rotatable().setReferencePoint(QPoint(-1, 0));
    QCOMPARE(recalculated.count(), 4);
    head->setRotation(0);
    QCOMPARE(recalculated.count(), 5);
    head->setScale(7, 3);
    QCOMPARE(recalculated.count(), 6);
    QCOMPARE(head->figure().getLinePoints(), AT_REST);
}

void tst_ArrowHead::pointsSetByHandLastUntilTheNextSetter()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);

    head->figure().setLinePoints({{1, 2}, {3, 4}});
    head->setTemplate(ARROW);
    QCOMPARE(head->figure().getLinePoints(), (Points{{1, 2}, {3, 4}}));
    head->setScale(7, 3);
    QCOMPARE(head->figure().getLinePoints(), AT_REST);
}

void tst_ArrowHead::boundsFollowWhileAttached()
{
    QFETCH(QString, className);
    const auto head = makeArrowHead(className);
    head->figure().addNotify();

    head->rotatable().setLocation(QPoint(100, 50));

    QCOMPARE(head->figure().getBounds(), QRect(93, 47, 7, 6));
}

void tst_ArrowHead::randomHeadsAgree()
{
    QFETCH(QString, className);
    QRandomGenerator random(20240801);

    for (int i = 0; i < 3000; ++i) {
        const auto head = makeArrowHead(className);
        const QPointF location = randomPoint(random, 300);
        const QPointF reference = randomPoint(random, 300);
        const QPointF scale = randomPoint(random, 12);
        const Points outline = randomOutline(random);

        head->setTemplate(outline);
        head->setScale(scale.x(), scale.y());
        head->rotatable().setLocation(location);
        head->rotatable().setReferencePoint(reference);

        QCOMPARE(head->figure().getLinePoints(), turned(outline, scale, location, reference));
    }
}

QTEST_MAIN(tst_ArrowHead)
#include "tst_arrowhead.moc"
