#include "fixtures.h"

#include <logcapture.h>

#include <QSignalSpy>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

/// A layout that remembers what the figure passes on to it, and answers as it is told.
class ForwardingLayout : public PlainLayout
{
public:
    QStringList log;
    QList<Figure *> figures;
    bool answer = true;

    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override
    {
        log.append(QStringLiteral("add %1 at %2").arg(constraint.toString()).arg(index));
        figures.append(child);
        return answer;
    }

    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override
    {
        log.append(QStringLiteral("add %1, %2 at %3").arg(vStretch).arg(hStretch).arg(index));
        figures.append(child);
        return answer;
    }

    bool remove(Figure *child) override
    {
        log.append(QStringLiteral("remove"));
        figures.append(child);
        return answer;
    }

    QList<Figure *> childFigures() override { return figures; }
    int childFigureCount() const override { return 4711; }

    using Layout::getHTotalStretch;
    using Layout::getVTotalStretch;
};

/// A plain layout whose stretch totals can be read.
class StretchLayout : public PlainLayout
{
public:
    using Layout::getHTotalStretch;
    using Layout::getVTotalStretch;
};

} // namespace

class tst_Figure_Children : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // Without a layout.
    void addWithoutALayoutIsReportedAndRefused();
    void addWithStretchesWithoutALayoutIsReportedAndRefused();
    void removeWithoutALayoutIsReportedAndRefused();
    void childCountWithoutALayoutIsReportedAndZero();
    void childrenWithoutALayoutAreNoneAndNothingIsReported();
    void messagesCarryNoFileOrLine();

    // With one.
    void everyChildOperationIsForwardedToTheLayout();
    void answersAreThoseOfTheLayout();
    void addMakesTheFigureTheParent();
    void firstStretchIsTheVerticalOneAndTheSecondTheHorizontal();
    void indexOutsideTheChildrenAppends_data();
    void indexOutsideTheChildrenAppends();
    void removeDetachesTheChild();

    // Layout manager.
    void setLayoutManagerReturnsThePreviousOne();
    void nullLayoutIsRefusedAndTheCurrentOneStays();
    void previousLayoutKeepsItsChildrenAndLives();
    void newLayoutKnowsItsFigureAndThePreviousOneNone();
    void settingALayoutInvalidatesNothing();
    void currentLayoutSetAgainIsReturnedAndStays();

    // Parent figure.
    void setParentFigureAnnouncesTheChange();
    void setParentFigureAnnouncesTheSameParentToo();
    void setParentFigureToNullDetaches();
    void newParentIsStoredWhenItIsAnnounced();
    void addAndRemoveAnnounceTheParent();

    // Enabling.
    void enablingRepaintsNothingAndLeavesTheChildren();
    void childrenAreEnabledInOrderThroughTheirOwnOperation();
};

void tst_Figure_Children::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_Figure_Children::addWithoutALayoutIsReportedAndRefused()
{
    Figure figure;
    Figure child;

    QTest::ignoreMessage(QtDebugMsg, "Figure::add(): failed, no layout manager");
    QVERIFY(!figure.add(&child, QVariant(), -1));

    QVERIFY(!child.getParentFigure());
}

void tst_Figure_Children::addWithStretchesWithoutALayoutIsReportedAndRefused()
{
    Figure figure;
    Figure child;

    QTest::ignoreMessage(QtDebugMsg, "Figure::add(): failed, no layout manager");
    QVERIFY(!figure.add(&child, 1u, 2u, -1));

    QVERIFY(!child.getParentFigure());
}

void tst_Figure_Children::removeWithoutALayoutIsReportedAndRefused()
{
    Figure figure;
    Figure child;

    QTest::ignoreMessage(QtDebugMsg, "Figure::remove(): failed, no layout manager");
    QVERIFY(!figure.remove(&child));
}

void tst_Figure_Children::childCountWithoutALayoutIsReportedAndZero()
{
    Figure figure;

    QTest::ignoreMessage(QtDebugMsg, "Figure::childFigureCount(): failed, no layout manager");
    QCOMPARE(figure.childFigureCount(), 0);
}

