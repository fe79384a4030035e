#include "fixtures.h"

#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

class tst_Figure_Visibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void settingTheSameVisibilityHasNoEffect_data();
    void settingTheSameVisibilityHasNoEffect();
    void hidingErasesWhileStillVisibleAndRevalidatesLast();
    void showingRepaintsAndRevalidatesLast();
    void hidingDamagesTheOldAreaOfTheParent();
    void showingDamagesTheOwnArea();
    void bothQueueTheRootForValidation();
    void hidingARootDamagesNothing();
    void hiddenFigureDamagesNothing();
    void hiddenParentDoesNotHideItsChildrensFlag();
    void hiddenFigureIsValidatedAllTheSame();
    void hiddenChildIsNotPainted();
    void hiddenChildIsNotHit();
    void hiddenFigureAskedItselfPaintsAndIsHit();

private:
    RecordingUpdateManager m_updates;
};

void tst_Figure_Visibility::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_updates.clear();
}

void tst_Figure_Visibility::settingTheSameVisibilityHasNoEffect_data()
{
    QTest::addColumn<bool>("visible");

    QTest::newRow("visible") << true;
    QTest::newRow("hidden") << false;
}

void tst_Figure_Visibility::settingTheSameVisibilityHasNoEffect()
{
    QFETCH(bool, visible);
    QStringList log;
    LoggingFigure figure(QStringLiteral("figure"), &log);
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setVisible(visible);
    log.clear();

    figure.setVisible(visible);

    QCOMPARE(figure.isVisible(), visible);
    QCOMPARE(log, QStringList());
}

void tst_Figure_Visibility::hidingErasesWhileStillVisibleAndRevalidatesLast()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("figure"), &log);
    figure.setBounds(QRect(0, 0, 10, 10));
    log.clear();

    figure.setVisible(false);

    QVERIFY(!figure.isVisible());
    QVERIFY(!figure.getFlag(Figure::FLAG_VISIBLE));
    QCOMPARE(log, QStringList({"figure erase", "figure revalidate", "figure invalidate"}));
}

void tst_Figure_Visibility::showingRepaintsAndRevalidatesLast()
{
    QStringList log;
    LoggingFigure figure(QStringLiteral("figure"), &log);
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setVisible(false);
    log.clear();

    figure.setVisible(true);

    QVERIFY(figure.isVisible());
    QCOMPARE(log, QStringList({"figure repaint", "figure revalidate", "figure invalidate"}));
}

void tst_Figure_Visibility::hidingDamagesTheOldAreaOfTheParent()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    Figure child;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(100, 200, 50, 50));
    root.add(&child);
    child.setBounds(QRect(1, 2, 3, 4));
    m_updates.clear();

    child.setVisible(false);

    QCOMPARE(m_updates.dirtyRects(&root), QList<QRect>({{101, 202, 3, 4}}));
    QCOMPARE(m_updates.dirtyRects(&child), QList<QRect>());
}

void tst_Figure_Visibility::showingDamagesTheOwnArea()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    Figure child;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(100, 200, 50, 50));
    root.add(&child);
    child.setBounds(QRect(1, 2, 3, 4));
    child.setVisible(false);
    m_updates.clear();

    child.setVisible(true);

    QCOMPARE(m_updates.dirtyRects(&child), QList<QRect>({{1, 2, 3, 4}}));
}

void tst_Figure_Visibility::bothQueueTheRootForValidation()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    Figure child;
    root.setLayoutManager(&layout);
    root.add(&child);

    for (const bool visible : {false, true}) {
        root.validate();
        m_updates.clear();
        child.setVisible(visible);
        QCOMPARE(m_updates.invalidFigures(), QList<Figure *>({&root}));
    }
}

void tst_Figure_Visibility::hidingARootDamagesNothing()
{
    RootFigure root(&m_updates);
    root.setBounds(QRect(0, 0, 10, 10));
    m_updates.clear();

    root.setVisible(false);

    QCOMPARE(m_updates.dirtyRects(), QList<QRect>());
}

void tst_Figure_Visibility::hiddenFigureDamagesNothing()
{
    PlainLayout layout;
    RootFigure root(&m_updates);
    Figure child;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(100, 200, 50, 50));
    root.add(&child);
    child.setBounds(QRect(1, 2, 3, 4));
    child.setVisible(false);
    m_updates.clear();

    child.repaint();
    child.erase();
    child.setBackgroundColor(Qt::red);
    child.setBounds(QRect(11, 12, 13, 14));

    QCOMPARE(m_updates.dirtyRects(), QList<QRect>());
}

void tst_Figure_Visibility::hiddenParentDoesNotHideItsChildrensFlag()
{
    ParentFigure parent;
    Figure child;
    parent.add(&child);

    parent.setVisible(false);

    QVERIFY(child.isVisible());
}

void tst_Figure_Visibility::hiddenFigureIsValidatedAllTheSame()
{
    ParentFigure parent;
    OpenFigure child;
    parent.add(&child);
    child.setVisible(false);

    parent.validate();

    QVERIFY(child.isValid());
    QCOMPARE(child.calls().layout, 1);
}

void tst_Figure_Visibility::hiddenChildIsNotPainted()
{
    ParentFigure parent;
    CountingFigure shown;
    CountingFigure hidden;
    parent.setBounds(QRect(0, 0, 50, 50));
    parent.add(&shown);
    parent.add(&hidden);
    shown.setBounds(QRect(0, 0, 10, 10));
    hidden.setBounds(QRect(0, 0, 10, 10));
    hidden.setVisible(false);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 50, 50);

    record([&](QPainter *painter) { parent.render(painter, option); });

    QCOMPARE(shown.calls().drawFigure, 1);
    QCOMPARE(hidden.calls().render, 0);
}

void tst_Figure_Visibility::hiddenChildIsNotHit()
{
    ParentFigure parent;
    ParentFigure hidden;
    Figure grandchild;
    parent.setBounds(QRect(0, 0, 50, 50));
    parent.add(&hidden);
    hidden.add(&grandchild);
    hidden.setBounds(QRect(0, 0, 10, 10));
    grandchild.setBounds(QRect(0, 0, 10, 10));

    hidden.setVisible(false);

    QCOMPARE(parent.findFigureAt(5, 5), &parent);
    QCOMPARE(parent.findFigures(QRect(0, 0, 20, 20), false), QList<Figure *>({&parent}));
}

// Only layouts ask whether a figure is visible, and that of their children.
void tst_Figure_Visibility::hiddenFigureAskedItselfPaintsAndIsHit()
{
    CountingFigure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    figure.setVisible(false);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 50, 50);

    record([&](QPainter *painter) { figure.render(painter, option); });

    QCOMPARE(figure.calls().drawFigure, 1);
    QCOMPARE(figure.findFigureAt(5, 5), &figure);
}

QTEST_MAIN(tst_Figure_Visibility)
#include "tst_figure_visibility.moc"
