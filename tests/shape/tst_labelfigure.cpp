#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/TextFigure.h>

#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QFontMetrics>
#include <QPointer>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

const QString TEXT = QStringLiteral("label");

QPixmap pixmap(int width, int height)
{
    QPixmap result(width, height);
    result.fill(Qt::red);
    return result;
}

QSize textSize(const QString &text)
{
    const QFontMetrics metrics{QFont()};
    return QSize(metrics.horizontalAdvance(text), metrics.lineSpacing());
}

template<typename Part>
Part *partOf(Figure &label, int index)
{
    return dynamic_cast<Part *>(label.childFigures().value(index));
}

} // namespace

class tst_LabelFigure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void constructorTakesParentAndGround();
    void pixmapComesFirstAndTextSecond_data();
    void pixmapComesFirstAndTextSecond();
    void partsAreOwnedAndTransparent();
    void partsHaveNoStretch();
    void onlyVerticalStacks_data();
    void onlyVerticalStacks();
    void horizontalLabelPutsThePixmapOnTheLeft();
    void verticalLabelPutsThePixmapAbove();

    void textAndPixmapAreThoseOfTheParts();
    void textIsForwarded();
    void pixmapIsForwarded();
    void labelBuiltWithoutAPixmapRefusesTheSizesOfALaterOne();
    void newTextInvalidatesTheWholeTree();

    void orientationAgainLeavesTheLabelEmpty_data();
    void orientationAgainLeavesTheLabelEmpty();
    void orientationAgainDeletesTheFormerLayout();
    void partsOutliveTheFormerLayout();

    void newLabelExpandsInNoDirection();
    void expandingDirectionsReachTheLayout();
    void expandingDirectionsOutliveTheLayout();
    void expandingDirectionsAreGivenToTheNextLayout();

    void labelPaintsBothParts();
    void destroyedPartsCountAsEmpty();
};

void tst_LabelFigure::constructorTakesParentAndGround()
{
    QObject owner;

    auto *label = new LabelFigure(TEXT, pixmap(16, 16), Qt::Horizontal, &owner, Qt::yellow);

    QCOMPARE(label->parent(), &owner);
    QCOMPARE(label->getBackgroundColor(), QColor(Qt::yellow));
}

void tst_LabelFigure::pixmapComesFirstAndTextSecond_data()
{
    QTest::addColumn<Qt::Orientations>("orientation");
    QTest::newRow("horizontal") << Qt::Orientations(Qt::Horizontal);
    QTest::newRow("vertical") << Qt::Orientations(Qt::Vertical);
}

void tst_LabelFigure::pixmapComesFirstAndTextSecond()
{
    QFETCH(Qt::Orientations, orientation);

    LabelFigure label(TEXT, pixmap(16, 16), orientation);

    QCOMPARE(label.childFigureCount(), 2);
    QVERIFY(partOf<PixmapFigure>(label, 0));
    QVERIFY(partOf<TextFigure>(label, 1));
    QCOMPARE(label.childFigures()[0]->getParentFigure(), &label);
    QCOMPARE(label.childFigures()[1]->getParentFigure(), &label);
}

void tst_LabelFigure::partsAreOwnedAndTransparent()
{
    LabelFigure label(TEXT, pixmap(16, 16));

    for (Figure *part : label.childFigures()) {
        QCOMPARE(part->parent(), &label);
        QCOMPARE(part->getBackgroundColor(), QColor(Qt::transparent));
    }
}

void tst_LabelFigure::partsHaveNoStretch()
{
    LabelFigure label(TEXT, pixmap(16, 16));
    label.setBounds(QRect(QPoint(0, 0), label.getPreferredSize() + QSize(100, 0)));

    label.validate();

    QCOMPARE(label.childFigures()[0]->getBounds().width(), 16);
    QCOMPARE(label.childFigures()[1]->getBounds().left(), 18);
}

void tst_LabelFigure::onlyVerticalStacks_data()
{
    QTest::addColumn<Qt::Orientations>("orientation");
    QTest::addColumn<bool>("stacked");
    QTest::newRow("horizontal") << Qt::Orientations(Qt::Horizontal) << false;
    QTest::newRow("vertical") << Qt::Orientations(Qt::Vertical) << true;
    QTest::newRow("both") << (Qt::Horizontal | Qt::Vertical) << true;
    QTest::newRow("neither") << Qt::Orientations() << false;
}

