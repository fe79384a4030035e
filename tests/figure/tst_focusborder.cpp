#include "borderpicture.h"

#include <golden.h>
#include <recordingdevice.h>
#include <recordingstyle.h>

#include <figura/figure/FocusBorder.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_FocusBorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void insetsAreOneOnAllSides();
    void takesAParent();
    void styleDrawsAFocusRectangleOnTheBorderRect();
    void wideInsetsMoveTheRectangleInwards();
    void rectangleIsDrawnEvenWithoutInsets();
    void colourAndPenDoNotMatter();
    void nothingIsDrawnWithoutAPainterOrRect();
    void tooSmallRectDrawsNothing();
    void picture();
};

void tst_FocusBorder::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_FocusBorder::insetsAreOneOnAllSides()
{
    QCOMPARE(FocusBorder().getInsets(), Insets(1, 1, 1, 1));
}

void tst_FocusBorder::takesAParent()
{
    QObject parent;

    QCOMPARE((new FocusBorder(&parent))->parent(), &parent);
}

void tst_FocusBorder::styleDrawsAFocusRectangleOnTheBorderRect()
{
    RecordingStyle drawn;
    const FocusBorder border;
    QStyleOptionViewItem option = optionFor(QRect(10, 20, 30, 40));
    option.state = QStyle::State_Selected;
    option.backgroundBrush = Qt::red;

    record([&](QPainter *painter) { border.render(painter, option); });

    QCOMPARE(drawn.focusRects.size(), 1);
    QCOMPARE(drawn.focusRects[0].rect, QRect(10, 20, 30, 40));
    QCOMPARE(drawn.focusRects[0].state, QStyle::State_Selected | QStyle::State_KeyboardFocusChange);
    QCOMPARE(drawn.focusRects[0].backgroundColor, QColor(Qt::transparent));
    QVERIFY(!drawn.focusRects[0].hasWidget);
}

void tst_FocusBorder::wideInsetsMoveTheRectangleInwards()
{
    RecordingStyle drawn;
    FocusBorder border;
    border.setInsets(Insets(4, 4, 4, 4));

    record([&](QPainter *painter) { border.render(painter, optionFor(QRect(0, 0, 10, 10))); });

    QCOMPARE(drawn.focusRects.size(), 1);
    QCOMPARE(drawn.focusRects[0].rect, QRect(QPoint(2, 2), QPoint(8, 8)));
}

void tst_FocusBorder::rectangleIsDrawnEvenWithoutInsets()
{
    RecordingStyle drawn;
    FocusBorder border;
    border.setInsets(Insets());

    record([&](QPainter *painter) { border.render(painter, optionFor(QRect(0, 0, 10, 10))); });

    QCOMPARE(drawn.focusRects.size(), 1);
    QCOMPARE(drawn.focusRects[0].rect, QRect(0, 0, 10, 10));
}

void tst_FocusBorder::colourAndPenDoNotMatter()
{
    FocusBorder plain;
    FocusBorder coloured;
    coloured.setColor(Qt::red);
    coloured.setPenStyle(Qt::DotLine);

    QCOMPARE(pictureOf({&coloured}), pictureOf({&plain}));
}

void tst_FocusBorder::nothingIsDrawnWithoutAPainterOrRect()
{
    RecordingStyle drawn;
    const FocusBorder border;

    border.render(nullptr, optionFor(QRect(0, 0, 10, 10)));
    record([&](QPainter *painter) {
        border.render(painter, optionFor(QRect()));
        border.render(painter, optionFor(QRect(5, 5, 0, 10)));
    });

    QCOMPARE(drawn.focusRects.size(), 0);
}

void tst_FocusBorder::tooSmallRectDrawsNothing()
{
    RecordingStyle drawn;
    FocusBorder border;
    border.setInsets(Insets(8, 8, 8, 8));

    record([&](QPainter *painter) { border.render(painter, optionFor(QRect(0, 0, 5, 5))); });

    QCOMPARE(drawn.focusRects.size(), 0);
}

void tst_FocusBorder::picture()
{
    FocusBorder plain;
    FocusBorder inner;
    inner.setInsets(Insets(10, 10, 10, 10));

    FIGURA_COMPARE_GOLDEN(pictureOf({&plain, &inner}), QStringLiteral("border_focus"));
}

QTEST_MAIN(tst_FocusBorder)
#include "tst_focusborder.moc"
