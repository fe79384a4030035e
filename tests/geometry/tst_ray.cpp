#include <figura/geometry/Ray.h>

#include <QPoint>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;

class tst_Ray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void constructorsGiveTheComponents();
    void constructorsTakeAParent();
    void rayBetweenTwoEndsPointsFromTheFirstToTheSecond();
    void copiesTakeTheComponentsButNotTheParent();
    void assignmentKeepsTheParent();
    void equalOnlyWhenBothComponentsAre();
    void products_data();
    void products();
    void sumAndMultipleAreComponentwise();
    void resultsHaveNoParent();
    void averageTruncatesTowardZero_data();
    void averageTruncatesTowardZero();
    void horizontalMeansThatXIsNotZero_data();
    void horizontalMeansThatXIsNotZero();
    void lengthIsEuclidean_data();
    void lengthIsEuclidean();
};

void tst_Ray::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Ray::constructorsGiveTheComponents()
{
    const Ray null;
    const Ray pair(3, -4);
    const Ray point(QPoint(5, -6));

    QCOMPARE(QPoint(null.x(), null.y()), QPoint(0, 0));
    QCOMPARE(QPoint(pair.x(), pair.y()), QPoint(3, -4));
    QCOMPARE(QPoint(point.x(), point.y()), QPoint(5, -6));
}

void tst_Ray::constructorsTakeAParent()
{
    QObject parent;

    const auto *null = new Ray(&parent);
    const auto *pair = new Ray(3, -4, &parent);
    const auto *point = new Ray(QPoint(5, -6), &parent);
    const auto *points = new Ray(QPoint(1, 2), QPoint(3, 4), &parent);
    const auto *rays = new Ray(*pair, *point, &parent);

    QCOMPARE(parent.children().size(), 5);
    QCOMPARE(null->parent(), &parent);
    QCOMPARE(pair->parent(), &parent);
    QCOMPARE(point->parent(), &parent);
    QCOMPARE(points->parent(), &parent);
    QCOMPARE(rays->parent(), &parent);
}

void tst_Ray::rayBetweenTwoEndsPointsFromTheFirstToTheSecond()
{
    const Ray betweenPoints(QPoint(1, 10), QPoint(4, 2));
    const Ray betweenRays(Ray(1, 10), Ray(4, 2));

    QCOMPARE(betweenPoints, Ray(3, -8));
    QCOMPARE(betweenRays, Ray(3, -8));
}

void tst_Ray::copiesTakeTheComponentsButNotTheParent()
{
    QObject parent;
    const auto *original = new Ray(3, -4, &parent);

    const Ray copy(*original);

    QCOMPARE(copy.x(), 3);
    QCOMPARE(copy.y(), -4);
    QVERIFY(!copy.parent());
}

void tst_Ray::assignmentKeepsTheParent()
{
    QObject parent;
    auto *ray = new Ray(&parent);

    Ray &result = (*ray = Ray(3, -4));

    QCOMPARE(&result, ray);
    QCOMPARE(ray->x(), 3);
    QCOMPARE(ray->y(), -4);
    QCOMPARE(ray->parent(), &parent);
}

void tst_Ray::equalOnlyWhenBothComponentsAre()
{
    QVERIFY(Ray(3, 4) == Ray(3, 4));
    QVERIFY(!(Ray(3, 4) == Ray(3, 5)));
    QVERIFY(!(Ray(3, 4) == Ray(2, 4)));
    QVERIFY(!(Ray(3, 4) == Ray(4, 3)));
}

