#include <figura/figure/SimpleBorder.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/TextFigure.h>

#include <figureprobe.h>
#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QFontMetrics>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Change = void (*)(TextFigure &);
Q_DECLARE_METATYPE(Change)

namespace {

using Probe = SizeProbe<TextFigure>;

const QString TEXT = QStringLiteral("ill");

// A font whose lines are 14 units high, whatever the machine makes of its size.
QFont fontFor14()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    for (int size = 1; size < 30; ++size) {
        font.setPixelSize(size);
        if (QFontMetrics(font).lineSpacing() == 14)
            return font;
    }
    return QFont();
}

// Makes TEXT measure width x 14: the indent fills up what the letters leave.
void measure(TextFigure &figure, int width)
{
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setIndent(width - QFontMetrics(fontFor14()).horizontalAdvance(TEXT));
}

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

PaintCall drawnText(const Probe &figure, const QRect &rect)
{
    return record([&](QPainter *painter) { figure.drawFigure(painter, optionFor(rect)); }).value(0);
}

QPointF originOfText(const QFont &font, const QRect &rect, int flags, const QString &text)
{
    const QList<PaintCall> calls = record([&](QPainter *painter) {
        painter->setFont(font);
        painter->drawText(rect, flags, text);
    });
    return calls.value(0).points.value(0);
}

// Needs always the same, whatever its text is.
class ConstantText : public Probe
{
public:
    using Probe::Probe;
    QSize calculateContentSize() override { return QSize(31, 17); }
};

} // namespace

class tst_TextFigure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void newFigureIsEmptyAndLeftAlignedOnWhite();
    void constructorTakesTextParentAndGround();
    void emptyTextGivenToTheConstructorSetsNoSizes();

    void contentIsIndentAndAdvanceWideAndOneLineHigh();
    void lineBreaksDoNotWrapTheMeasure();
    void marginIsAddedToMinimumAndPreferredSize();
    void borderIsAddedToTheComputedPreferredSizeOnly();
    void maximumSizeIsLeftAlone();
    void overriddenContentSizeIsHonoured();

    void contentChangeSetsSizesThenValidatesThenPaints_data();
    void contentChangeSetsSizesThenValidatesThenPaints();
    void sameTextTwiceUpdatesOnce();
    void sameFontTwiceUpdatesOnce();
    void sameIndentTwiceUpdatesOnce();
    void negativeIndentIsComparedBeforeItIsClamped();
    void negativeIndentCountsAsNoneAndStillUpdates();
    void shorterTextShrinksTheSizes();
    void textThatExceedsTheMaximumIsStoredThoughItsSizesAreRefused();
    void changeIsReportedToTheUpdateManager();

    void colourRepaintsOnlyWhenItDiffers();
    void alignmentRepaintsOnlyWhenItDiffersAndKeepsTheSize();
    void snappingIsOnlyStoredUntilTheNextUpdate();

    void snappedContentIsRoundedUpToSteps_data();
    void snappedContentIsRoundedUpToSteps();
    void snappedContentMakesRoomForMarginAndBorder_data();
    void snappedContentMakesRoomForMarginAndBorder();
    void snappingCanBeTurnedOff();

    void textIsDrawnWithItsColourAndFont();
    void invalidColourDrawsOpaqueBlackAndStaysInvalid();
    void alignmentPlacesTheText_data();
    void alignmentPlacesTheText();
    void indentMovesOnlyTheLeftEdge_data();
    void indentMovesOnlyTheLeftEdge();
    void noIndentLeavesTheRectangle();
    void marginDoesNotMoveTheText();
    void painterIsRestored();
};

void tst_TextFigure::initTestCase()
{
    QCOMPARE(QFontMetrics(fontFor14()).lineSpacing(), 14);
    QVERIFY(QFontMetrics(fontFor14()).horizontalAdvance(TEXT) < 20);
}

void tst_TextFigure::newFigureIsEmptyAndLeftAlignedOnWhite()
{
    QObject owner;

    auto *figure = new TextFigure(&owner);

    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getText(), QString());
    QCOMPARE(figure->getAlignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(figure->getFont(), QFont());
    QCOMPARE(figure->getIndent(), 0);
    QVERIFY(!figure->getTextColor().isValid());
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::white));
    QCOMPARE(figure->getMinimumSize(), QSize(0, 0));
}

void tst_TextFigure::constructorTakesTextParentAndGround()
{
    QObject owner;

    auto *figure = new TextFigure(TEXT, &owner, Qt::yellow);

    const QFontMetrics metrics{QFont()};
    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getText(), TEXT);
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::yellow));
    QCOMPARE(figure->getMinimumSize(),
             QSize(metrics.horizontalAdvance(TEXT), metrics.lineSpacing()));
}

