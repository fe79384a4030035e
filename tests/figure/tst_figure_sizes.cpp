#include "fixtures.h"

#include <figura/figure/SimpleBorder.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A figure whose content has a size of its own.
class ContentFigure : public OpenFigure
{
public:
    QSize contentSize{17, 18};
    int asked = 0;

protected:
    QSize calculateContentSize() override
    {
        ++asked;
        return contentSize;
    }
};

/// What the figure has stored, which a valid figure answers as it is.
QSize storedPreferredSize(OpenFigure &figure)
{
    figure.setValid(true);
    const QSize size = figure.getPreferredSize();
    figure.setValid(false);
    return size;
}

} // namespace

class tst_Figure_Sizes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // Limits.
    void minimumWithinTheMaximumIsStored_data();
    void minimumWithinTheMaximumIsStored();
    void minimumBeyondTheMaximumIsRefused_data();
    void minimumBeyondTheMaximumIsRefused();
    void maximumFromTheMinimumOnIsStored_data();
    void maximumFromTheMinimumOnIsStored();
    void maximumBelowTheMinimumIsRefused_data();
    void maximumBelowTheMinimumIsRefused();
    void maximumBelowTheDefaultMinimumIsRefused_data();
    void maximumBelowTheDefaultMinimumIsRefused();
    void limitsAreCheckedAgainstTheStoredOnesNotAgainstTheLayout();
    void preferredSizeIsStoredThoughTheAnswerIsFalse_data();
    void preferredSizeIsStoredThoughTheAnswerIsFalse();
    void preferredSizeBeyondTheLimitsIsReported_data();
    void preferredSizeBeyondTheLimitsIsReported();
    void sizeSettersNeitherInvalidateNorRepaint();
    void maximumSizeIsTheStoredOneWhateverTheLayoutSays();

    // Margin arithmetic.
    void applyMarginAddsTheMarginOnBothSides();
    void removeMarginTakesItOffOnlyOnce();

    // Preferred size.
    void validFigureAnswersItsStoredPreferredSize();
    void preferredSizeOfAFigureWithoutLayoutComesFromItsContent();
    void preferredSizeOfAFigureWithALayoutComesFromTheLayout();
    void preferredSizeComesFromTheContentWhenTheFlagSaysSo();
    void marginIsAddedToThePreferredSizeOnBothSides();
    void borderInsetsAreAddedToAValidPreferredSize();
    void borderInsetsAreNotAddedToAnInvalidPreferredSize();
    void marginMayMakeAnInvalidPreferredSizeValidForTheBorder();
    void preferredSizeIsKeptWithinTheLimits_data();
    void preferredSizeIsKeptWithinTheLimits();
    void preferredSizeIsAtLeastWhatTheLayoutNeeds();
    void computedPreferredSizeIsStored();
    void plainInvalidFigureGrowsByItsMarginWithEachCall();
    void plainInvalidFigureWithABorderKeepsItsPreferredSize();
    void newFigurePrefersNothing();

    // Content size.
    void contentSizeIsTheStoredPreferredSizeLessMarginAndBorder();
    void contentSizeWithoutAPreferredSizeIsInvalid();

    // Minimum size.
    void minimumSizeWithoutLayoutIsNeverNegative_data();
    void minimumSizeWithoutLayoutIsNeverNegative();
    void minimumSizeOfALayoutGetsMarginAndBorder();
    void minimumSizeIsTheLargerOfLayoutAndFieldInEachDirection();
    void borderInsetsAreNotAddedToAnInvalidMinimumSize();
};

void tst_Figure_Sizes::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Sizes::minimumWithinTheMaximumIsStored_data()
{
    QTest::addColumn<QSize>("minimum");

    QTest::newRow("smaller") << QSize(3, 9);
    QTest::newRow("equal") << QSize(4, 10);
    QTest::newRow("equal width") << QSize(4, 1);
    QTest::newRow("equal height") << QSize(1, 10);
}

