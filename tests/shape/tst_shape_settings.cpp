#include <figura/connection/PolylineF.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>

#include <figureprobe.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/layout/FreeformLayout.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Setter = void (*)(Shape &);
using Maker = Shape *(*)(QObject *);
Q_DECLARE_METATYPE(Setter)
Q_DECLARE_METATYPE(Maker)

namespace {

template<typename Class>
Shape *make(QObject *parent)
{
    return new Class(parent);
}

void addClassRows()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<bool>("filled");
    QTest::newRow("Rectangle") << Maker(make<Rectangle>) << true;
    QTest::newRow("RoundedRectangle") << Maker(make<RoundedRectangle>) << true;
    QTest::newRow("Ellipse") << Maker(make<Ellipse>) << true;
    QTest::newRow("Polygon") << Maker(make<Polygon>) << false;
    QTest::newRow("Polyline") << Maker(make<Polyline>) << false;
    QTest::newRow("PolylineF") << Maker(make<PolylineF>) << false;
}

} // namespace

class tst_ShapeSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newShapeHasASolidLineOneUnitWide_data() { addClassRows(); }
    void newShapeHasASolidLineOneUnitWide();
    void onlyPolylinesAreNotFilledAtFirst_data() { addClassRows(); }
    void onlyPolylinesAreNotFilledAtFirst();
    void coloursAreInvalidAtFirst_data() { addClassRows(); }
    void coloursAreInvalidAtFirst();
    void parentIsPassedOnAndTheBackgroundIsTransparent_data() { addClassRows(); }
    void parentIsPassedOnAndTheBackgroundIsTransparent();

    void anotherValueIsStoredAndRepainted_data();
    void anotherValueIsStoredAndRepainted();
    void storedValueAgainDoesNothing_data();
    void storedValueAgainDoesNothing();
    void colourOrFillRepaintsEvenWhenEqual_data();
    void colourOrFillRepaintsEvenWhenEqual();

    void everySetterKeepsToItsOwnField();
    void anyLineWidthIsStored_data();
    void anyLineWidthIsStored();
    void disabledBackgroundAnswersTheDisabledForeground();
    void disabledBackgroundAloneStaysInvisibleToItsGetter();
    void repaintOfASetterReportsTheBounds();
};

void tst_ShapeSettings::newShapeHasASolidLineOneUnitWide()
{
    QFETCH(Maker, maker);

    const std::unique_ptr<Shape> shape(maker(nullptr));

    QCOMPARE(shape->getLineStyle(), Qt::SolidLine);
    QCOMPARE(shape->getCapStyle(), Qt::SquareCap);
    QCOMPARE(shape->getJoinStyle(), Qt::MiterJoin);
    QCOMPARE(shape->getLineWidth(), 1);
}

void tst_ShapeSettings::onlyPolylinesAreNotFilledAtFirst()
{
    QFETCH(Maker, maker);
    QFETCH(bool, filled);

    const std::unique_ptr<Shape> shape(maker(nullptr));

    QCOMPARE(shape->getFill(), filled);
}

void tst_ShapeSettings::coloursAreInvalidAtFirst()
{
    QFETCH(Maker, maker);

    const std::unique_ptr<Shape> shape(maker(nullptr));

    QVERIFY(!shape->getEnabledFGColor().isValid());
    QVERIFY(!shape->getEnabledBGColor().isValid());
    QVERIFY(!shape->getDisabledFGColor().isValid());
    QVERIFY(!shape->getDisabledBGColor().isValid());
    shape->setMinimumSize(QSize(5, 5)); // kept beside them
    QVERIFY(!shape->getDisabledFGColor().isValid());
}

void tst_ShapeSettings::parentIsPassedOnAndTheBackgroundIsTransparent()
{
    QFETCH(Maker, maker);
    QObject owner;

    Shape *shape = maker(&owner);

    QCOMPARE(shape->parent(), &owner);
    QCOMPARE(shape->getParentFigure(), nullptr);
    QCOMPARE(shape->getBackgroundColor(), QColor(Qt::transparent));
}

void tst_ShapeSettings::anotherValueIsStoredAndRepainted_data()
{
    QTest::addColumn<Setter>("setter");
    QTest::newRow("line style") << Setter([](Shape &s) { s.setLineStyle(Qt::DotLine); });
    QTest::newRow("cap style") << Setter([](Shape &s) { s.setCapStyle(Qt::RoundCap); });
    QTest::newRow("join style") << Setter([](Shape &s) { s.setJoinStyle(Qt::RoundJoin); });
    QTest::newRow("line width") << Setter([](Shape &s) { s.setLineWidth(4); });
}

