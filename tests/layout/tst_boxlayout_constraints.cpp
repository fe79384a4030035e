#include "layout_fixtures.h"
#include "locatorprobe.h"

#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Counts what a layout does to it.
class WatchedFigure : public SizedFigure
{
public:
    using SizedFigure::SizedFigure;
    QList<QRect> given;
    int validations = 0;
    QRect boundsWhenValidated;

    void setBounds(const QRect &rect) override
    {
        given.append(rect);
        SizedFigure::setBounds(rect);
    }
    void validate() override
    {
        ++validations;
        boundsWhenValidated = getBounds();
        SizedFigure::validate();
    }
    void forget()
    {
        given.clear();
        validations = 0;
    }
};

// A figure with one of the two box layouts, which share their rules for constraints.
class BoxScene
{
public:
    explicit BoxScene(bool vertical)
    {
        if (vertical)
            use(std::make_unique<Opened<VBoxLayout>>());
        else
            use(std::make_unique<Opened<HBoxLayout>>());
    }

    Figure figure;
    std::unique_ptr<Layout> layout;
    std::function<bool(Figure *, const QVariant &)> apply;

private:
    template<class Box>
    void use(std::unique_ptr<Box> box)
    {
        apply = [opened = box.get()](Figure *child, const QVariant &constraint) {
            return opened->applyConstraint(child, constraint);
        };
        figure.setLayoutManager(box.get());
        layout = std::move(box);
    }
};

void addBothLayouts()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("horizontal") << false;
    QTest::newRow("vertical") << true;
}

} // namespace

class tst_BoxLayoutConstraints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sizeIsStoredRaisedToTheMinimum_data();
    void sizeIsStoredRaisedToTheMinimum();
    void addRaisesItsConstraintToo_data() { addBothLayouts(); }
    void addRaisesItsConstraintToo();
    void constraintOfNullOrStrangerIsRefused_data() { addBothLayouts(); }
    void constraintOfNullOrStrangerIsRefused();

    void sizeBecomesTheSizeOfTheBounds_data() { addBothLayouts(); }
    void sizeBecomesTheSizeOfTheBounds();
    void resizedChildIsValidatedAfterwards_data() { addBothLayouts(); }
    void resizedChildIsValidatedAfterwards();
    void childOfTheRightSizeIsLeftAlone_data() { addBothLayouts(); }
    void childOfTheRightSizeIsLeftAlone();
    void negativeDimensionsAreResolvedByTheChild_data() { addBothLayouts(); }
    void negativeDimensionsAreResolvedByTheChild();
    void otherConstraintsResizeNothing_data() { addBothLayouts(); }
    void otherConstraintsResizeNothing();
    void applyingNothingIsRefused_data() { addBothLayouts(); }
    void applyingNothingIsRefused();
    void locatorPlacesItsChild_data() { addBothLayouts(); }
    void locatorPlacesItsChild();
};

void tst_BoxLayoutConstraints::sizeIsStoredRaisedToTheMinimum_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QVariant>("stored");

    // The child's minimum size is 8 x 12.
    const QList<bool> both{false, true};
    for (const bool vertical : both) {
        const auto row = [vertical](const char *name, const QVariant &given,
                                    const QVariant &stored) {
            QTest::addRow("%s: %s", vertical ? "vertical" : "horizontal", name)
                << vertical << given << stored;
        };
        row("above", QSize(20, 30), QSize(20, 30));
        row("below", QSize(5, 5), QSize(8, 12));
        row("narrow", QSize(5, 30), QSize(8, 30));
        row("flat", QSize(20, 5), QSize(20, 12));
        row("zero", QSize(0, 0), QSize(8, 12));
        row("negative stays", QSize(-1, -3), QSize(-1, -3));
        row("negative width stays", QSize(-1, 5), QSize(-1, 12));
        row("negative height stays", QSize(5, -1), QSize(8, -1));
        row("floating, above", QSizeF(8.5, 12.25), QSizeF(8.5, 12.25));
        row("floating, below", QSizeF(7.75, 0), QSizeF(8, 12));
        row("floating, negative stays", QSizeF(-0.5, 3.5), QSizeF(-0.5, 12));
        row("floating, negative height stays", QSizeF(3.5, -0.5), QSizeF(8, -0.5));
        row("rectangle", QRect(1, 2, 3, 4), QRect(1, 2, 3, 4));
        row("number", 5, 5);
        row("nothing", QVariant(), QVariant());
    }
}