void tst_LabelFigure::onlyVerticalStacks()
{
    QFETCH(Qt::Orientations, orientation);
    QFETCH(bool, stacked);

    LabelFigure label(TEXT, pixmap(16, 16), orientation);

    QCOMPARE(label.getOrientation(), orientation);
    QCOMPARE(qobject_cast<VBoxLayout *>(label.getLayoutManager()) != nullptr, stacked);
    QCOMPARE(qobject_cast<HBoxLayout *>(label.getLayoutManager()) != nullptr, !stacked);
}

void tst_LabelFigure::horizontalLabelPutsThePixmapOnTheLeft()
{
    LabelFigure label(TEXT, pixmap(30, 40), Qt::Horizontal);
    const QSize text = textSize(TEXT);

    QCOMPARE(label.getPreferredSize(), QSize(30 + 2 + text.width(), qMax(40, text.height())));
    label.setBounds(QRect(QPoint(5, 5), label.getPreferredSize()));
    label.validate();

    QCOMPARE(label.childFigures()[0]->getBounds(), QRect(0, 0, 30, 40));
    QCOMPARE(label.childFigures()[1]->getBounds(),
             QRect(32, (40 - text.height()) / 2, text.width(), text.height()));
}

void tst_LabelFigure::verticalLabelPutsThePixmapAbove()
{
    LabelFigure label(TEXT, pixmap(30, 40), Qt::Vertical);
    const QSize text = textSize(TEXT);

    QCOMPARE(label.getPreferredSize(), QSize(qMax(30, text.width()), 40 + 2 + text.height()));
    label.setBounds(QRect(QPoint(5, 5), label.getPreferredSize()));
    label.validate();

    QCOMPARE(label.childFigures()[0]->getBounds(), QRect(0, 0, 30, 40));
    QCOMPARE(label.childFigures()[1]->getBounds(), QRect(QPoint(0, 42), text));
}

void tst_LabelFigure::textAndPixmapAreThoseOfTheParts()
{
    const QPixmap picture = pixmap(16, 16);

    LabelFigure label(TEXT, picture);

    QCOMPARE(label.getText(), TEXT);
    QCOMPARE(label.getPixmap().cacheKey(), picture.cacheKey());
    QCOMPARE(partOf<PixmapFigure>(label, 0)->getPixmap().cacheKey(), picture.cacheKey());
    QCOMPARE(partOf<TextFigure>(label, 1)->getText(), TEXT);
}

void tst_LabelFigure::textIsForwarded()
{
    LabelFigure label(TEXT, pixmap(16, 16));

    label.setText(QStringLiteral("other"));

    QCOMPARE(partOf<TextFigure>(label, 1)->getText(), QStringLiteral("other"));
    QCOMPARE(label.getText(), QStringLiteral("other"));
    QCOMPARE(label.getPreferredSize().width(), 18 + textSize(QStringLiteral("other")).width());
}

void tst_LabelFigure::pixmapIsForwarded()
{
    LabelFigure label(TEXT, pixmap(16, 16));
    const QPixmap other = pixmap(16, 16);

    label.setPixmap(other);

    QCOMPARE(partOf<PixmapFigure>(label, 0)->getPixmap().cacheKey(), other.cacheKey());
    QCOMPARE(label.getPixmap().cacheKey(), other.cacheKey());
}

// The null pixmap of the constructor is a first pixmap of size nothing, and sets the limits.
void tst_LabelFigure::labelBuiltWithoutAPixmapRefusesTheSizesOfALaterOne()
{
    LabelFigure label(TEXT);
    QTest::ignoreMessage(QtDebugMsg, "Figure::setPreferredSize(): size out of bound");
    QTest::ignoreMessage(QtDebugMsg, "Figure::setMinimumSize(): size out of bound");

    label.setPixmap(pixmap(16, 16));

    QCOMPARE(label.childFigures()[0]->getMinimumSize(), QSize(0, 0));
    QCOMPARE(label.childFigures()[0]->getPreferredSize(), QSize(16, 16));
}

void tst_LabelFigure::newTextInvalidatesTheWholeTree()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    LabelFigure label(TEXT, pixmap(16, 16));
    root.add(&label);
    manager.clear();

    label.setText(QStringLiteral("other"));

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&root});
}

