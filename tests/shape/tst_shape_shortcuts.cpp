#include <figure/workcounters_p.h>

#include <figura/connection/Polyline.h>
#include <figura/figure/Border.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QRandomGenerator>
#include <QStyleOptionViewItem>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;

// Rectangles and lines may be drawn without their paths. Which way they were drawn must not be
// seen.

namespace {

// Draws the path, whatever the painter is like.
template<class Base>
class Plain : public Base
{
public:
    using Base::Base;

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem & /*option*/) const override
    {
        painter->drawPath(this->absolutePath(this->getPainterPath()));
    }
};

using PathRectangle = Plain<Rectangle>;
using PathLine = Plain<Polyline>;

struct Look
{
    QRect bounds;
    QColor line;
    QColor fill;
    bool isFilled;
    int lineWidth;
    Qt::PenStyle style;
};

Look randomLook(QRandomGenerator &random, int from)
{
    const auto color = [&random]() {
        return QColor::fromHsv(random.bounded(360), 200, 200, random.bounded(4) ? 255 : 120);
    };
    return {QRect(random.bounded(from, 100), random.bounded(from, 80), random.bounded(1, 60),
                  random.bounded(1, 50)),
            color(),
            color(),
            random.bounded(4) != 0,
            random.bounded(3) ? 1 : random.bounded(0, 6),
            random.bounded(6) ? Qt::SolidLine : Qt::DashLine};
}

void dress(Shape &shape, const Look &look)
{
    shape.setEnabledFGColor(look.line);
    shape.setEnabledBGColor(look.fill);
    shape.setFill(look.isFilled);
    shape.setLineWidth(look.lineWidth);
    shape.setLineStyle(look.style);
    shape.setBounds(look.bounds);
    shape.rebuildPath();
}

QImage picture(Shape &shape, const QTransform &transform, const QRect &clip, bool smooth)
{
    QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(240, 240, 200));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    if (clip.isValid())
        painter.setClipRect(clip);
    painter.setTransform(transform);
    QStyleOptionViewItem option;
    option.rect = QRect(-1000, -1000, 3000, 3000);
    shape.render(&painter, option);
    return image;
}

// Upright, and at all distances from the middle of a pixel.
QTransform randomTransform(QRandomGenerator &random)
{
    const auto part = [&random](int count) { return (random.bounded(count) + 1.0) / 64; };
    const double scale = random.bounded(2) ? part(256) : 0.03 + random.generateDouble() * 3;
    const double other = random.bounded(4) ? scale : part(128);
    const QPointF moved = random.bounded(2)
                              ? QPointF(part(320), part(320))
                              : QPointF(random.generateDouble(), random.generateDouble()) * 20;
    return QTransform::fromTranslate(moved.x(), moved.y()).scale(scale, other);
}

struct Segment
{
    QPoint from;
    QPoint to;
};

Segment randomSegment(QRandomGenerator &random)
{
    const auto place = [&random]() { return QPoint(random.bounded(110), random.bounded(90)); };
    Segment segment{place(), place()};
    if (random.bounded(3) == 0)
        segment.to.setX(segment.from.x());
    else if (random.bounded(2))
        segment.to.setY(segment.from.y());
    if (random.bounded(4) == 0) // shorter than a pixel when it is scaled down
        segment.to = segment.from + QPoint(random.bounded(3), random.bounded(2));
    return segment;
}

void dress(Polyline &line, const Look &look, const Segment &segment)
{
    line.setEnabledFGColor(look.line);
    line.setEnabledBGColor(look.fill);
    line.setFill(look.isFilled);
    line.setLineWidth(look.lineWidth);
    line.setLineStyle(look.style);
    line.setLinePoints({segment.from, segment.to});
    line.rebuildPath();
}

using Preparation = std::function<void(QPainter *)>;