void tst_Ray::products_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<int>("dot");
    QTest::addColumn<int>("similarity");
    QTest::addColumn<int>("assimilarity");

    QTest::newRow("ordinary") << QPoint(2, 3) << QPoint(5, 7) << 31 << 31 << 1;
    QTest::newRow("negative dot product") << QPoint(2, 3) << QPoint(-5, -7) << -31 << 31 << 1;
    QTest::newRow("positive cross product") << QPoint(2, 3) << QPoint(1, 7) << 23 << 23 << 11;
    QTest::newRow("negative cross product") << QPoint(1, 7) << QPoint(2, 3) << 23 << 23 << 11;
    QTest::newRow("perpendicular") << QPoint(4, 0) << QPoint(0, 5) << 0 << 0 << 20;
    QTest::newRow("parallel") << QPoint(1, 2) << QPoint(3, 6) << 15 << 15 << 0;
}

void tst_Ray::products()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);

    QTEST(Ray(a).dotProduct(Ray(b)), "dot");
    QTEST(Ray(a).similarity(Ray(b)), "similarity");
    QTEST(Ray(a).assimilarity(Ray(b)), "assimilarity");
}

void tst_Ray::sumAndMultipleAreComponentwise()
{
    QCOMPARE(Ray(1, -2).getAdded(Ray(30, 40)), Ray(31, 38));
    QCOMPARE(Ray(4, -5).getScaled(3), Ray(12, -15));
    QCOMPARE(Ray(1, -2).getScaled(-3), Ray(-3, 6));
    QCOMPARE(Ray(1, -2).getScaled(0), Ray(0, 0));
}

void tst_Ray::resultsHaveNoParent()
{
    QObject parent;
    const auto *ray = new Ray(3, 4, &parent);

    QVERIFY(!ray->getAdded(*ray).parent());
    QVERIFY(!ray->getAveraged(*ray).parent());
    QVERIFY(!ray->getScaled(2).parent());
}

void tst_Ray::averageTruncatesTowardZero_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("average");

    QTest::newRow("even") << QPoint(2, 4) << QPoint(6, 10) << QPoint(4, 7);
    QTest::newRow("one half") << QPoint(1, 0) << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("minus three halves") << QPoint(-3, 0) << QPoint(0, 0) << QPoint(-1, 0);
    QTest::newRow("y alike") << QPoint(0, -3) << QPoint(0, 0) << QPoint(0, -1);
    QTest::newRow("halves are of the sum") << QPoint(1, -1) << QPoint(1, -1) << QPoint(1, -1);
}

void tst_Ray::averageTruncatesTowardZero()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, average);

    QCOMPARE(Ray(a).getAveraged(Ray(b)), Ray(average));
}

void tst_Ray::horizontalMeansThatXIsNotZero_data()
{
    QTest::addColumn<QPoint>("ray");
    QTest::addColumn<bool>("horizontal");

    QTest::newRow("null") << QPoint(0, 0) << false;
    QTest::newRow("vertical") << QPoint(0, 5) << false;
    QTest::newRow("horizontal") << QPoint(5, 0) << true;
    QTest::newRow("to the left") << QPoint(-5, 0) << true;
    QTest::newRow("diagonal") << QPoint(1, 1) << true;
    QTest::newRow("nearly vertical") << QPoint(1, 100) << true;
}

void tst_Ray::horizontalMeansThatXIsNotZero()
{
    QFETCH(QPoint, ray);

    QTEST(Ray(ray).isHorizontal(), "horizontal");
}

void tst_Ray::lengthIsEuclidean_data()
{
    QTest::addColumn<QPoint>("ray");
    QTest::addColumn<double>("length");

    QTest::newRow("null") << QPoint(0, 0) << 0.0;
    QTest::newRow("three, four") << QPoint(3, 4) << 5.0;
    QTest::newRow("negative") << QPoint(-3, -4) << 5.0;
    QTest::newRow("no whole number") << QPoint(1, 1) << std::sqrt(2.0);
    QTest::newRow("squares beyond 32 bits") << QPoint(300000, 400000) << 500000.0;
}

void tst_Ray::lengthIsEuclidean()
{
    QFETCH(QPoint, ray);

    QTEST(Ray(ray).length(), "length");
}

QTEST_APPLESS_MAIN(tst_Ray)
#include "tst_ray.moc"
