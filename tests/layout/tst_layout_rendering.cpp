#include "layout_fixtures.h"

#include <countingfigure.h>
#include <pixels.h>
#include <recordingdevice.h>

#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Remembers with what it was painted; paints nothing.
class OptionFigure : public Figure
{
public:
    QList<QRect> rects;
    QList<QPainter *> painters;
    QList<QRectF> clips;
    QString text;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        rects.append(option.rect);
        painters.append(painter);
        clips.append(painter->clipBoundingRect());
        text = option.text;
    }
};

struct ColoredFigure : Figure
{
    ColoredFigure(const QColor &color, const QRect &bounds)
        : Figure(nullptr, color)
    {
        setBounds(bounds);
    }
};

QStyleOptionViewItem optionFor(const QRect &area)
{
    QStyleOptionViewItem option;
    option.rect = area;
    return option;
}

QImage picture(Layout *layout, const QRect &area)
{
    return paintedImage(QSize(100, 100),
                        [&](QPainter *painter) { layout->render(painter, optionFor(area)); });
}

} // namespace

class tst_LayoutRendering : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void laterChildrenArePaintedOverEarlierOnes();
    void hiddenChildrenAreNotPainted();
    void disabledChildrenArePainted();
    void paintingIsClippedToTheOption();
    void paintingOfALayoutThatDoesNotClipGoesBeyond();
    void clipNarrowsTheOneInForce();
    void withoutClippingTheClipInForceStays();
    void clipOfAnEmptyOptionHidesEverything();
    void painterIsRestored();
    void clipThatIsSwitchedOffStaysOff();
    void childrenGetTheOptionUnchanged();
    void figureHandsItsClientAreaToTheChildren();
    void childrenOfARelativeLayoutArePaintedInTheClientArea();
    void childrenOfAnAbsoluteLayoutArePaintedAtTheirBounds();
    void childrenOutsideTheDamageAreSkipped();
    void eachChildIsClippedAlike();
};

void tst_LayoutRendering::laterChildrenArePaintedOverEarlierOnes()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    ColoredFigure bottom(Qt::red, QRect(10, 10, 30, 30));
    ColoredFigure top(Qt::blue, QRect(20, 20, 30, 30));
    scene.layout.add(&bottom);
    scene.layout.add(&top);

    QImage image = picture(&scene.layout, QRect(0, 0, 100, 100));
    QVERIFY(isFilled(image, QRect(20, 20, 30, 30), Qt::blue));
    QVERIFY(isFilled(image, QRect(10, 10, 30, 10), Qt::red));
    QCOMPARE(countPixels(image, Qt::red), 900 - 400);

    scene.layout.remove(&top);
    scene.layout.add(&top, QVariant(), 0);

    image = picture(&scene.layout, QRect(0, 0, 100, 100));
    QVERIFY(isFilled(image, QRect(10, 10, 30, 30), Qt::red));
    QCOMPARE(countPixels(image, Qt::blue), 900 - 400);
}

void tst_LayoutRendering::hiddenChildrenAreNotPainted()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure shown;
    CountingFigure hidden;
    scene.layout.add(&shown);
    scene.layout.add(&hidden);
    hidden.setVisible(false);

    picture(&scene.layout, QRect(0, 0, 100, 100));

    QCOMPARE(hidden.calls().render, 0);
    QCOMPARE(shown.calls().render, 1);
}

void tst_LayoutRendering::disabledChildrenArePainted()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    ColoredFigure child(Qt::red, QRect(10, 10, 30, 30));
    scene.layout.add(&child);
    child.setEnabled(false);

    const QImage image = picture(&scene.layout, QRect(0, 0, 100, 100));

    QCOMPARE(extentOf(image, Qt::red), QRect(10, 10, 30, 30));
}

void tst_LayoutRendering::paintingIsClippedToTheOption()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    ColoredFigure child(Qt::red, QRect(10, 10, 50, 50));
    scene.layout.add(&child);

    const QImage image = picture(&scene.layout, QRect(20, 30, 15, 5));

    QCOMPARE(extentOf(image, Qt::red), QRect(20, 30, 15, 5));
}

void tst_LayoutRendering::paintingOfALayoutThatDoesNotClipGoesBeyond()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.layout.clips = false;
    ColoredFigure child(Qt::red, QRect(10, 10, 50, 50));
    scene.layout.add(&child);

    const QImage image = picture(&scene.layout, QRect(20, 30, 15, 5));

    QCOMPARE(extentOf(image, Qt::red), QRect(10, 10, 50, 50));
}

void tst_LayoutRendering::clipNarrowsTheOneInForce()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    ColoredFigure child(Qt::red, QRect(0, 0, 100, 100));
    scene.layout.add(&child);

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        painter->setClipRect(QRect(0, 0, 30, 30));
        scene.layout.render(painter, optionFor(QRect(20, 20, 50, 50)));
    });

    QCOMPARE(extentOf(image, Qt::red), QRect(20, 20, 10, 10));
}