// With a painter that was prepared for all that is painted.
QImage special(Shape *shape, const Preparation &prepare)
{
    QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(240, 240, 200));
    QPainter painter(&image);
    prepare(&painter);
    QStyleOptionViewItem option;
    option.rect = QRect(-1000, -1000, 3000, 3000);
    shape->render(&painter, option);
    return image;
}

// Takes other pens and brushes than those of its settings.
template<class Base>
class Prepared : public Base
{
public:
    explicit Prepared(const Preparation &prepare)
        : Base(nullptr)
        , m_prepare(prepare)
    {
    }

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        m_prepare(painter);
        Base::drawShape(painter, option);
    }

private:
    const Preparation m_prepare;
};

} // namespace

Q_DECLARE_METATYPE(Preparation)

class tst_Shape_Shortcuts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void rectangleLooksLikeItsPath_data();
    void rectangleLooksLikeItsPath();
    void rectangleLooksLikeItsPathAtAnyScale();
    void lineLooksLikeItsPath_data();
    void lineLooksLikeItsPath();
    void lineLooksLikeItsPathAtAnyScale();
    void filledLineLooksLikeItsPath();
    void mirroredShapesLookLikeTheirPaths();
    void grayImagesSeeThePath_data();
    void grayImagesSeeThePath();
    void rectangleLooksTheSameWhereTheDeviceEnds();
    void specialPaintersSeeThePath_data();
    void specialPaintersSeeThePath();
    void specialPensAndBrushesSeeThePath_data();
    void specialPensAndBrushesSeeThePath();
    void specialBoundsSeeThePath_data();
    void specialBoundsSeeThePath();
    void partsOfPixelsSeeThePath_data();
    void partsOfPixelsSeeThePath();
    void vectorDevicesSeeThePath();
    void linesOnPaperAreStroked();
    void pathIsTheOneThatWasDue();
    void pathThatWasChangedIsMadeOfTheSamePointsAgain();
    void borderIsHandedTheRectangleOfItsShape();
    void layoutWithoutChildrenIsLaidOutForThePaint();
    void layoutOfTheApplicationPaintsAlsoWithoutChildren();
    void shapeWithoutChildrenIsHighlighted();
};

void tst_Shape_Shortcuts::rectangleLooksLikeItsPath_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<bool>("isSmooth");
    QTest::newRow("as it is") << QTransform() << false;
    QTest::newRow("moved") << QTransform::fromTranslate(7, -3) << false;
    QTest::newRow("moved by parts of a pixel") << QTransform::fromTranslate(0.3, 0.7) << false;
    QTest::newRow("doubled") << QTransform::fromScale(2, 2) << false;
    QTest::newRow("a little larger") << QTransform::fromScale(1.3, 1.3) << false;
    QTest::newRow("smaller") << QTransform::fromScale(0.3, 0.3) << false;
    QTest::newRow("hardly to be seen") << QTransform::fromScale(0.04, 0.03) << false;
    QTest::newRow("upside down") << QTransform(1, 0, 0, -0.5, 0, 70) << false;
    QTest::newRow("turned") << QTransform().rotate(10) << false;
    QTest::newRow("smooth") << QTransform() << true;
}

void tst_Shape_Shortcuts::rectangleLooksLikeItsPath()
{
    QFETCH(QTransform, transform);
    QFETCH(bool, isSmooth);
    QRandomGenerator random(7);

    for (int i = 0; i < 300; ++i) {
        const Look look = randomLook(random, 4); // with all its corners, moved or not
        const QRect clip = random.bounded(3) ? QRect() : QRect(20, 10, 50, 40);
        Rectangle direct(nullptr);
        PathRectangle drawn(nullptr);
        dress(direct, look);
        dress(drawn, look);

        QCOMPARE(picture(direct, transform, clip, isSmooth),
                 picture(drawn, transform, clip, isSmooth));
    }
}