void tst_ShapeSettings::anotherValueIsStoredAndRepainted()
{
    QFETCH(Setter, setter);
    ShapeProbe<Rectangle> shape;

    setter(shape);

    QCOMPARE(shape.log, QStringList{QStringLiteral("repaint")});
}

void tst_ShapeSettings::storedValueAgainDoesNothing_data()
{
    anotherValueIsStoredAndRepainted_data();
}

void tst_ShapeSettings::storedValueAgainDoesNothing()
{
    QFETCH(Setter, setter);
    ShapeProbe<Rectangle> shape;
    setter(shape);
    shape.log.clear();

    setter(shape);

    QCOMPARE(shape.log, QStringList());
}

void tst_ShapeSettings::colourOrFillRepaintsEvenWhenEqual_data()
{
    QTest::addColumn<Setter>("setter");
    QTest::newRow("enabled foreground") << Setter([](Shape &s) { s.setEnabledFGColor(Qt::red); });
    QTest::newRow("enabled background") << Setter([](Shape &s) { s.setEnabledBGColor(Qt::red); });
    QTest::newRow("disabled foreground") << Setter([](Shape &s) { s.setDisabledFGColor(Qt::red); });
    QTest::newRow("disabled background") << Setter([](Shape &s) { s.setDisabledBGColor(Qt::red); });
    QTest::newRow("fill") << Setter([](Shape &s) { s.setFill(false); });
}

void tst_ShapeSettings::colourOrFillRepaintsEvenWhenEqual()
{
    QFETCH(Setter, setter);
    ShapeProbe<Rectangle> shape;
    const QString repaint = QStringLiteral("repaint");

    setter(shape);
    setter(shape);

    QCOMPARE(shape.log, QStringList({repaint, repaint}));
}

void tst_ShapeSettings::everySetterKeepsToItsOwnField()
{
    Rectangle shape;

    shape.setLineStyle(Qt::DashDotLine);
    shape.setCapStyle(Qt::FlatCap);
    shape.setJoinStyle(Qt::BevelJoin);
    shape.setLineWidth(7);
    shape.setEnabledFGColor(Qt::red);
    shape.setEnabledBGColor(Qt::green);
    shape.setDisabledFGColor(Qt::blue);
    shape.setFill(false);

    QCOMPARE(shape.getLineStyle(), Qt::DashDotLine);
    QCOMPARE(shape.getCapStyle(), Qt::FlatCap);
    QCOMPARE(shape.getJoinStyle(), Qt::BevelJoin);
    QCOMPARE(shape.getLineWidth(), 7);
    QCOMPARE(shape.getEnabledFGColor(), QColor(Qt::red));
    QCOMPARE(shape.getEnabledBGColor(), QColor(Qt::green));
    QCOMPARE(shape.getDisabledFGColor(), QColor(Qt::blue));
    QCOMPARE(shape.getFill(), false);
}

void tst_ShapeSettings::anyLineWidthIsStored_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -3;
    QTest::newRow("wide") << 1000;
}

void tst_ShapeSettings::anyLineWidthIsStored()
{
    QFETCH(int, width);
    Rectangle shape;

    shape.setLineWidth(width);

    QCOMPARE(shape.getLineWidth(), width);
}

void tst_ShapeSettings::disabledBackgroundAnswersTheDisabledForeground()
{
    Rectangle shape;

    shape.setDisabledBGColor(Qt::red);
    shape.setDisabledFGColor(Qt::blue);

    QCOMPARE(shape.getDisabledBGColor(), QColor(Qt::blue));
    QCOMPARE(shape.getDisabledFGColor(), QColor(Qt::blue));
}

void tst_ShapeSettings::disabledBackgroundAloneStaysInvisibleToItsGetter()
{
    Rectangle shape;

    shape.setDisabledBGColor(Qt::red);

    QVERIFY(!shape.getDisabledBGColor().isValid());
    QVERIFY(!shape.getDisabledFGColor().isValid());
}

void tst_ShapeSettings::repaintOfASetterReportsTheBounds()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new FreeformLayout(&root));
    Rectangle shape;
    root.add(&shape);
    shape.setBounds(QRect(10, 20, 30, 40));
    manager.clear();

    shape.setLineWidth(9);

    QCOMPARE(manager.dirtyRects(&shape), QList<QRect>{QRect(10, 20, 30, 40)});
}

QTEST_MAIN(tst_ShapeSettings)
#include "tst_shape_settings.moc"
