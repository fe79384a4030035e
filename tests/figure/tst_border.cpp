#include <figura/figure/Border.h>

#include <QTest>

using namespace Velmora::Figura;

namespace {

/// A border that draws nothing, with its protected operations open.
class OpenBorder : public Border
{
public:
    using Border::Border;
    using Border::createPen;
    using Border::toBorderRect;

    void render(QPainter *, const QStyleOptionViewItem &) const override {}
};

} // namespace

class tst_Border : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void defaults();
    void takesAParent();
    void settersStore();
    void insetsAreAnsweredByReference();
    void penHasWidthOneAndTheStoredColourAndStyles();
    void borderRectCentresALineAsWideAsTheInset_data();
    void borderRectCentresALineAsWideAsTheInset();
    void borderRectOfAnInvalidRectIsInvalid_data();
    void borderRectOfAnInvalidRectIsInvalid();
    void borderRectOfATooSmallRectIsInvalid();
    void borderRectAsksTheVirtualInsets();
};

void tst_Border::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Border::defaults()
{
    OpenBorder border;

    QVERIFY(!border.parent());
    QVERIFY(border.getInsets().isNull());
    QCOMPARE(border.getColor(), QColor(Qt::black));
    QCOMPARE(border.getPenStyle(), Qt::SolidLine);
    QCOMPARE(border.getPenCapStyle(), Qt::SquareCap);
    QCOMPARE(border.getPenJoinStyle(), Qt::BevelJoin);
}

void tst_Border::takesAParent()
{
    QObject parent;

    QCOMPARE((new OpenBorder(&parent))->parent(), &parent);
}

void tst_Border::settersStore()
{
    OpenBorder border;

    border.setInsets(Insets(1, 2, 3, 4));
    border.setColor(Qt::red);
    border.setPenStyle(Qt::DashLine);
    border.setPenCapStyle(Qt::RoundCap);
    border.setPenJoinStyle(Qt::MiterJoin);

    QCOMPARE(border.getInsets(), Insets(1, 2, 3, 4));
    QCOMPARE(border.getColor(), QColor(Qt::red));
    QCOMPARE(border.getPenStyle(), Qt::DashLine);
    QCOMPARE(border.getPenCapStyle(), Qt::RoundCap);
    QCOMPARE(border.getPenJoinStyle(), Qt::MiterJoin);
}

void tst_Border::insetsAreAnsweredByReference()
{
    OpenBorder border;
    const Insets &insets = border.getInsets();

    border.setInsets(Insets(5, 6, 7, 8));

    QCOMPARE(insets, Insets(5, 6, 7, 8));
}

void tst_Border::penHasWidthOneAndTheStoredColourAndStyles()
{
    OpenBorder border;
    QCOMPARE(border.createPen(), QPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));

    border.setInsets(Insets(9, 9, 9, 9));
    border.setColor(QColor(1, 2, 3, 4));
    border.setPenStyle(Qt::DotLine);
    border.setPenCapStyle(Qt::FlatCap);
    border.setPenJoinStyle(Qt::RoundJoin);
    QCOMPARE(border.createPen(),
             QPen(QColor(1, 2, 3, 4), 1, Qt::DotLine, Qt::FlatCap, Qt::RoundJoin));
}

void tst_Border::borderRectCentresALineAsWideAsTheInset_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<QPoint>("bottomRight");

    QTest::newRow("none") << Insets(0, 0, 0, 0) << QPoint(0, 0) << QPoint(9, 9);
    QTest::newRow("one") << Insets(1, 1, 1, 1) << QPoint(0, 0) << QPoint(9, 9);
    QTest::newRow("two") << Insets(2, 2, 2, 2) << QPoint(1, 1) << QPoint(9, 9);
    QTest::newRow("three") << Insets(3, 3, 3, 3) << QPoint(1, 1) << QPoint(8, 8);
    QTest::newRow("four") << Insets(4, 4, 4, 4) << QPoint(2, 2) << QPoint(8, 8);
    QTest::newRow("five") << Insets(5, 5, 5, 5) << QPoint(2, 2) << QPoint(7, 7);
    QTest::newRow("top only") << Insets(4, 0, 0, 0) << QPoint(0, 2) << QPoint(9, 9);
    QTest::newRow("left only") << Insets(0, 4, 0, 0) << QPoint(2, 0) << QPoint(9, 9);
    QTest::newRow("bottom only") << Insets(0, 0, 4, 0) << QPoint(0, 0) << QPoint(9, 8);
    QTest::newRow("right only") << Insets(0, 0, 0, 4) << QPoint(0, 0) << QPoint(8, 9);
}

void tst_Border::borderRectCentresALineAsWideAsTheInset()
{
    QFETCH(Insets, insets);
    QFETCH(QPoint, topLeft);
    QFETCH(QPoint, bottomRight);
    const QPoint offset(100, 200);
    OpenBorder border;

    border.setInsets(insets);

    QCOMPARE(border.toBorderRect(QRect(0, 0, 10, 10)), QRect(topLeft, bottomRight));
    QCOMPARE(border.toBorderRect(QRect(100, 200, 10, 10)),
             QRect(topLeft + offset, bottomRight + offset));
}

void tst_Border::borderRectOfAnInvalidRectIsInvalid_data()
{
    QTest::addColumn<QRect>("rect");

    QTest::newRow("none") << QRect();
    QTest::newRow("no width") << QRect(5, 6, 0, 7);
    QTest::newRow("negative height") << QRect(5, 6, 7, -1);
}

void tst_Border::borderRectOfAnInvalidRectIsInvalid()
{
    QFETCH(QRect, rect);
    OpenBorder border;
    border.setInsets(Insets(1, 1, 1, 1));

    QCOMPARE(border.toBorderRect(rect), QRect());
}

void tst_Border::borderRectOfATooSmallRectIsInvalid()
{
    OpenBorder border;
    border.setInsets(Insets(8, 8, 8, 8));

    QVERIFY(!border.toBorderRect(QRect(0, 0, 5, 5)).isValid());
}

void tst_Border::borderRectAsksTheVirtualInsets()
{
    class WideBorder : public OpenBorder
    {
    public:
        const Insets &getInsets() const override { return m_wide; }

    private:
        Insets m_wide{4, 4, 4, 4};
    };

    QCOMPARE(WideBorder().toBorderRect(QRect(0, 0, 10, 10)), QRect(QPoint(2, 2), QPoint(8, 8)));
}

QTEST_APPLESS_MAIN(tst_Border)
#include "tst_border.moc"