void tst_Figure_Children::childrenWithoutALayoutAreNoneAndNothingIsReported()
{
    Figure figure;
    LogCapture log;

    QCOMPARE(figure.childFigures(), QList<Figure *>());

    QCOMPARE(log.messages().size(), 0);
}

void tst_Figure_Children::messagesCarryNoFileOrLine()
{
    Figure figure;
    Figure child;
    LogCapture log;

    figure.add(&child);
    figure.add(&child, 0, 0, 0);
    figure.remove(&child);
    figure.childFigureCount();
    figure.setMinimumSize(QSize(0x7FFFFFFF, 0));
    figure.setMaximumSize(QSize(-2, -2));
    figure.setPreferredSize(QSize(-2, -2));
    figure.setBounds(QRect());

    QCOMPARE(log.texts(QtDebugMsg),
             QStringList({"Figure::add(): failed, no layout manager",
                          "Figure::add(): failed, no layout manager",
                          "Figure::remove(): failed, no layout manager",
                          "Figure::childFigureCount(): failed, no layout manager",
                          "Figure::setMinimumSize(): size out of bound",
                          "Figure::setMaximumSize(): size out of bound",
                          "Figure::setPreferredSize(): size out of bound",
                          "Figure::resolveBounds(): resolved bounds still invalid"}));
    QCOMPARE(log.messages().size(), 8);
    for (const LogCapture::Message &message : log.messages())
        QVERIFY(!message.hasPlace);
}

void tst_Figure_Children::everyChildOperationIsForwardedToTheLayout()
{
    ForwardingLayout layout;
    Figure figure;
    Figure child;
    figure.setLayoutManager(&layout);

    figure.add(&child, QStringLiteral("constraint"), 7);
    figure.add(&child);
    figure.add(&child, 3u, 5u, 8);
    figure.remove(&child);

    QCOMPARE(layout.log,
             QStringList({"add constraint at 7", "add  at -1", "add 3, 5 at 8", "remove"}));
    QCOMPARE(figure.childFigures(), QList<Figure *>({&child, &child, &child, &child}));
    QCOMPARE(figure.childFigureCount(), 4711);
}

void tst_Figure_Children::answersAreThoseOfTheLayout()
{
    ForwardingLayout layout;
    Figure figure;
    figure.setLayoutManager(&layout);

    for (const bool answer : {true, false}) {
        layout.answer = answer;
        QCOMPARE(figure.add(nullptr, QVariant(), 0), answer);
        QCOMPARE(figure.add(nullptr, 0u, 0u, 0), answer);
        QCOMPARE(figure.remove(nullptr), answer);
    }
}

void tst_Figure_Children::addMakesTheFigureTheParent()
{
    ParentFigure figure;
    Figure first;
    Figure second;

    QVERIFY(figure.add(&first));
    QVERIFY(figure.add(&second, 1, 1, -1));
    QVERIFY(!figure.add(&first));

    QCOMPARE(figure.childFigures(), QList<Figure *>({&first, &second}));
    QCOMPARE(figure.childFigureCount(), 2);
    QCOMPARE(first.getParentFigure(), &figure);
    QCOMPARE(second.getParentFigure(), &figure);
}

void tst_Figure_Children::firstStretchIsTheVerticalOneAndTheSecondTheHorizontal()
{
    StretchLayout layout;
    Figure figure;
    Figure first;
    Figure second;
    figure.setLayoutManager(&layout);

    figure.add(&first, 3u, 50u, -1);
    figure.add(&second, 4u, 60u, -1);

    QCOMPARE(layout.getVTotalStretch(), 7u);
    QCOMPARE(layout.getHTotalStretch(), 110u);
}