void tst_TextFigure::emptyTextGivenToTheConstructorSetsNoSizes()
{
    TextFigure figure(QStringLiteral(""));

    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
}

void tst_TextFigure::contentIsIndentAndAdvanceWideAndOneLineHigh()
{
    Probe figure;
    figure.setFont(fontFor14());
    figure.setIndent(7);

    figure.setText(TEXT);

    const int advance = QFontMetrics(fontFor14()).horizontalAdvance(TEXT);
    QCOMPARE(figure.calculateContentSize(), QSize(7 + advance, 14));
    QCOMPARE(figure.getPreferredSize(), QSize(7 + advance, 14));
    QCOMPARE(figure.getMinimumSize(), QSize(7 + advance, 14));
}

void tst_TextFigure::lineBreaksDoNotWrapTheMeasure()
{
    Probe figure;
    figure.setFont(fontFor14());
    const QString text = QStringLiteral("first\nsecond");

    figure.setText(text);

    QCOMPARE(figure.calculateContentSize(),
             QSize(QFontMetrics(fontFor14()).horizontalAdvance(text), 14));
}

void tst_TextFigure::marginIsAddedToMinimumAndPreferredSize()
{
    Probe figure;
    figure.setMargin(3);

    measure(figure, 23);

    QCOMPARE(figure.calculateContentSize(), QSize(23, 14));
    QCOMPARE(figure.getMinimumSize(), QSize(29, 20));
    QCOMPARE(figure.getPreferredSize(), QSize(29, 20));
}

void tst_TextFigure::borderIsAddedToTheComputedPreferredSizeOnly()
{
    Probe figure;
    SimpleBorder border(nullptr, 2);
    figure.setBorder(&border);

    measure(figure, 23);

    QCOMPARE(figure.calculateContentSize(), QSize(23, 14));
    QCOMPARE(figure.getMinimumSize(), QSize(23, 14));
    QCOMPARE(figure.getPreferredSize(), QSize(27, 18));
}

void tst_TextFigure::maximumSizeIsLeftAlone()
{
    Probe figure;

    measure(figure, 23);

    QCOMPARE(figure.getMaximumSize(), QSize(0x7FFFFFF, 0x7FFFFFF));
}

void tst_TextFigure::overriddenContentSizeIsHonoured()
{
    ConstantText figure;
    figure.setMargin(2);

    figure.setText(TEXT);

    QCOMPARE(figure.getMinimumSize(), QSize(35, 21));
}

void tst_TextFigure::contentChangeSetsSizesThenValidatesThenPaints_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("text") << Change([](TextFigure &f) { f.setText(TEXT); });
    QTest::newRow("font") << Change([](TextFigure &f) { f.setFont(fontFor14()); });
    QTest::newRow("indent") << Change([](TextFigure &f) { f.setIndent(4); });
}

void tst_TextFigure::contentChangeSetsSizesThenValidatesThenPaints()
{
    QFETCH(Change, change);
    ConstantText figure;
    figure.setMargin(2);

    change(figure);

    QCOMPARE(figure.log,
             QStringList({QStringLiteral("minimum 35x21"), QStringLiteral("preferred 35x21"),
                          QStringLiteral("revalidate"), QStringLiteral("repaint")}));
}

void tst_TextFigure::sameTextTwiceUpdatesOnce()
{
    Probe figure;

    figure.setText(TEXT);
    figure.setText(TEXT);

    QCOMPARE(figure.log.count(QStringLiteral("revalidate")), 1);
}

void tst_TextFigure::sameFontTwiceUpdatesOnce()
{
    Probe figure;

    figure.setFont(fontFor14());
    figure.setFont(fontFor14());

    QCOMPARE(figure.log.count(QStringLiteral("revalidate")), 1);
    QCOMPARE(figure.getFont(), fontFor14());
}

void tst_TextFigure::sameIndentTwiceUpdatesOnce()
{
    Probe figure;

    figure.setIndent(0);
    figure.setIndent(6);
    figure.setIndent(6);

    QCOMPARE(figure.log.count(QStringLiteral("revalidate")), 1);
    QCOMPARE(figure.getIndent(), 6);
}

// The stored indent is 0, so the second -3 differs from it again, on purpose.
void tst_TextFigure::negativeIndentIsComparedBeforeItIsClamped()
{
    Probe figure;

    figure.setIndent(-3);
    figure.setIndent(-3);

    QCOMPARE(figure.log.count(QStringLiteral("revalidate")), 2);
}

