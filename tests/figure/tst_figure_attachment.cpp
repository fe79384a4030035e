#include "fixtures.h"

#include <logcapture.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>

#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

bool isNotified(const Figure &figure)
{
    return figure.getFlag(Figure::FLAG_NOTIFIED);
}

/// A figure that remembers whether its parent was marked when it was called itself.
class WatchingFigure : public OpenFigure
{
public:
    QList<bool> parentWasNotified;

    void addNotify() override
    {
        parentWasNotified.append(isNotified(*getParentFigure()));
        OpenFigure::addNotify();
    }

    void removeNotify() override
    {
        parentWasNotified.append(isNotified(*getParentFigure()));
        OpenFigure::removeNotify();
    }
};

} // namespace

class tst_Figure_Attachment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void addNotifyMarksTheFigureThenItsChildrenInOrder();
    void removeNotifyUnmarksTheChildrenInOrderThenTheFigure();
    void figureIsMarkedBeforeItsChildrenAndUnmarkedAfterThem();
    void secondAddNotifyIsReportedAndDoesNotReachTheChildren();
    void theReportCarriesNoFileOrLine();
    void removeNotifyOfAnUnmarkedFigureIsSilentButReachesTheChildren();
    void childAddedToAMarkedFigureIsMarked();
    void childAddedToAnUnmarkedFigureIsNot();
    void childRemovedFromAMarkedFigureIsUnmarked();
    void updateManagerIsThatOfTheRoot();
    void updateManagerIsHiddenFromUnmarkedFigures();
    void updateManagerIsAskedOfTheParentVirtually();
    void markedRootWithoutAnUpdateManagerHasNone();
    void contentOfAViewerIsTheRootOfItsUpdateManager();

private:
    RecordingUpdateManager m_updates;
};

void tst_Figure_Attachment::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_updates.clear();
}

void tst_Figure_Attachment::addNotifyMarksTheFigureThenItsChildrenInOrder()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("parent"), &log);
    LoggingFigure first(QStringLiteral("first"), &log);
    LoggingFigure second(QStringLiteral("second"), &log);
    Figure grandchild;
    figure.add(&first);
    figure.add(&second);
    second.add(&grandchild);
    log.clear();

    figure.addNotify();

    QCOMPARE(log, QStringList({"parent addNotify", "first addNotify", "second addNotify"}));
    QVERIFY(isNotified(figure));
    QVERIFY(isNotified(first));
    QVERIFY(isNotified(second));
    QVERIFY(isNotified(grandchild));
}

void tst_Figure_Attachment::removeNotifyUnmarksTheChildrenInOrderThenTheFigure()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("parent"), &log);
    LoggingFigure first(QStringLiteral("first"), &log);
    LoggingFigure second(QStringLiteral("second"), &log);
    figure.add(&first);
    figure.add(&second);
    figure.addNotify();
    log.clear();

    figure.removeNotify();

    QCOMPARE(log,
             QStringList({"parent removeNotify", "first removeNotify", "second removeNotify"}));
    QVERIFY(!isNotified(figure));
    QVERIFY(!isNotified(first));
    QVERIFY(!isNotified(second));
}

void tst_Figure_Attachment::figureIsMarkedBeforeItsChildrenAndUnmarkedAfterThem()
{
    ParentFigure figure;
    WatchingFigure child;
    figure.add(&child);

    figure.addNotify();
    figure.removeNotify();

    QCOMPARE(child.parentWasNotified, QList<bool>({true, true}));
    QVERIFY(!isNotified(figure));
}

void tst_Figure_Attachment::secondAddNotifyIsReportedAndDoesNotReachTheChildren()
{
    ParentFigure figure;
    CountingFigure child;
    figure.add(&child);
    figure.addNotify();
    child.resetCalls();

    QTest::ignoreMessage(QtDebugMsg, "Figure::addNotify() should not be call multiple times");
    figure.addNotify();

    QCOMPARE(child.calls().addNotify, 0);
    QVERIFY(isNotified(figure));
}