void tst_LayoutRendering::withoutClippingTheClipInForceStays()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    scene.layout.clips = false;
    ColoredFigure child(Qt::red, QRect(0, 0, 100, 100));
    scene.layout.add(&child);

    const QImage image = paintedImage(QSize(100, 100), [&](QPainter *painter) {
        painter->setClipRect(QRect(0, 0, 30, 30));
        scene.layout.render(painter, optionFor(QRect(20, 20, 50, 50)));
    });

    QCOMPARE(extentOf(image, Qt::red), QRect(0, 0, 30, 30));
}

void tst_LayoutRendering::clipOfAnEmptyOptionHidesEverything()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    OptionFigure child;
    scene.layout.add(&child);

    picture(&scene.layout, QRect());

    QCOMPARE(child.clips.count(), 1);
    QVERIFY(child.clips.first().isEmpty());
}

void tst_LayoutRendering::painterIsRestored()
{
    class Spoiler : public Figure
    {
    public:
        void render(QPainter *painter, const QStyleOptionViewItem &) override
        {
            painter->setPen(Qt::red);
            painter->translate(7, 7);
        }
    };
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    Spoiler child;
    scene.layout.add(&child);
    RecordingDevice device;
    QPainter painter(&device);
    painter.setPen(Qt::green);

    scene.layout.render(&painter, optionFor(QRect(20, 30, 15, 5)));

    QVERIFY(!painter.hasClipping());
    QVERIFY(painter.transform().isIdentity());
    QCOMPARE(painter.pen().color(), QColor(Qt::green));
}

void tst_LayoutRendering::clipThatIsSwitchedOffStaysOff()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    RecordingDevice device;
    QPainter painter(&device);
    painter.setClipRect(QRect(0, 0, 10, 10));
    painter.setClipping(false);

    scene.layout.render(&painter, optionFor(QRect(20, 30, 15, 5)));

    QVERIFY(!painter.hasClipping());
}

void tst_LayoutRendering::childrenGetTheOptionUnchanged()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    OptionFigure a;
    OptionFigure b;
    a.setBounds(QRect(1, 1, 2, 2));
    scene.layout.add(&a);
    scene.layout.add(&b);
    RecordingDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option = optionFor(QRect(20, 30, 15, 5));
    option.text = QStringLiteral("mine");

    scene.layout.render(&painter, option);

    QCOMPARE(a.rects, QList<QRect>{QRect(20, 30, 15, 5)});
    QCOMPARE(b.rects, a.rects);
    QCOMPARE(a.painters, QList<QPainter *>{&painter});
    QCOMPARE(a.text, QStringLiteral("mine"));
    QCOMPARE(b.text, QStringLiteral("mine"));
}

void tst_LayoutRendering::figureHandsItsClientAreaToTheChildren()
{
    Scene<ProbeLayout> scene(QRect(10, 20, 50, 40));
    scene.figure.setMargin(5);
    OptionFigure child;
    scene.layout.add(&child);
    RecordingDevice device;
    QPainter painter(&device);

    scene.figure.render(&painter, optionFor(QRect(0, 0, 30, 1000)));

    QCOMPARE(child.rects, QList<QRect>{QRect(15, 25, 15, 30)});
    QCOMPARE(child.clips, QList<QRectF>{QRectF(15, 25, 15, 30)});
}

void tst_LayoutRendering::childrenOfARelativeLayoutArePaintedInTheClientArea()
{
    Scene<ProbeLayout> scene(QRect(10, 20, 50, 40));
    scene.figure.setMargin(5);
    ColoredFigure child(Qt::red, QRect(1, 2, 10, 10));
    scene.layout.add(&child);

    const QImage image = picture(&scene.layout, QRect(0, 0, 100, 100));

    QCOMPARE(extentOf(image, Qt::red), QRect(16, 27, 10, 10));
}

void tst_LayoutRendering::childrenOfAnAbsoluteLayoutArePaintedAtTheirBounds()
{
    Scene<ProbeLayout> scene(QRect(10, 20, 50, 40));
    scene.figure.setMargin(5);
    scene.layout.relative = false;
    ColoredFigure child(Qt::red, QRect(1, 2, 10, 10));
    scene.layout.add(&child);

    const QImage image = picture(&scene.layout, QRect(0, 0, 100, 100));

    QCOMPARE(extentOf(image, Qt::red), QRect(1, 2, 10, 10));
}

void tst_LayoutRendering::childrenOutsideTheDamageAreSkipped()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    CountingFigure inside;
    CountingFigure outside;
    inside.setBounds(QRect(0, 0, 10, 10));
    outside.setBounds(QRect(50, 50, 10, 10));
    scene.layout.add(&inside);
    scene.layout.add(&outside);

    picture(&scene.layout, QRect(0, 0, 20, 20));

    QCOMPARE(inside.calls().drawFigure, 1);
    QCOMPARE(outside.calls().drawFigure, 0);
}

void tst_LayoutRendering::eachChildIsClippedAlike()
{
    Scene<ProbeLayout> scene(QRect(0, 0, 100, 100));
    OptionFigure a;
    OptionFigure b;
    scene.layout.add(&a);
    scene.layout.add(&b);

    picture(&scene.layout, QRect(20, 30, 15, 5));

    QCOMPARE(a.clips, QList<QRectF>{QRectF(20, 30, 15, 5)});
    QCOMPARE(b.clips, a.clips);
}

QTEST_MAIN(tst_LayoutRendering)
#include "tst_layout_rendering.moc"