void tst_TextFigure::negativeIndentCountsAsNoneAndStillUpdates()
{
    Probe figure;
    measure(figure, 40);
    figure.log.clear();

    figure.setIndent(-4);

    const int advance = QFontMetrics(fontFor14()).horizontalAdvance(TEXT);
    QCOMPARE(figure.getIndent(), 0);
    QCOMPARE(figure.log.size(), 4);
    QCOMPARE(figure.getMinimumSize(), QSize(advance, 14));
}

void tst_TextFigure::shorterTextShrinksTheSizes()
{
    Probe figure;
    measure(figure, 40);

    figure.setIndent(0);

    const int advance = QFontMetrics(fontFor14()).horizontalAdvance(TEXT);
    QCOMPARE(figure.getPreferredSize(), QSize(advance, 14));
}

void tst_TextFigure::textThatExceedsTheMaximumIsStoredThoughItsSizesAreRefused()
{
    Probe figure;
    figure.setMaximumSize(QSize(5, 5));
    figure.log.clear();
    QTest::ignoreMessage(QtDebugMsg, "Figure::setMinimumSize(): size out of bound");
    QTest::ignoreMessage(QtDebugMsg, "Figure::setPreferredSize(): size out of bound");

    figure.setText(QStringLiteral("wide"));

    QCOMPARE(figure.getText(), QStringLiteral("wide"));
    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
    QCOMPARE(figure.getPreferredSize(), QSize(5, 5));
    QCOMPARE(figure.log.mid(2),
             QStringList({QStringLiteral("revalidate"), QStringLiteral("repaint")}));
}

void tst_TextFigure::changeIsReportedToTheUpdateManager()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    TextFigure figure;
    root.add(&figure);
    figure.setBounds(QRect(10, 10, 40, 40));
    manager.clear();

    figure.setText(TEXT);

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&root});
    QCOMPARE(manager.dirtyRects(&figure), QList<QRect>{QRect(10, 10, 40, 40)});
}

void tst_TextFigure::colourRepaintsOnlyWhenItDiffers()
{
    Probe figure;

    figure.setTextColor(QColor());
    QCOMPARE(figure.log, QStringList());
    figure.setTextColor(Qt::red);
    figure.setTextColor(Qt::red);

    QCOMPARE(figure.getTextColor(), QColor(Qt::red));
    QCOMPARE(figure.log, QStringList{QStringLiteral("repaint")});
}

void tst_TextFigure::alignmentRepaintsOnlyWhenItDiffersAndKeepsTheSize()
{
    Probe figure;

    figure.setAlignment(Qt::AlignLeft);
    QCOMPARE(figure.log, QStringList());
    figure.setAlignment(Qt::AlignRight | Qt::AlignBottom);
    figure.setAlignment(Qt::AlignRight | Qt::AlignBottom);

    QCOMPARE(figure.getAlignment(), Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(figure.log, QStringList{QStringLiteral("repaint")});
}

void tst_TextFigure::snappingIsOnlyStoredUntilTheNextUpdate()
{
    Probe figure;
    measure(figure, 23);
    figure.log.clear();

    figure.setSnapToGrid(true);
    QCOMPARE(figure.log, QStringList());
    QCOMPARE(figure.getMinimumSize(), QSize(23, 14));
    figure.setIndent(figure.getIndent() + 1);

    QCOMPARE(figure.getMinimumSize(), QSize(25, 15));
}

void tst_TextFigure::snappedContentIsRoundedUpToSteps_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("expected");
    QTest::newRow("one above a step") << 21 << 25;
    QTest::newRow("inside a step") << 23 << 25;
    QTest::newRow("on a step") << 25 << 25;
    QTest::newRow("beyond it") << 26 << 30;
}

void tst_TextFigure::snappedContentIsRoundedUpToSteps()
{
    QFETCH(int, width);
    QFETCH(int, expected);
    Probe figure;
    figure.setSnapToGrid(true);

    measure(figure, width);

    QCOMPARE(figure.calculateContentSize(), QSize(expected, 15));
    QCOMPARE(figure.getMinimumSize(), QSize(expected, 15));
    QCOMPARE(figure.getPreferredSize(), QSize(expected, 15));
}

void tst_TextFigure::snappedContentMakesRoomForMarginAndBorder_data()
{
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("border");
    QTest::addColumn<QSize>("content");
    QTest::addColumn<QSize>("minimum");
    QTest::newRow("margin") << 2 << 0 << QSize(21, 11) << QSize(25, 15);
    QTest::newRow("border") << 0 << 1 << QSize(23, 13) << QSize(23, 13);
    QTest::newRow("both") << 2 << 1 << QSize(19, 9) << QSize(23, 13);
}