void tst_Shape_Shortcuts::rectangleLooksLikeItsPathAtAnyScale()
{
    QRandomGenerator random(9);

    for (int i = 0; i < 3000; ++i) {
        Look look = randomLook(random, 0);
        look.lineWidth = random.bounded(2);
        look.style = Qt::SolidLine;
        const QTransform transform = randomTransform(random);
        const QRect clip = random.bounded(3) ? QRect() : QRect(20, 10, 50, 40);
        Rectangle direct(nullptr);
        PathRectangle drawn(nullptr);
        dress(direct, look);
        dress(drawn, look);

        QCOMPARE(picture(direct, transform, clip, false), picture(drawn, transform, clip, false));
    }
}

void tst_Shape_Shortcuts::lineLooksLikeItsPath_data()
{
    rectangleLooksLikeItsPath_data();
}

void tst_Shape_Shortcuts::lineLooksLikeItsPath()
{
    QFETCH(QTransform, transform);
    QFETCH(bool, isSmooth);
    QRandomGenerator random(10);

    for (int i = 0; i < 300; ++i) {
        Look look = randomLook(random, 4);
        look.isFilled = false;
        const Segment segment = randomSegment(random);
        const QRect clip = random.bounded(3) ? QRect() : QRect(20, 10, 50, 40);
        Polyline direct(nullptr);
        PathLine drawn(nullptr);
        dress(direct, look, segment);
        dress(drawn, look, segment);

        QCOMPARE(picture(direct, transform, clip, isSmooth),
                 picture(drawn, transform, clip, isSmooth));
    }
}

void tst_Shape_Shortcuts::lineLooksLikeItsPathAtAnyScale()
{
    QRandomGenerator random(11);

    for (int i = 0; i < 3000; ++i) {
        Look look = randomLook(random, 0);
        look.lineWidth = random.bounded(2);
        look.style = Qt::SolidLine;
        look.isFilled = false;
        const Segment segment = randomSegment(random);
        const QTransform transform = randomTransform(random);
        const QRect clip = random.bounded(3) ? QRect() : QRect(20, 10, 50, 40);
        Polyline direct(nullptr);
        PathLine drawn(nullptr);
        dress(direct, look, segment);
        dress(drawn, look, segment);

        QCOMPARE(picture(direct, transform, clip, false), picture(drawn, transform, clip, false));
    }
}

void tst_Shape_Shortcuts::filledLineLooksLikeItsPath()
{
    const Look look{{}, Qt::red, Qt::blue, true, 1, Qt::SolidLine};
    const Segment segment{QPoint(10, 20), QPoint(70, 20)};
    Polyline direct(nullptr);
    PathLine drawn(nullptr);
    dress(direct, look, segment);
    dress(drawn, look, segment);

    QCOMPARE(picture(direct, {}, {}, false), picture(drawn, {}, {}, false));
}

void tst_Shape_Shortcuts::mirroredShapesLookLikeTheirPaths()
{
    const Look look{QRect(10, 10, 50, 40), Qt::red, Qt::blue, true, 0, Qt::SolidLine};
    const Look line{{}, Qt::red, Qt::blue, false, 0, Qt::SolidLine};
    const Segment segment{QPoint(20, 60), QPoint(70, 60)};
    const QTransform mirrored(-1, 0, 0, 1, 110.5, 0);
    Rectangle direct(nullptr);
    PathRectangle drawn(nullptr);
    Polyline directLine(nullptr);
    PathLine drawnLine(nullptr);
    dress(direct, look);
    dress(drawn, look);
    dress(directLine, line, segment);
    dress(drawnLine, line, segment);

    QCOMPARE(picture(directLine, mirrored, {}, false), picture(drawnLine, mirrored, {}, false));
    QCOMPARE(picture(direct, mirrored, {}, false), picture(drawn, mirrored, {}, false));
}

void tst_Shape_Shortcuts::grayImagesSeeThePath_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("8 bits") << QImage::Format_Grayscale8;
    QTest::newRow("16 bits") << QImage::Format_Grayscale16;
}