void tst_BoxLayoutConstraints::sizeIsStoredRaisedToTheMinimum()
{
    QFETCH(bool, vertical);
    QFETCH(QVariant, given);
    QFETCH(QVariant, stored);
    BoxScene scene(vertical);
    SizedFigure child(QSize(50, 60), QSize(8, 12));
    scene.layout->add(&child, QStringLiteral("former"));

    QVERIFY(scene.layout->setConstraint(&child, given));

    QCOMPARE(scene.layout->getConstraint(&child).typeId(), given.typeId());
    QCOMPARE(scene.layout->getConstraint(&child), stored);
}

void tst_BoxLayoutConstraints::addRaisesItsConstraintToo()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    SizedFigure child(QSize(50, 60), QSize(8, 12));

    scene.figure.add(&child, QSize(5, 30));

    QCOMPARE(scene.layout->getConstraint(&child), QVariant(QSize(8, 30)));
    QCOMPARE(child.getBounds(), QRect(0, 0, 8, 30));
}

void tst_BoxLayoutConstraints::constraintOfNullOrStrangerIsRefused()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    SizedFigure stranger;

    QVERIFY(!scene.layout->setConstraint(nullptr, QSize(5, 5)));
    QVERIFY(!scene.layout->setConstraint(nullptr, QSizeF(5, 5)));
    QVERIFY(!scene.layout->setConstraint(&stranger, QSize(5, 5)));
    QVERIFY(!scene.layout->setConstraint(&stranger, QSizeF(5, 5)));

    QVERIFY(!stranger.getBounds().isValid());
}

void tst_BoxLayoutConstraints::sizeBecomesTheSizeOfTheBounds()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    SizedFigure child;
    scene.layout->add(&child);
    child.setBounds(QRect(10, 20, 30, 40));

    QVERIFY(scene.apply(&child, QSize(5, 6)));

    QCOMPARE(child.getBounds(), QRect(10, 20, 5, 6));
}

void tst_BoxLayoutConstraints::resizedChildIsValidatedAfterwards()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    WatchedFigure child;
    scene.layout->add(&child);
    child.setBounds(QRect(10, 20, 30, 40));
    child.forget();

    scene.apply(&child, QSize(30, 41));

    QCOMPARE(child.given, QList<QRect>{QRect(10, 20, 30, 41)});
    QCOMPARE(child.validations, 1);
    QCOMPARE(child.boundsWhenValidated, QRect(10, 20, 30, 41));
}

void tst_BoxLayoutConstraints::childOfTheRightSizeIsLeftAlone()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    WatchedFigure child;
    scene.layout->add(&child);
    child.setBounds(QRect(10, 20, 30, 40));
    child.forget();

    QVERIFY(scene.apply(&child, QSize(30, 40)));

    QVERIFY(child.given.isEmpty());
    QCOMPARE(child.validations, 0);
}

void tst_BoxLayoutConstraints::negativeDimensionsAreResolvedByTheChild()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    SizedFigure child(QSize(50, 60));
    scene.layout->add(&child);
    child.setBounds(QRect(10, 20, 30, 40));

    QVERIFY(scene.apply(&child, QSize(-1, 5)));
    QCOMPARE(child.getBounds(), QRect(10, 20, 50, 5));

    QVERIFY(scene.apply(&child, QSize(5, -1)));
    QCOMPARE(child.getBounds(), QRect(10, 20, 5, 60));
}

void tst_BoxLayoutConstraints::otherConstraintsResizeNothing()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    WatchedFigure child;
    scene.layout->add(&child);
    child.setBounds(QRect(10, 20, 30, 40));
    child.forget();

    QVERIFY(scene.apply(&child, QSizeF(5, 6)));
    QVERIFY(scene.apply(&child, QRect(1, 2, 3, 4)));
    QVERIFY(scene.apply(&child, 5));

    QVERIFY(child.given.isEmpty());
    QCOMPARE(child.validations, 0);
}

void tst_BoxLayoutConstraints::applyingNothingIsRefused()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    WatchedFigure child;
    scene.layout->add(&child);
    child.forget();

    QVERIFY(!scene.apply(&child, QVariant()));
    QVERIFY(!scene.apply(nullptr, QSize(5, 6)));

    QVERIFY(child.given.isEmpty());
    QCOMPARE(child.validations, 0);
}

void tst_BoxLayoutConstraints::locatorPlacesItsChild()
{
    QFETCH(bool, vertical);
    BoxScene scene(vertical);
    SizedFigure child;
    LocatorProbe locator(QRect(5, 6, 7, 8));

    QVERIFY(scene.apply(&child, asConstraint(&locator)));

    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

QTEST_MAIN(tst_BoxLayoutConstraints)
#include "tst_boxlayout_constraints.moc"
