#include <figura/connection/XYAnchor.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;

class tst_XYAnchor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void locationIsTheSameFromEverywhere();
    void referencePointIsTheLocation();
    void thereIsNoOwner();
    void newLocationIsAnnouncedWithTheAnchor();
    void sameLocationIsAnnouncedAgain();
    void parentIsThatOfTheConstructor();
};

void tst_XYAnchor::locationIsTheSameFromEverywhere()
{
    XYAnchor anchor(QPoint(3, -4));

    QCOMPARE(anchor.getLocation(QPoint()), QPoint(3, -4));
    QCOMPARE(anchor.getLocation(QPoint(1000, 7)), QPoint(3, -4));
}

void tst_XYAnchor::referencePointIsTheLocation()
{
    XYAnchor anchor(QPoint(3, -4));

    anchor.setLocation(QPoint(8, 9));

    QCOMPARE(anchor.getReferencePoint(), QPoint(8, 9));
    QCOMPARE(anchor.getLocation(QPoint()), QPoint(8, 9));
}

void tst_XYAnchor::thereIsNoOwner()
{
    QVERIFY(!XYAnchor(QPoint(3, -4)).getOwner());
}

void tst_XYAnchor::newLocationIsAnnouncedWithTheAnchor()
{
    XYAnchor anchor;
    QList<IConnectionAnchor *> announced;
    QPoint seen;
    connect(&anchor, &ConnectionAnchorBase::anchorMoved, &anchor, [&](IConnectionAnchor *which) {
        announced.append(which);
        seen = which->getReferencePoint();
    });

    anchor.setLocation(QPoint(8, 9));

    QCOMPARE(announced, QList<IConnectionAnchor *>({&anchor}));
    QCOMPARE(seen, QPoint(8, 9));
}

void tst_XYAnchor::sameLocationIsAnnouncedAgain()
{
    XYAnchor anchor(QPoint(8, 9));
    QSignalSpy moved(&anchor, &ConnectionAnchorBase::anchorMoved);

    anchor.setLocation(QPoint(8, 9));
    anchor.setLocation(QPoint(8, 9));

    QCOMPARE(moved.count(), 2);
}

void tst_XYAnchor::parentIsThatOfTheConstructor()
{
    QObject parent;

    QCOMPARE(XYAnchor(QPoint(), &parent).parent(), &parent);
}

QTEST_MAIN(tst_XYAnchor)
#include "tst_xyanchor.moc"