// There a colour that is filled comes out as another gray than one that is stroked.
void tst_Shape_Shortcuts::grayImagesSeeThePath()
{
    QFETCH(QImage::Format, format);
    const auto paint = [format](Shape *shape, const QColor &line) {
        dress(*shape, {QRect(10, 10, 50, 40), line, Qt::white, true, 1, Qt::SolidLine});
        QImage image(120, 100, format);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 120, 100);
        shape->render(&painter, option);
        return image;
    };

    for (int hue = 0; hue < 360; hue += 10) {
        Rectangle direct(nullptr);
        PathRectangle drawn(nullptr);
        const QColor line = QColor::fromHsv(hue, 250, 130);
        QCOMPARE(paint(&direct, line), paint(&drawn, line));
    }
}

// What lies outside may be scrolled into sight later, without being painted again.
void tst_Shape_Shortcuts::rectangleLooksTheSameWhereTheDeviceEnds()
{
    QRandomGenerator random(8);

    for (int i = 0; i < 300; ++i) {
        Look look = randomLook(random, -20);
        look.lineWidth = 1;
        look.style = Qt::SolidLine;
        look.line.setAlpha(255);
        look.fill.setAlpha(255);
        Rectangle rectangle(nullptr);
        dress(rectangle, look);
        const QImage cut = picture(rectangle, {}, {}, false);
        const QImage moved = picture(rectangle, QTransform::fromTranslate(30, 30), {}, false);

        QCOMPARE(cut.copy(0, 0, 90, 70), moved.copy(30, 30, 90, 70));
    }
}

void tst_Shape_Shortcuts::specialPaintersSeeThePath_data()
{
    QTest::addColumn<Preparation>("prepare");
    const auto row = [](const char *name, const Preparation &prepare) {
        QTest::newRow(name) << prepare;
    };
    row("half seen", [](QPainter *painter) { painter->setOpacity(0.5); });
    row("moved by part of a column", [](QPainter *painter) { painter->translate(0.3, 0); });
    row("moved by part of a row", [](QPainter *painter) { painter->translate(0, 0.7); });
    row("moved far away", [](QPainter *painter) { painter->translate(1 << 25, 0); });
    row("moved far down", [](QPainter *painter) { painter->translate(0, 1 << 25); });
    row("subtracted", [](QPainter *painter) {
        painter->setCompositionMode(QPainter::CompositionMode_Difference);
    });
}

void tst_Shape_Shortcuts::specialPaintersSeeThePath()
{
    QFETCH(Preparation, prepare);
    const Look look{QRect(10, 10, 50, 40), Qt::red, Qt::blue, true, 1, Qt::SolidLine};
    const auto paint = [&](Shape *shape) {
        dress(*shape, look);
        return special(shape, prepare);
    };
    Rectangle direct(nullptr);
    PathRectangle drawn(nullptr);

    QCOMPARE(paint(&direct), paint(&drawn));
}

void tst_Shape_Shortcuts::specialPensAndBrushesSeeThePath_data()
{
    QTest::addColumn<Preparation>("prepare");
    const auto row = [](const char *name, const Preparation &prepare) {
        QTest::newRow(name) << prepare;
    };
    row("two pixels wide", [](QPainter *painter) {
        QPen pen(Qt::red, 2);
        pen.setCosmetic(true);
        painter->setPen(pen);
    });
    row("one unit wide", [](QPainter *painter) {
        QPen pen(Qt::red, 1);
        pen.setCosmetic(false);
        painter->setPen(pen);
    });
    row("patterned line", [](QPainter *painter) {
        QPen pen(QBrush(Qt::red, Qt::Dense4Pattern), 1);
        pen.setCosmetic(true);
        painter->setPen(pen);
    });
    row("patterned fill",
        [](QPainter *painter) { painter->setBrush(QBrush(Qt::blue, Qt::Dense4Pattern)); });
    row("hairline", [](QPainter *painter) { painter->setPen(QPen(Qt::red, 0)); });
}