void tst_Figure_Sizes::minimumWithinTheMaximumIsStored()
{
    QFETCH(QSize, minimum);
    Figure figure;
    figure.setMaximumSize(QSize(4, 10));

    QVERIFY(figure.setMinimumSize(minimum));

    QCOMPARE(figure.getMinimumSize(), minimum);
}

void tst_Figure_Sizes::minimumBeyondTheMaximumIsRefused_data()
{
    QTest::addColumn<QSize>("minimum");

    QTest::newRow("width") << QSize(5, 5);
    QTest::newRow("height") << QSize(4, 11);
    QTest::newRow("both") << QSize(5, 11);
}

void tst_Figure_Sizes::minimumBeyondTheMaximumIsRefused()
{
    QFETCH(QSize, minimum);
    Figure figure;
    figure.setMaximumSize(QSize(4, 10));
    figure.setMinimumSize(QSize(2, 3));

    QTest::ignoreMessage(QtDebugMsg, "Figure::setMinimumSize(): size out of bound");
    QVERIFY(!figure.setMinimumSize(minimum));

    QCOMPARE(figure.getMinimumSize(), QSize(2, 3));
}

void tst_Figure_Sizes::maximumFromTheMinimumOnIsStored_data()
{
    QTest::addColumn<QSize>("maximum");

    QTest::newRow("larger") << QSize(40, 100);
    QTest::newRow("equal") << QSize(4, 10);
}

void tst_Figure_Sizes::maximumFromTheMinimumOnIsStored()
{
    QFETCH(QSize, maximum);
    Figure figure;
    figure.setMinimumSize(QSize(4, 10));

    QVERIFY(figure.setMaximumSize(maximum));

    QCOMPARE(figure.getMaximumSize(), maximum);
}

void tst_Figure_Sizes::maximumBelowTheMinimumIsRefused_data()
{
    QTest::addColumn<QSize>("maximum");

    QTest::newRow("width") << QSize(3, 100);
    QTest::newRow("height") << QSize(100, 9);
    QTest::newRow("both") << QSize(3, 9);
}

void tst_Figure_Sizes::maximumBelowTheMinimumIsRefused()
{
    QFETCH(QSize, maximum);
    Figure figure;
    figure.setMaximumSize(QSize(50, 60));
    figure.setMinimumSize(QSize(4, 10));

    QTest::ignoreMessage(QtDebugMsg, "Figure::setMaximumSize(): size out of bound");
    QVERIFY(!figure.setMaximumSize(maximum));

    QCOMPARE(figure.getMaximumSize(), QSize(50, 60));
}

void tst_Figure_Sizes::maximumBelowTheDefaultMinimumIsRefused_data()
{
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("the default minimum itself") << QSize(-1, -1) << true;
    QTest::newRow("width below") << QSize(-2, 5) << false;
    QTest::newRow("height below") << QSize(5, -2) << false;
}

void tst_Figure_Sizes::maximumBelowTheDefaultMinimumIsRefused()
{
    QFETCH(QSize, maximum);
    QFETCH(bool, accepted);
    Figure figure;

    if (!accepted)
        QTest::ignoreMessage(QtDebugMsg, "Figure::setMaximumSize(): size out of bound");
    QCOMPARE(figure.setMaximumSize(maximum), accepted);
}

void tst_Figure_Sizes::limitsAreCheckedAgainstTheStoredOnesNotAgainstTheLayout()
{
    ParentFigure figure;
    figure.plain->minimumSize = QSize(50, 50);

    QVERIFY(figure.setMaximumSize(QSize(10, 10)));
    figure.setPreferredSize(QSize(5, 5));

    QCOMPARE(storedPreferredSize(figure), QSize(5, 5));
}

void tst_Figure_Sizes::preferredSizeIsStoredThoughTheAnswerIsFalse_data()
{
    QTest::addColumn<QSize>("preferred");

    QTest::newRow("between the limits") << QSize(7, 8);
    QTest::newRow("equal to the minimum") << QSize(2, 3);
    QTest::newRow("equal to the maximum") << QSize(40, 50);
}

