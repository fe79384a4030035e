#include <figura/geometry/Transform.h>

#include <QPoint>
#include <QTest>

#include <cmath>
#include <numbers>

using namespace Velmora::Figura;

namespace {

constexpr double pi = std::numbers::pi;

} // namespace

class tst_Transform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void identityAtFirst();
    void takesAParent();
    void oneScaleIsUsedInBothDirections();
    void twoScalesAreUsedEachInItsDirection();
    void translationIsAdded();
    void settersReplaceTheFormerValue();
    void rotationTurnsFromXTowardY_data();
    void rotationTurnsFromXTowardY();
    void scalesThenRotatesThenTranslates();
    void halvesRoundAwayFromZero_data();
    void halvesRoundAwayFromZero();
};

void tst_Transform::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Transform::identityAtFirst()
{
    QCOMPARE(Transform().getTransformed(QPoint(-7, 8)), QPoint(-7, 8));
}

void tst_Transform::takesAParent()
{
    QObject parent;

    QCOMPARE((new Transform(&parent))->parent(), &parent);
}

void tst_Transform::oneScaleIsUsedInBothDirections()
{
    Transform transform;

    transform.setScale(3);

    QCOMPARE(transform.getTransformed(QPoint(2, -5)), QPoint(6, -15));
}

void tst_Transform::twoScalesAreUsedEachInItsDirection()
{
    Transform transform;

    transform.setScale(3, -4);

    QCOMPARE(transform.getTransformed(QPoint(2, 5)), QPoint(6, -20));
}

void tst_Transform::translationIsAdded()
{
    Transform transform;

    transform.setTranslation(10, -20);

    QCOMPARE(transform.getTransformed(QPoint(1, 2)), QPoint(11, -18));
}

void tst_Transform::settersReplaceTheFormerValue()
{
    Transform transform;
    transform.setScale(7, 8);
    transform.setTranslation(70, 80);
    transform.setRotation(1);

    transform.setScale(2);
    transform.setTranslation(3, 4);
    transform.setRotation(0);

    QCOMPARE(transform.getTransformed(QPoint(10, 20)), QPoint(23, 44));
}

void tst_Transform::rotationTurnsFromXTowardY_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("expected");

    QTest::newRow("quarter turn of x") << pi / 2 << QPoint(1, 0) << QPoint(0, 1);
    QTest::newRow("quarter turn of y") << pi / 2 << QPoint(0, 1) << QPoint(-1, 0);
    QTest::newRow("quarter turn back") << -pi / 2 << QPoint(1, 0) << QPoint(0, -1);
    QTest::newRow("half turn") << pi << QPoint(3, 4) << QPoint(-3, -4);
    QTest::newRow("thirty degrees") << pi / 6 << QPoint(1000, 0) << QPoint(866, 500);
}

void tst_Transform::rotationTurnsFromXTowardY()
{
    QFETCH(double, angle);
    QFETCH(QPoint, point);
    Transform transform;

    transform.setRotation(angle);

    QTEST(transform.getTransformed(point), "expected");
}

void tst_Transform::scalesThenRotatesThenTranslates()
{
    Transform transform;

    transform.setTranslation(100, 200);
    transform.setRotation(pi / 2);
    transform.setScale(2, 5);

    QCOMPARE(transform.getTransformed(QPoint(3, 4)), QPoint(100 - 20, 200 + 6));
}

void tst_Transform::halvesRoundAwayFromZero_data()
{
    QTest::addColumn<int>("coordinate");
    QTest::addColumn<int>("expected");

    QTest::newRow("plus one half") << 1 << 1;
    QTest::newRow("minus one half") << -1 << -1;
    QTest::newRow("three halves") << 3 << 2;
    QTest::newRow("minus three halves") << -3 << -2;
    QTest::newRow("five halves") << 5 << 3;
    QTest::newRow("minus five halves") << -5 << -3;
    QTest::newRow("a whole") << -4 << -2;
}

void tst_Transform::halvesRoundAwayFromZero()
{
    QFETCH(int, coordinate);
    QFETCH(int, expected);
    Transform transform;

    transform.setScale(0.5);

    QCOMPARE(transform.getTransformed(QPoint(coordinate, 0)), QPoint(expected, 0));
    QCOMPARE(transform.getTransformed(QPoint(0, coordinate)), QPoint(0, expected));
}

QTEST_APPLESS_MAIN(tst_Transform)
#include "tst_transform.moc"