void tst_Shape_Shortcuts::specialPensAndBrushesSeeThePath()
{
    QFETCH(Preparation, prepare);
    const Look look{QRect(10, 10, 50, 40), Qt::red, Qt::blue, true, 1, Qt::SolidLine};
    Prepared<Rectangle> direct(prepare);
    Prepared<PathRectangle> drawn(prepare);
    dress(direct, look);
    dress(drawn, look);

    QCOMPARE(picture(direct, {}, {}, false), picture(drawn, {}, {}, false));
}

void tst_Shape_Shortcuts::specialBoundsSeeThePath_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::newRow("a column") << QRect(10, 10, 1, 40);
    QTest::newRow("two columns") << QRect(10, 10, 2, 40);
    QTest::newRow("a row") << QRect(10, 10, 40, 1);
    QTest::newRow("two rows") << QRect(10, 10, 40, 2);
    QTest::newRow("a point") << QRect(10, 10, 1, 1);
    QTest::newRow("far away") << QRect(1 << 25, 10, 50, 40);
    QTest::newRow("far down") << QRect(10, 1 << 25, 50, 40);
    QTest::newRow("as far as it goes") << QRect(10, (1 << 30) + 10, 50, 40);
}

void tst_Shape_Shortcuts::specialBoundsSeeThePath()
{
    QFETCH(QRect, bounds);
    const Look look{bounds, Qt::red, Qt::blue, true, 1, Qt::SolidLine};
    const auto paint = [&](Shape *shape) {
        dress(*shape, look);
        QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = bounds.adjusted(-100, -100, 100, 100);
        if (bounds.x() > 100 || bounds.y() > 100)
            painter.translate(QPoint(10, 10) - bounds.topLeft());
        shape->render(&painter, option);
        return image;
    };
    Rectangle direct(nullptr);
    PathRectangle drawn(nullptr);

    QCOMPARE(paint(&direct), paint(&drawn));
}

void tst_Shape_Shortcuts::partsOfPixelsSeeThePath_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("part of a column") << QRectF(10.5, 10, 30, 20);
    QTest::newRow("part of a row") << QRectF(10, 10.25, 30, 20);
    QTest::newRow("part of a width") << QRectF(10, 10, 30.5, 20);
    QTest::newRow("part of a height") << QRectF(10, 10, 30, 20.75);
}

// Whoever announces a path may say where it lies.
void tst_Shape_Shortcuts::partsOfPixelsSeeThePath()
{
    QFETCH(QRectF, rect);
    const auto paint = [&rect](Shape *shape) {
        dress(*shape, {QRect(10, 10, 50, 40), Qt::red, Qt::blue, true, 1, Qt::SolidLine});
        shape->addNotify(); // from now on it listens
        Q_EMIT shape->pathChanged(rect);
        return picture(*shape, {}, {}, false);
    };
    Rectangle direct(nullptr);
    PathRectangle drawn(nullptr);

    const QImage image = paint(&direct);

    QCOMPARE(image, paint(&drawn));
    QCOMPARE(image.pixelColor(50, 40), QColor(240, 240, 200)); // outside of the new path
}

// A recording is played back on devices whose pixels nobody knows yet.
void tst_Shape_Shortcuts::vectorDevicesSeeThePath()
{
    const auto played = [](Shape *shape) {
        dress(*shape, {QRect(10, 10, 30, 20), Qt::red, Qt::blue, true, 1, Qt::SolidLine});
        QPicture recording;
        QPainter recorder(&recording);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 100, 100);
        shape->render(&recorder, option);
        recorder.end();
        QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(2, 2);
        recording.play(&painter);
        return image;
    };
    Rectangle direct(nullptr);
    PathRectangle drawn(nullptr);

    QCOMPARE(played(&direct), played(&drawn));
}