// Callers cannot use the answer: it is false on purpose, and nothing is reported.
void tst_Figure_Sizes::preferredSizeIsStoredThoughTheAnswerIsFalse()
{
    QFETCH(QSize, preferred);
    OpenFigure figure;
    figure.setMaximumSize(QSize(40, 50));
    figure.setMinimumSize(QSize(2, 3));

    QCOMPARE(figure.setPreferredSize(preferred), false);

    QCOMPARE(storedPreferredSize(figure), preferred);
}

void tst_Figure_Sizes::preferredSizeBeyondTheLimitsIsReported_data()
{
    QTest::addColumn<QSize>("preferred");

    QTest::newRow("too narrow") << QSize(1, 8);
    QTest::newRow("too low") << QSize(7, 2);
    QTest::newRow("too wide") << QSize(41, 8);
    QTest::newRow("too high") << QSize(7, 51);
}

void tst_Figure_Sizes::preferredSizeBeyondTheLimitsIsReported()
{
    QFETCH(QSize, preferred);
    OpenFigure figure;
    figure.setMaximumSize(QSize(40, 50));
    figure.setMinimumSize(QSize(2, 3));
    figure.setPreferredSize(QSize(7, 8));

    QTest::ignoreMessage(QtDebugMsg, "Figure::setPreferredSize(): size out of bound");
    QCOMPARE(figure.setPreferredSize(preferred), false);

    QCOMPARE(storedPreferredSize(figure), QSize(7, 8));
}

void tst_Figure_Sizes::sizeSettersNeitherInvalidateNorRepaint()
{
    OpenFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setValid(true);
    figure.resetCalls();

    figure.setMinimumSize(QSize(1, 1));
    figure.setMaximumSize(QSize(100, 100));
    figure.setPreferredSize(QSize(50, 50));

    QVERIFY(figure.isValid());
    QCOMPARE(figure.calls().revalidate, 0);
    QCOMPARE(figure.calls().invalidate, 0);
    QCOMPARE(figure.calls().repaint, 0);
    QCOMPARE(figure.getBounds(), QRect(0, 0, 10, 10));
}

void tst_Figure_Sizes::maximumSizeIsTheStoredOneWhateverTheLayoutSays()
{
    ParentFigure figure;
    figure.plain->minimumSize = QSize(500, 500);

    figure.setMaximumSize(QSize(100, 200));

    QCOMPARE(figure.getMaximumSize(), QSize(100, 200));
}

void tst_Figure_Sizes::applyMarginAddsTheMarginOnBothSides()
{
    OpenFigure figure;

    QCOMPARE(figure.applyMargin(QSize(10, 10)), QSize(10, 10));

    figure.setMargin(3);
    QCOMPARE(figure.applyMargin(QSize(10, 11)), QSize(16, 17));
}

// The asymmetry to applyMargin() is on purpose.
void tst_Figure_Sizes::removeMarginTakesItOffOnlyOnce()
{
    OpenFigure figure;
    QSize size(16, 17);

    QCOMPARE(figure.removeMargin(size), QSize(16, 17));

    figure.setMargin(3);
    QSize &result = figure.removeMargin(size);
    QCOMPARE(&result, &size);
    QCOMPARE(size, QSize(13, 14));
}

void tst_Figure_Sizes::validFigureAnswersItsStoredPreferredSize()
{
    ParentFigure figure;
    figure.plain->preferredSize = QSize(70, 80);
    figure.setMargin(4);
    figure.setPreferredSize(QSize(7, 8));

    figure.setValid(true);

    QCOMPARE(figure.getPreferredSize(), QSize(7, 8));
}

void tst_Figure_Sizes::preferredSizeOfAFigureWithoutLayoutComesFromItsContent()
{
    ContentFigure figure;
    figure.setPreferredSize(QSize(70, 80));

    QCOMPARE(figure.getPreferredSize(), QSize(17, 18));
}