void tst_LabelFigure::orientationAgainLeavesTheLabelEmpty_data()
{
    QTest::addColumn<Qt::Orientations>("orientation");
    QTest::newRow("turned") << Qt::Orientations(Qt::Vertical);
    QTest::newRow("the same") << Qt::Orientations(Qt::Horizontal);
}

// The parts are not moved to the new layout, on purpose.
void tst_LabelFigure::orientationAgainLeavesTheLabelEmpty()
{
    QFETCH(Qt::Orientations, orientation);
    LabelFigure label(TEXT, pixmap(16, 16), Qt::Horizontal);

    label.setOrientation(orientation);

    QCOMPARE(label.getOrientation(), orientation);
    QCOMPARE(label.childFigureCount(), 0);
}

void tst_LabelFigure::orientationAgainDeletesTheFormerLayout()
{
    LabelFigure label(TEXT, pixmap(16, 16), Qt::Horizontal);
    const QPointer<Layout> former = label.getLayoutManager();
    QVERIFY(former);

    label.setOrientation(Qt::Vertical);

    QVERIFY(!former);
    QVERIFY(qobject_cast<VBoxLayout *>(label.getLayoutManager()));
}

void tst_LabelFigure::partsOutliveTheFormerLayout()
{
    LabelFigure label(TEXT, pixmap(16, 16), Qt::Horizontal);
    const QPointer<Figure> picture = label.childFigures()[0];

    label.setOrientation(Qt::Vertical);
    label.setText(QStringLiteral("other"));

    QVERIFY(picture);
    QCOMPARE(label.getText(), QStringLiteral("other"));
    QCOMPARE(label.getPixmap().size(), QSize(16, 16));
}

// The first layout takes over what the label had before it: nothing.
void tst_LabelFigure::newLabelExpandsInNoDirection()
{
    LabelFigure label(TEXT, pixmap(16, 16));

    QCOMPARE(label.expandingDirections(), Qt::Orientations());
    QCOMPARE(label.getLayoutManager()->expandingDirections(), Qt::Orientations());
}

void tst_LabelFigure::expandingDirectionsReachTheLayout()
{
    LabelFigure label(TEXT, pixmap(16, 16));

    label.setExpandingDirections(Qt::Vertical);

    QCOMPARE(label.getLayoutManager()->expandingDirections(), Qt::Orientations(Qt::Vertical));
    QCOMPARE(label.expandingDirections(), Qt::Orientations(Qt::Vertical));
}

void tst_LabelFigure::expandingDirectionsOutliveTheLayout()
{
    LabelFigure label(TEXT);
    label.setExpandingDirections(Qt::Vertical);

    delete label.getLayoutManager();

    QCOMPARE(label.expandingDirections(), Qt::Orientations(Qt::Vertical));
}

void tst_LabelFigure::expandingDirectionsAreGivenToTheNextLayout()
{
    LabelFigure label(TEXT, pixmap(16, 16));
    label.setExpandingDirections(Qt::Vertical);

    label.setOrientation(Qt::Vertical);

    QCOMPARE(label.getLayoutManager()->expandingDirections(), Qt::Orientations(Qt::Vertical));
}

void tst_LabelFigure::labelPaintsBothParts()
{
    LabelFigure label(TEXT, pixmap(16, 16), Qt::Horizontal, nullptr, Qt::transparent);
    label.setBounds(QRect(QPoint(100, 100), label.getPreferredSize()));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);

    const QList<PaintCall> calls =
        record([&](QPainter *painter) { label.render(painter, option); });

    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls[0].kind, PaintCall::Pixmap);
    QCOMPARE(calls[1].kind, PaintCall::Text);
    QCOMPARE(calls[1].text, TEXT);
}

// The label owns its parts, but an application that reaches them may delete them all the same.
void tst_LabelFigure::destroyedPartsCountAsEmpty()
{
    LabelFigure label(TEXT, pixmap(16, 16));
    qDeleteAll(label.childFigures());

    label.setText(QStringLiteral("other"));
    label.setPixmap(pixmap(16, 16));

    QCOMPARE(label.getText(), QString());
    QVERIFY(label.getPixmap().isNull());
}

QTEST_MAIN(tst_LabelFigure)
#include "tst_labelfigure.moc"