void tst_Figure_Children::indexOutsideTheChildrenAppends_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("position");

    QTest::newRow("below zero") << -1 << 2;
    QTest::newRow("at the bottom") << 0 << 0;
    QTest::newRow("between") << 1 << 1;
    QTest::newRow("the count") << 2 << 2;
    QTest::newRow("beyond the count") << 100 << 2;
}

void tst_Figure_Children::indexOutsideTheChildrenAppends()
{
    QFETCH(int, index);
    QFETCH(int, position);
    ParentFigure figure;
    Figure first;
    Figure second;
    Figure child;
    Figure stretched;
    figure.add(&first);
    figure.add(&second);

    figure.add(&child, QVariant(), index);
    QCOMPARE(figure.childFigures().indexOf(&child), position);

    figure.remove(&child);
    figure.add(&stretched, 1u, 1u, index);
    QCOMPARE(figure.childFigures().indexOf(&stretched), position);
}

void tst_Figure_Children::removeDetachesTheChild()
{
    ParentFigure figure;
    Figure first;
    Figure second;
    figure.add(&first);
    figure.add(&second);

    QVERIFY(figure.remove(&first));
    QVERIFY(!figure.remove(&first));

    QCOMPARE(figure.childFigures(), QList<Figure *>({&second}));
    QVERIFY(!first.getParentFigure());
}

void tst_Figure_Children::setLayoutManagerReturnsThePreviousOne()
{
    PlainLayout first;
    PlainLayout second;
    Figure figure;

    QCOMPARE(figure.setLayoutManager(&first), nullptr);
    QCOMPARE(figure.getLayoutManager(), &first);

    QCOMPARE(figure.setLayoutManager(&second), &first);
    QCOMPARE(figure.getLayoutManager(), &second);
}

void tst_Figure_Children::nullLayoutIsRefusedAndTheCurrentOneStays()
{
    PlainLayout layout;
    Figure figure;
    QCOMPARE(figure.setLayoutManager(nullptr), nullptr);
    figure.setLayoutManager(&layout);

    QCOMPARE(figure.setLayoutManager(nullptr), nullptr);

    QCOMPARE(figure.getLayoutManager(), &layout);
    QCOMPARE(layout.getFigure(), &figure);
}

void tst_Figure_Children::previousLayoutKeepsItsChildrenAndLives()
{
    QPointer<PlainLayout> first(new PlainLayout);
    PlainLayout second;
    Figure figure;
    Figure child;
    figure.setLayoutManager(first);
    figure.add(&child);

    figure.setLayoutManager(&second);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(first);
    QCOMPARE(first->childFigures(), QList<Figure *>({&child}));
    QCOMPARE(figure.childFigures(), QList<Figure *>());
    QCOMPARE(child.getParentFigure(), &figure);
    delete first;
}

void tst_Figure_Children::newLayoutKnowsItsFigureAndThePreviousOneNone()
{
    PlainLayout first;
    PlainLayout second;
    Figure figure;
    figure.setLayoutManager(&first);
    QCOMPARE(first.getFigure(), &figure);

    figure.setLayoutManager(&second);

    QCOMPARE(first.getFigure(), nullptr);
    QCOMPARE(second.getFigure(), &figure);
}

void tst_Figure_Children::settingALayoutInvalidatesNothing()
{
    PlainLayout layout;
    OpenFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setValid(true);
    figure.resetCalls();

    figure.setLayoutManager(&layout);

    QVERIFY(figure.isValid());
    QCOMPARE(figure.calls().invalidate, 0);
    QCOMPARE(figure.calls().revalidate, 0);
    QCOMPARE(figure.calls().repaint, 0);
    QCOMPARE(layout.invalidations, 0);
}

void tst_Figure_Children::currentLayoutSetAgainIsReturnedAndStays()
{
    PlainLayout layout;
    Figure figure;
    Figure child;
    figure.setLayoutManager(&layout);
    figure.add(&child);

    QCOMPARE(figure.setLayoutManager(&layout), &layout);

    QCOMPARE(figure.getLayoutManager(), &layout);
    QCOMPARE(layout.getFigure(), &figure);
    QCOMPARE(figure.childFigures(), QList<Figure *>({&child}));
}