void tst_Figure_Sizes::preferredSizeOfAFigureWithALayoutComesFromTheLayout()
{
    PlainLayout layout;
    layout.preferredSize = QSize(70, 80);
    ContentFigure figure;
    figure.setLayoutManager(&layout);
    figure.setPreferredSize(QSize(1, 1));

    QCOMPARE(figure.getPreferredSize(), QSize(70, 80));
    QCOMPARE(figure.asked, 0);
}

void tst_Figure_Sizes::preferredSizeComesFromTheContentWhenTheFlagSaysSo()
{
    PlainLayout layout;
    layout.preferredSize = QSize(70, 80);
    ContentFigure figure;
    figure.setLayoutManager(&layout);

    figure.setFlag(Figure::FLAG_USE_CONTENT_SIZE, true);

    QCOMPARE(figure.getPreferredSize(), QSize(17, 18));
}

void tst_Figure_Sizes::marginIsAddedToThePreferredSizeOnBothSides()
{
    ContentFigure figure;

    figure.setMargin(5);

    QCOMPARE(figure.getPreferredSize(), QSize(27, 28));
}

void tst_Figure_Sizes::borderInsetsAreAddedToAValidPreferredSize()
{
    SimpleBorder border(nullptr, 0);
    border.setInsets(Insets(1, 20, 300, 4000));
    ContentFigure figure;

    figure.setBorder(&border);

    QCOMPARE(figure.getPreferredSize(), QSize(17 + 4020, 18 + 301));
}

void tst_Figure_Sizes::borderInsetsAreNotAddedToAnInvalidPreferredSize()
{
    SimpleBorder border(nullptr, 9);
    ContentFigure figure;
    figure.contentSize = QSize(-1, 40);

    figure.setBorder(&border);

    QCOMPARE(figure.getPreferredSize(), QSize(0, 40));
}

// The margin comes first and is added to whatever there is.
void tst_Figure_Sizes::marginMayMakeAnInvalidPreferredSizeValidForTheBorder()
{
    SimpleBorder border(nullptr, 9);
    ContentFigure figure;
    figure.contentSize = QSize();
    figure.setMargin(3);

    figure.setBorder(&border);

    QCOMPARE(figure.getPreferredSize(), QSize(5 + 18, 5 + 18));
}

void tst_Figure_Sizes::preferredSizeIsKeptWithinTheLimits_data()
{
    QTest::addColumn<QSize>("content");
    QTest::addColumn<QSize>("preferred");

    QTest::newRow("within") << QSize(15, 25) << QSize(15, 25);
    QTest::newRow("too small") << QSize(1, 2) << QSize(10, 20);
    QTest::newRow("too large") << QSize(1000, 2000) << QSize(100, 200);
    QTest::newRow("too narrow and too high") << QSize(1, 2000) << QSize(10, 200);
}

void tst_Figure_Sizes::preferredSizeIsKeptWithinTheLimits()
{
    QFETCH(QSize, content);
    ContentFigure figure;
    figure.setMinimumSize(QSize(10, 20));
    figure.setMaximumSize(QSize(100, 200));

    figure.contentSize = content;

    QTEST(figure.getPreferredSize(), "preferred");
}

void tst_Figure_Sizes::preferredSizeIsAtLeastWhatTheLayoutNeeds()
{
    ParentFigure figure;
    figure.plain->preferredSize = QSize(5, 50);
    figure.plain->minimumSize = QSize(30, 20);

    QCOMPARE(figure.getPreferredSize(), QSize(30, 50));

    figure.setMaximumSize(QSize(25, 100));
    QCOMPARE(figure.getPreferredSize(), QSize(25, 50));
}

void tst_Figure_Sizes::computedPreferredSizeIsStored()
{
    ContentFigure figure;
    figure.setPreferredSize(QSize(70, 80));

    figure.getPreferredSize();

    QCOMPARE(storedPreferredSize(figure), QSize(17, 18));
}

// The content size loses the margin once, the preferred size gets it twice: on purpose.
void tst_Figure_Sizes::plainInvalidFigureGrowsByItsMarginWithEachCall()
{
    Figure figure;
    figure.setMargin(3);
    figure.setPreferredSize(QSize(10, 20));

    QCOMPARE(figure.getPreferredSize(), QSize(13, 23));
    QCOMPARE(figure.getPreferredSize(), QSize(16, 26));
}