void tst_Figure_Attachment::theReportCarriesNoFileOrLine()
{
    Figure figure;
    figure.addNotify();
    LogCapture log;

    figure.addNotify();

    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(log.messages().first().type, QtDebugMsg);
    QVERIFY(!log.messages().first().hasPlace);
}

void tst_Figure_Attachment::removeNotifyOfAnUnmarkedFigureIsSilentButReachesTheChildren()
{
    ParentFigure figure;
    CountingFigure child;
    figure.add(&child);
    LogCapture log;

    figure.removeNotify();

    QCOMPARE(child.calls().removeNotify, 1);
    QCOMPARE(log.messages().size(), 0);
}

void tst_Figure_Attachment::childAddedToAMarkedFigureIsMarked()
{
    ParentFigure figure;
    ParentFigure child;
    Figure grandchild;
    child.add(&grandchild);
    figure.addNotify();

    figure.add(&child);

    QCOMPARE(child.calls().addNotify, 1);
    QVERIFY(isNotified(child));
    QVERIFY(isNotified(grandchild));
}

void tst_Figure_Attachment::childAddedToAnUnmarkedFigureIsNot()
{
    ParentFigure figure;
    CountingFigure child;

    figure.add(&child);

    QCOMPARE(child.calls().addNotify, 0);
    QVERIFY(!isNotified(child));
}

void tst_Figure_Attachment::childRemovedFromAMarkedFigureIsUnmarked()
{
    ParentFigure figure;
    ParentFigure child;
    Figure grandchild;
    child.add(&grandchild);
    figure.addNotify();
    figure.add(&child);

    figure.remove(&child);

    QVERIFY(!isNotified(child));
    QVERIFY(!isNotified(grandchild));
    QVERIFY(isNotified(figure));
}

void tst_Figure_Attachment::updateManagerIsThatOfTheRoot()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    ParentFigure child;
    Figure grandchild;
    root.setLayoutManager(&layout);
    root.add(&child);
    child.add(&grandchild);

    QCOMPARE(child.getUpdateManager(), &m_updates);
    QCOMPARE(grandchild.getUpdateManager(), &m_updates);
}

void tst_Figure_Attachment::updateManagerIsHiddenFromUnmarkedFigures()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    ParentFigure child;
    root.setLayoutManager(&layout);
    root.add(&child);

    child.removeNotify();

    QCOMPARE(child.getUpdateManager(), nullptr);
}

void tst_Figure_Attachment::updateManagerIsAskedOfTheParentVirtually()
{
    class Middle : public ParentFigure
    {
    public:
        UpdateManager *getUpdateManager() const override { return manager; }
        UpdateManager *manager = nullptr;
    };
    RecordingUpdateManager other;
    Middle middle;
    Figure child;
    middle.manager = &other;
    middle.addNotify();

    middle.add(&child);

    QCOMPARE(child.getUpdateManager(), &other);
    middle.manager = nullptr;
    QCOMPARE(child.getUpdateManager(), nullptr);
}

void tst_Figure_Attachment::markedRootWithoutAnUpdateManagerHasNone()
{
    CountingFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));

    figure.addNotify();
    figure.repaint();
    figure.revalidate();

    QVERIFY(isNotified(figure));
    QCOMPARE(figure.getUpdateManager(), nullptr);
}

void tst_Figure_Attachment::contentOfAViewerIsTheRootOfItsUpdateManager()
{
    FreeformViewer viewer;
    FreeformLayeredPane content;
    FreeformLayer layer;
    content.addLayer(&layer, QStringLiteral("figures"));

    viewer.setContent(&content);

    QVERIFY(isNotified(content));
    QVERIFY(isNotified(layer));
    QVERIFY(viewer.getUpdateManager());
    QCOMPARE(content.getUpdateManager(), viewer.getUpdateManager());
    QCOMPARE(layer.getUpdateManager(), viewer.getUpdateManager());
}

QTEST_MAIN(tst_Figure_Attachment)
#include "tst_figure_attachment.moc"