void tst_Figure_Children::setParentFigureAnnouncesTheChange()
{
    Figure first;
    Figure second;
    Figure figure;
    figure.setParentFigure(&first);
    QSignalSpy changed(&figure, &Figure::propertyChanged);

    figure.setParentFigure(&second);

    QCOMPARE(figure.getParentFigure(), &second);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toString(), QStringLiteral("parent"));
    const QVariant before = changed[0][1];
    const QVariant after = changed[0][2];
    QCOMPARE(before.metaType(), QMetaType::fromType<Figure *>());
    QCOMPARE(after.metaType(), QMetaType::fromType<Figure *>());
    QCOMPARE(before.value<Figure *>(), &first);
    QCOMPARE(after.value<Figure *>(), &second);
}

void tst_Figure_Children::setParentFigureAnnouncesTheSameParentToo()
{
    Figure parent;
    Figure figure;
    figure.setParentFigure(&parent);
    QSignalSpy changed(&figure, &Figure::propertyChanged);

    figure.setParentFigure(&parent);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][1].value<Figure *>(), &parent);
    QCOMPARE(changed[0][2].value<Figure *>(), &parent);
}

void tst_Figure_Children::setParentFigureToNullDetaches()
{
    Figure parent;
    Figure figure;
    figure.setParentFigure(&parent);
    QSignalSpy changed(&figure, &Figure::propertyChanged);

    figure.setParentFigure(nullptr);

    QCOMPARE(figure.getParentFigure(), nullptr);
    const QVariant after = changed[0][2];
    QCOMPARE(after.metaType(), QMetaType::fromType<Figure *>());
    QCOMPARE(after.value<Figure *>(), nullptr);
}

void tst_Figure_Children::newParentIsStoredWhenItIsAnnounced()
{
    Figure parent;
    Figure figure;
    Figure *seen = nullptr;
    connect(&figure, &Figure::propertyChanged, &figure, [&] { seen = figure.getParentFigure(); });

    figure.setParentFigure(&parent);

    QCOMPARE(seen, &parent);
}

void tst_Figure_Children::addAndRemoveAnnounceTheParent()
{
    ParentFigure parent;
    Figure child;
    QSignalSpy changed(&child, &Figure::propertyChanged);

    parent.add(&child);
    parent.remove(&child);

    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed[0][2].value<Figure *>(), &parent);
    QCOMPARE(changed[1][1].value<Figure *>(), &parent);
    QCOMPARE(changed[1][2].value<Figure *>(), nullptr);
}

void tst_Figure_Children::enablingRepaintsNothingAndLeavesTheChildren()
{
    ParentFigure figure;
    Figure child;
    figure.add(&child);
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setValid(true);
    figure.resetCalls();

    figure.setEnabled(false);

    QVERIFY(!figure.isEnabled());
    QVERIFY(!figure.getFlag(Figure::FLAG_ENABLED));
    QVERIFY(child.isEnabled());
    QVERIFY(figure.isValid());
    QCOMPARE(figure.calls().repaint, 0);

    figure.setEnabled(true);
    QVERIFY(figure.isEnabled());
}

void tst_Figure_Children::childrenAreEnabledInOrderThroughTheirOwnOperation()
{
    QStringList log;
    ParentFigure figure;
    LoggingFigure first(QStringLiteral("first"), &log);
    LoggingFigure second(QStringLiteral("second"), &log);
    Figure grandchild;
    figure.add(&first);
    figure.add(&second);
    first.add(&grandchild);
    log.clear();

    figure.setChildrenEnabled(false);

    QCOMPARE(log, QStringList({"first setEnabled", "second setEnabled"}));
    QVERIFY(!first.isEnabled());
    QVERIFY(!second.isEnabled());
    QVERIFY(figure.isEnabled());
    QVERIFY(grandchild.isEnabled());
}

QTEST_MAIN(tst_Figure_Children)
#include "tst_figure_children.moc"