// A line on paper has a width; what fills pixels of the screen would be another one.
void tst_Shape_Shortcuts::linesOnPaperAreStroked()
{
    Rectangle rectangle(nullptr);
    dress(rectangle, {QRect(10, 10, 30, 20), Qt::red, Qt::blue, true, 1, Qt::SolidLine});
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);

    rectangle.render(&painter, option);
    painter.end();

    // The first page: behind the word and a line feed, packed. B* fills and strokes.
    const qsizetype begin = buffer.data().indexOf("stream") + 7;
    const QByteArray packed = buffer.data().mid(begin, buffer.data().indexOf("endstream") - begin);
    const QByteArray page = qUncompress(QByteArray("\0\0\x10\0", 4) + packed);
    QVERIFY(!page.isEmpty());
    QVERIFY2(page.contains("\nB*\n"), page.constData());
}

void tst_Shape_Shortcuts::pathIsTheOneThatWasDue()
{
    Ellipse ellipse(nullptr);
    ellipse.setBounds(QRect(0, 0, 41, 31));
    ellipse.rebuildPath();

    ellipse.setLineWidth(20);                 // keeps the inset of the path
    ellipse.setBounds(QRect(100, 0, 41, 31)); // not attached: the path stays

    QVERIFY(ellipse.contains(QPoint(20, 15)));
    QVERIFY(ellipse.contains(QPoint(2, 15)));
    QVERIFY(!ellipse.contains(QPoint(2, 2)));
    QVERIFY(!ellipse.contains(QPoint(120, 15)));
}

void tst_Shape_Shortcuts::pathThatWasChangedIsMadeOfTheSamePointsAgain()
{
    struct OpenLine : Polyline
    {
        using Polyline::painterPath;
    };
    OpenLine line;
    line.setLinePoints({QPoint(0, 0), QPoint(50, 40)});
    line.rebuildPath();
    const QRectF before = line.painterPath().boundingRect();
    line.painterPath().lineTo(500, 500);

    line.rebuildPath();

    QCOMPARE(line.painterPath().boundingRect(), before);
}

void tst_Shape_Shortcuts::borderIsHandedTheRectangleOfItsShape()
{
    struct Recorder : Border
    {
        void render(QPainter * /*painter*/, const QStyleOptionViewItem &option) const override
        {
            seen = option.rect;
        }
        mutable QRect seen;
    };
    Recorder border;
    Rectangle rectangle(nullptr);
    rectangle.setBounds(QRect(10, 20, 30, 40));
    rectangle.setBorder(&border);

    picture(rectangle, {}, {}, false);

    QCOMPARE(border.seen, QRect(10, 20, 30, 40));
}

void tst_Shape_Shortcuts::layoutWithoutChildrenIsLaidOutForThePaint()
{
    XYLayout layout;
    Rectangle rectangle(nullptr);
    rectangle.setBounds(QRect(10, 20, 30, 40));
    rectangle.setLayoutManager(&layout);
    const long before = workCounters().laidOut;

    picture(rectangle, {}, {}, false);
    picture(rectangle, {}, {}, false);

    QCOMPARE(workCounters().laidOut - before, 1L);
}

void tst_Shape_Shortcuts::layoutOfTheApplicationPaintsAlsoWithoutChildren()
{
    struct PaintingLayout : XYLayout
    {
        void render(QPainter *painter, const QStyleOptionViewItem &option) override
        {
            painter->fillRect(option.rect, Qt::green);
        }
    };
    PaintingLayout layout;
    Rectangle rectangle(nullptr);
    rectangle.setBounds(QRect(10, 20, 30, 40));
    rectangle.setLayoutManager(&layout);
    rectangle.validate(); // there is nothing left to lay out

    QCOMPARE(picture(rectangle, {}, {}, false).pixelColor(20, 30), QColor(Qt::green));
}

void tst_Shape_Shortcuts::shapeWithoutChildrenIsHighlighted()
{
    Rectangle rectangle(nullptr);
    rectangle.setBounds(QRect(10, 20, 30, 40));
    rectangle.rebuildPath();
    const QImage before = picture(rectangle, {}, {}, false);

    rectangle.highlightClientArea(true);

    QVERIFY(picture(rectangle, {}, {}, false) != before);
}

QTEST_MAIN(tst_Shape_Shortcuts)
#include "tst_shape_shortcuts.moc"