void tst_Figure_Sizes::plainInvalidFigureWithABorderKeepsItsPreferredSize()
{
    SimpleBorder border(nullptr, 4);
    Figure figure;
    figure.setBorder(&border);
    figure.setPreferredSize(QSize(10, 20));

    QCOMPARE(figure.getPreferredSize(), QSize(10, 20));
    QCOMPARE(figure.getPreferredSize(), QSize(10, 20));
}

void tst_Figure_Sizes::newFigurePrefersNothing()
{
    QCOMPARE(Figure().getPreferredSize(), QSize(0, 0));
}

void tst_Figure_Sizes::contentSizeIsTheStoredPreferredSizeLessMarginAndBorder()
{
    SimpleBorder border(nullptr, 0);
    border.setInsets(Insets(1, 2, 3, 4));
    OpenFigure figure;
    figure.setPreferredSize(QSize(100, 200));
    QCOMPARE(figure.calculateContentSize(), QSize(100, 200));

    figure.setMargin(10);
    QCOMPARE(figure.calculateContentSize(), QSize(90, 190));

    figure.setBorder(&border);
    QCOMPARE(figure.calculateContentSize(), QSize(84, 186));
}

void tst_Figure_Sizes::contentSizeWithoutAPreferredSizeIsInvalid()
{
    SimpleBorder border(nullptr, 4);
    OpenFigure figure;
    figure.setBorder(&border);
    figure.setMargin(3);

    QCOMPARE(figure.calculateContentSize(), QSize());
}

void tst_Figure_Sizes::minimumSizeWithoutLayoutIsNeverNegative_data()
{
    QTest::addColumn<QSize>("field");
    QTest::addColumn<QSize>("minimum");

    QTest::newRow("default") << QSize(-1, -1) << QSize(0, 0);
    QTest::newRow("one direction") << QSize(-7, 5) << QSize(0, 5);
    QTest::newRow("given") << QSize(4, 5) << QSize(4, 5);
}

void tst_Figure_Sizes::minimumSizeWithoutLayoutIsNeverNegative()
{
    QFETCH(QSize, field);
    SimpleBorder border(nullptr, 4);
    Figure figure;
    figure.setMargin(3);
    figure.setBorder(&border);

    figure.setMinimumSize(field);

    QTEST(figure.getMinimumSize(), "minimum");
}

void tst_Figure_Sizes::minimumSizeOfALayoutGetsMarginAndBorder()
{
    SimpleBorder border(nullptr, 0);
    border.setInsets(Insets(1, 2, 3, 4));
    ParentFigure figure;
    figure.plain->minimumSize = QSize(50, 60);
    QCOMPARE(figure.getMinimumSize(), QSize(50, 60));

    figure.setMargin(10);
    QCOMPARE(figure.getMinimumSize(), QSize(70, 80));

    figure.setBorder(&border);
    QCOMPARE(figure.getMinimumSize(), QSize(76, 84));
}

void tst_Figure_Sizes::minimumSizeIsTheLargerOfLayoutAndFieldInEachDirection()
{
    ParentFigure figure;
    figure.plain->minimumSize = QSize(50, 60);

    figure.setMinimumSize(QSize(70, 10));

    QCOMPARE(figure.getMinimumSize(), QSize(70, 60));
}

void tst_Figure_Sizes::borderInsetsAreNotAddedToAnInvalidMinimumSize()
{
    SimpleBorder border(nullptr, 4);
    ParentFigure figure;
    figure.setBorder(&border);
    figure.plain->minimumSize = QSize();

    QCOMPARE(figure.getMinimumSize(), QSize(-1, -1));

    figure.setMargin(3);
    QCOMPARE(figure.getMinimumSize(), QSize(5 + 8, 5 + 8));
}

QTEST_MAIN(tst_Figure_Sizes)
#include "tst_figure_sizes.moc"