void tst_TextFigure::snappedContentMakesRoomForMarginAndBorder()
{
    QFETCH(int, margin);
    QFETCH(int, border);
    QFETCH(QSize, content);
    QFETCH(QSize, minimum);
    SimpleBorder frame(nullptr, border);
    Probe figure;
    figure.setMargin(margin);
    figure.setBorder(&frame);
    figure.setSnapToGrid(true);

    measure(figure, 23);

    QCOMPARE(figure.calculateContentSize(), content);
    QCOMPARE(figure.getMinimumSize(), minimum);
    QCOMPARE(figure.getPreferredSize(), QSize(25, 15));
}

void tst_TextFigure::snappingCanBeTurnedOff()
{
    Probe figure;
    figure.setSnapToGrid(true);
    measure(figure, 22);

    figure.setSnapToGrid(false);
    measure(figure, 23);

    QCOMPARE(figure.getMinimumSize(), QSize(23, 14));
}

void tst_TextFigure::textIsDrawnWithItsColourAndFont()
{
    Probe figure;
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setTextColor(Qt::darkGreen);

    const PaintCall call = drawnText(figure, QRect(30, 40, 100, 50));

    QCOMPARE(call.kind, PaintCall::Text);
    QCOMPARE(call.text, TEXT);
    QCOMPARE(call.pen, QPen(Qt::darkGreen));
    QCOMPARE(call.font, fontFor14());
}

void tst_TextFigure::invalidColourDrawsOpaqueBlackAndStaysInvalid()
{
    Probe figure;
    figure.setText(TEXT);

    const PaintCall call = drawnText(figure, QRect(30, 40, 100, 50));

    QCOMPARE(call.pen.color().rgba(), QColor(Qt::black).rgba());
    QVERIFY(!figure.getTextColor().isValid());
    QCOMPARE(figure.log.count(QStringLiteral("repaint")), 1);
}

void tst_TextFigure::alignmentPlacesTheText_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft);
    QTest::newRow("right") << Qt::Alignment(Qt::AlignRight);
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignCenter);
    QTest::newRow("bottom right") << (Qt::AlignRight | Qt::AlignBottom);
}

void tst_TextFigure::alignmentPlacesTheText()
{
    QFETCH(Qt::Alignment, alignment);
    const QRect rect(30, 40, 100, 50);
    Probe figure;
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setAlignment(alignment);

    const PaintCall call = drawnText(figure, rect);

    QCOMPARE(call.points.value(0), originOfText(fontFor14(), rect, int(alignment), TEXT));
}

void tst_TextFigure::indentMovesOnlyTheLeftEdge_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<double>("shift");
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft) << 20.0;
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignHCenter) << 10.0;
    QTest::newRow("right") << Qt::Alignment(Qt::AlignRight) << 0.0;
}

void tst_TextFigure::indentMovesOnlyTheLeftEdge()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(double, shift);
    const QRect rect(30, 40, 100, 50);
    Probe figure;
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setAlignment(alignment);
    const QPointF before = drawnText(figure, rect).points.value(0);

    figure.setIndent(20);

    const QPointF after = drawnText(figure, rect).points.value(0);
    QCOMPARE(after, before + QPointF(shift, 0));
}

void tst_TextFigure::noIndentLeavesTheRectangle()
{
    Probe figure;
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setIndent(-9);

    const PaintCall call = drawnText(figure, QRect(30, 40, 100, 50));

    QCOMPARE(call.points.value(0),
             originOfText(fontFor14(), QRect(30, 40, 100, 50), Qt::AlignLeft, TEXT));
}

// The rectangle of the option is that of the bounds; only the children keep to the client area.
void tst_TextFigure::marginDoesNotMoveTheText()
{
    Probe figure;
    figure.setBackgroundColor(Qt::transparent);
    figure.setMargin(11);
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setBounds(QRect(30, 40, 100, 50));

    const QList<PaintCall> calls = record(
        [&](QPainter *painter) { figure.render(painter, optionFor(QRect(0, 0, 500, 500))); });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].points.value(0),
             originOfText(fontFor14(), QRect(30, 40, 100, 50), Qt::AlignLeft, TEXT));
}

void tst_TextFigure::painterIsRestored()
{
    Probe figure;
    figure.setFont(fontFor14());
    figure.setText(TEXT);
    figure.setTextColor(Qt::red);

    record([&](QPainter *painter) {
        const QFont font = painter->font();
        painter->setPen(Qt::cyan);
        figure.drawFigure(painter, optionFor(QRect(30, 40, 100, 50)));

        QCOMPARE(painter->pen(), QPen(Qt::cyan));
        QCOMPARE(painter->font(), font);
    });
}

QTEST_MAIN(tst_TextFigure)
#include "tst_textfigure.moc"
