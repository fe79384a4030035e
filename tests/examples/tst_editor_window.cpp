#include "editordriver.h"
#include "editorfixtures.h"
#include "feedback/Feedback.h"
#include "files/Clip.h"
#include "files/DocumentFile.h"
#include "model/Document.h"
#include "panels/PalettePanel.h"
#include "tools/ToolBox.h"
#include "window/EditorWindow.h"
#include "window/InlineEditor.h"
#include "window/Keeper.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QUndoView>
#include <QUrl>
#include <QWheelEvent>

using namespace Editor;
using namespace Editor::EditorFixtures;
using Velmora::Figura::DiagramView;

class tst_EditorWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_driver.reset(); }

    void everyFigureOfThePaletteIsMadeByAClick_data();
    void everyFigureOfThePaletteIsMadeByAClick();
    void aFigureIsMadeAsLargeAsItIsDragged();
    void anEntryOfThePaletteIsDroppedOnTheCanvas();
    void aDroppedImageFileBecomesAPicture();
    void aDroppedFileThatIsNoPictureIsAMessage();
    void escapeGivesTheToolUp();

    void aClickSelectsAndShiftAdds();
    void aClickOnOneOfSeveralSelectsItAlone();
    void theBandSelectsWhatLiesInIt();
    void tabWalksTheFigures();
    void everythingIsSelected();

    void aDragMovesTheSelection();
    void aDragSnapsToTheGrid();
    void aDragSnapsToOthersAndShowsGuides();
    void shiftKeepsADragOnItsLine();
    void escapeTakesADragBack();
    void eachHandleResizes_data();
    void eachHandleResizes();
    void arrowKeysNudge();

    void portsAppearWhereTheMouseIs();
    void aDragFromAPortConnects();
    void theTargetLightsUp();
    void theConnectToolConnects();
    void aDragBackToTheFigureMakesALoop();
    void anEndIsDraggedToAnotherFigure();
    void bendsAreAddedMovedAndDeleted();
    void routingIsChosenForEachConnection();
    void aLabelIsDraggedAndStays();

    void aNodeIsDroppedIntoALaneAndTakenOut();
    void aFigureMadeInALaneIsInIt();

    void textIsEditedInPlace_data();
    void textIsEditedInPlace();
    void escapeLeavesTheTextAsItWas();

    void deletedFiguresTakeTheirConnectionsAlong();
    void copiesArePastedBesideTheirModels();
    void theClipboardHasAPictureToo();
    void aDuplicateIsOneStep();
    void figuresChangeTheirOrder();
    void figuresAreAlignedAndDistributed();
    void theHistoryListsTheStepsAndGoesBack();

    void ctrlAndWheelZoomAboutTheCursor();
    void theHandDragsThePaper();
    void spaceDragsThePaper();
    void fitAndNormalSize();
    void theWindowTurnsDarkAndBack();
    void onlyWhatTheUserChoseIsRemembered();

private:
    Workbench &bench() { return m_driver->window().bench(); }
    Document &document() { return bench().document(); }
    const Node &node(int id) { return *document().node(id); }
    const Edge &edge(int id) { return *document().edge(id); }
    void drop(QMimeData &data, const QPoint &content);
    void openWithoutSnapping(const Content &content);

    std::unique_ptr<EditorDriver> m_driver;
};

namespace {

Content threeBoxes()
{
    Content content;
    content.nodes = {EditorFixtures::node(1, {40, 40, 100, 60}),
                     EditorFixtures::node(2, {240, 40, 100, 60}),
                     EditorFixtures::node(3, {240, 200, 100, 60}, NodeKind::Ellipse)};
    return content;
}

Content connected()
{
    Content content = threeBoxes();
    content.edges = {EditorFixtures::edge(4, 1, 2)};
    return content;
}

Content withLane()
{
    Content content = threeBoxes();
    content.nodes.prepend(EditorFixtures::node(9, {400, 20, 200, 320}, NodeKind::Lane));
    return content;
}

} // namespace

void tst_EditorWindow::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*propagateSizeHints)")));
    m_driver = std::make_unique<EditorDriver>();
}

void tst_EditorWindow::openWithoutSnapping(const Content &content)
{
    bench().options.snapToGrid = bench().options.snapToOthers = false;
    m_driver->open(content);
}

void tst_EditorWindow::drop(QMimeData &data, const QPoint &content)
{
    QWidget *canvas = m_driver->canvas();
    const QPointF position = m_driver->canvas()->fromLogical(QPointF(content));
    QDragEnterEvent enter(position.toPoint(), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(canvas, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &event);
    QVERIFY(event.isAccepted());
}

void tst_EditorWindow::everyFigureOfThePaletteIsMadeByAClick_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(NodeKind::Rectangle);
    QTest::newRow("rounded") << int(NodeKind::Rounded);
    QTest::newRow("ellipse") << int(NodeKind::Ellipse);
    QTest::newRow("diamond") << int(NodeKind::Diamond);
    QTest::newRow("text") << int(NodeKind::Text);
    QTest::newRow("lane") << int(NodeKind::Lane);
}

void tst_EditorWindow::everyFigureOfThePaletteIsMadeByAClick()
{
    QFETCH(int, kind);
    m_driver->open(threeBoxes());

    m_driver->choose(static_cast<NodeKind>(kind));
    QCOMPARE(m_driver->window().tools().kind(), ToolBox::Kind::Create);
    m_driver->click({400, 300});

    QCOMPARE(document().nodeOrder().size(), 4);
    const Node &made = node(document().nodeOrder().last());
    QCOMPARE(int(made.kind), kind);
    QVERIFY(made.rect.contains(400, 300));
    QCOMPARE(bench().selection().ids(), QList<int>{made.id});
    QCOMPARE(m_driver->window().tools().kind(), ToolBox::Kind::Select);
}

void tst_EditorWindow::aFigureIsMadeAsLargeAsItIsDragged()
{
    m_driver->open(threeBoxes());

    m_driver->choose(NodeKind::Ellipse);
    m_driver->drag({401, 399}, {452, 331});

    QCOMPARE(node(document().nodeOrder().last()).rect, QRect(400, 330, 50, 70));
}

void tst_EditorWindow::anEntryOfThePaletteIsDroppedOnTheCanvas()
{
    m_driver->open(threeBoxes());
    QMimeData data;
    data.setData(PalettePanel::mimeType, "diamond");

    drop(data, {420, 240});

    const Node &made = node(document().nodeOrder().last());
    QCOMPARE(made.kind, NodeKind::Diamond);
    QVERIFY((made.rect.center() - QPoint(420, 240)).manhattanLength() <= 10);
}

void tst_EditorWindow::aDroppedImageFileBecomesAPicture()
{
    m_driver->open(threeBoxes());
    const QString path = m_driver->path(QStringLiteral("a.png"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(picture({60, 40}, Qt::red));
    file.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});

    drop(data, {420, 240});

    const Node &made = node(document().nodeOrder().last());
    QCOMPARE(made.kind, NodeKind::Picture);
    QCOMPARE(made.rect, QRect(390, 220, 60, 40));
    QCOMPARE(made.picture, picture({60, 40}, Qt::red));
}

void tst_EditorWindow::aDroppedFileThatIsNoPictureIsAMessage()
{
    m_driver->open(threeBoxes());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_driver->path(QStringLiteral("missing.png")))});

    drop(data, {420, 240});

    auto *box = m_driver->window().findChild<QMessageBox *>();
    QVERIFY(box);
    QVERIFY2(box->text().endsWith(QStringLiteral("missing.png: No such file or directory")),
             qPrintable(box->text()));
    QCOMPARE(document().content(), threeBoxes());
}

void tst_EditorWindow::escapeGivesTheToolUp()
{
    m_driver->choose(NodeKind::Ellipse);
    m_driver->press({100, 100});
    m_driver->key(Qt::Key_Escape);
    m_driver->release({160, 160});

    QCOMPARE(m_driver->window().tools().kind(), ToolBox::Kind::Select);
    QVERIFY(document().content().isEmpty());
}

void tst_EditorWindow::aClickSelectsAndShiftAdds()
{
    m_driver->open(connected());

    m_driver->click({90, 70});
    QCOMPARE(bench().selection().ids(), QList<int>{1});
    m_driver->click({290, 230}, Qt::ShiftModifier);
    QCOMPARE(bench().selection().ids(), (QList<int>{1, 3}));
    m_driver->click({190, 70}, Qt::ShiftModifier);
    QCOMPARE(bench().selection().ids(), (QList<int>{1, 3, 4}));
    m_driver->click({90, 70}, Qt::ShiftModifier);
    QCOMPARE(bench().selection().ids(), (QList<int>{3, 4}));
    m_driver->click({20, 350});
    QVERIFY(bench().selection().isEmpty());
    QCOMPARE(bench().history().count(), 0);
}

void tst_EditorWindow::aClickOnOneOfSeveralSelectsItAlone()
{
    m_driver->open(threeBoxes());
    bench().selection().set({1, 2, 3});

    m_driver->click({90, 70});

    QCOMPARE(bench().selection().ids(), QList<int>{1});
}

void tst_EditorWindow::theBandSelectsWhatLiesInIt()
{
    m_driver->open(connected());

    m_driver->press({20, 20});
    m_driver->moveTo({350, 110});
    QCOMPARE(bench().view()->elasticBand(), QRect(QPoint(20, 20), QPoint(350, 110)));
    m_driver->release({350, 110});

    QCOMPARE(bench().selection().ids(), (QList<int>{1, 2, 4}));
    QVERIFY(!bench().view()->elasticBand().isValid());
    m_driver->drag({220, 190}, {350, 280}, Qt::ShiftModifier);
    QCOMPARE(bench().selection().ids(), (QList<int>{1, 2, 4, 3}));
}

void tst_EditorWindow::tabWalksTheFigures()
{
    m_driver->open(threeBoxes());

    QList<int> walked;
    for (int i = 0; i < 4; ++i) {
        m_driver->key(Qt::Key_Tab);
        walked << bench().selection().ids();
    }
    m_driver->key(Qt::Key_Backtab);
    walked << bench().selection().ids();

    QCOMPARE(walked, (QList<int>{1, 2, 3, 1, 3}));
}

void tst_EditorWindow::everythingIsSelected()
{
    m_driver->open(connected());

    m_driver->trigger(QStringLiteral("Select all"));

    QCOMPARE(bench().selection().ids(), (QList<int>{1, 2, 3, 4}));
}

void tst_EditorWindow::aDragMovesTheSelection()
{
    openWithoutSnapping(threeBoxes());
    bench().selection().set({1, 3});

    m_driver->drag({90, 70}, {113, 64});

    QCOMPARE(node(1).rect, QRect(63, 34, 100, 60));
    QCOMPARE(node(2).rect, QRect(240, 40, 100, 60));
    QCOMPARE(node(3).rect, QRect(263, 194, 100, 60));
    QCOMPARE(bench().history().count(), 1);
    QCOMPARE(bench().history().undoText(), QStringLiteral("Move"));
    m_driver->trigger(QStringLiteral("Undo Move"));
    QCOMPARE(document().content(), threeBoxes());
}

void tst_EditorWindow::aDragSnapsToTheGrid()
{
    m_driver->open(threeBoxes());
    bench().options.snapToOthers = false;

    m_driver->drag({90, 70}, {107, 94});

    QCOMPARE(node(1).rect.topLeft(), QPoint(60, 60));
    m_driver->drag({110, 90}, {113, 99}, Qt::AltModifier);
    QCOMPARE(node(1).rect.topLeft(), QPoint(63, 69));
}

void tst_EditorWindow::aDragSnapsToOthersAndShowsGuides()
{
    m_driver->open(threeBoxes());
    bench().options.snapToGrid = false;

    m_driver->press({90, 70});
    m_driver->moveTo({292, 143}); // the left side would be at 242: two beside that of the others
    QCOMPARE(node(1).rect.topLeft(), QPoint(240, 113));
    int guides = 0;
    for (const Mark &mark : bench().feedback().passing())
        guides += mark.kind == Mark::Kind::Guide;
    QCOMPARE(guides, 3); // left, centre and right

    m_driver->release({292, 143});
    QVERIFY(bench().feedback().passing().isEmpty());
}

void tst_EditorWindow::shiftKeepsADragOnItsLine()
{
    openWithoutSnapping(threeBoxes());
    bench().selection().set({1});

    m_driver->drag({90, 70}, {97, 130}, Qt::ShiftModifier);

    QCOMPARE(node(1).rect.topLeft(), QPoint(40, 100));
}

void tst_EditorWindow::escapeTakesADragBack()
{
    m_driver->open(threeBoxes());

    m_driver->press({90, 70});
    m_driver->moveTo({190, 170});
    QVERIFY(document().content() != threeBoxes());
    m_driver->key(Qt::Key_Escape);
    m_driver->moveTo({200, 180});
    m_driver->release({200, 180});

    QCOMPARE(document().content(), threeBoxes());
    QVERIFY(!bench().history().canUndo());
}

void tst_EditorWindow::eachHandleResizes_data()
{
    QTest::addColumn<QPoint>("handle");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("top left") << QPoint(40, 40) << QRect(60, 50, 80, 50);
    QTest::newRow("top") << QPoint(89, 40) << QRect(40, 50, 100, 50);
    QTest::newRow("top right") << QPoint(139, 40) << QRect(40, 50, 120, 50);
    QTest::newRow("right") << QPoint(139, 69) << QRect(40, 40, 120, 60);
    QTest::newRow("bottom right") << QPoint(139, 99) << QRect(40, 40, 120, 70);
    QTest::newRow("bottom") << QPoint(89, 99) << QRect(40, 40, 100, 70);
    QTest::newRow("bottom left") << QPoint(40, 99) << QRect(60, 40, 80, 70);
    QTest::newRow("left") << QPoint(40, 69) << QRect(60, 40, 80, 60);
}

void tst_EditorWindow::eachHandleResizes()
{
    QFETCH(QPoint, handle);
    QFETCH(QRect, expected);
    openWithoutSnapping(threeBoxes());
    m_driver->click({90, 70});

    m_driver->drag(handle, handle + QPoint(20, 10));

    QCOMPARE(node(1).rect, expected);
    QCOMPARE(bench().history().count(), 1);
}

void tst_EditorWindow::arrowKeysNudge()
{
    m_driver->open(threeBoxes());
    m_driver->click({90, 70});

    m_driver->key(Qt::Key_Right);
    m_driver->key(Qt::Key_Down);
    m_driver->key(Qt::Key_Left, Qt::ShiftModifier);

    QCOMPARE(node(1).rect.topLeft(), QPoint(31, 41));
    QCOMPARE(bench().history().count(), 3);
}

void tst_EditorWindow::portsAppearWhereTheMouseIs()
{
    m_driver->open(threeBoxes());

    m_driver->hover({90, 70});
    QCOMPARE(bench().feedback().ports().size(), 4);
    QCOMPARE(bench().feedback().portNode(), 1);
    m_driver->hover({150, 70}); // between the side and the port
    QCOMPARE(bench().feedback().portNode(), 1);
    m_driver->hover({290, 70});
    QCOMPARE(bench().feedback().portNode(), 2);
    m_driver->hover({20, 350});
    QVERIFY(bench().feedback().ports().isEmpty());
}

void tst_EditorWindow::aDragFromAPortConnects()
{
    m_driver->open(threeBoxes());
    m_driver->hover({90, 70});
    const QPoint port = bench().feedback().ports().at(1).at;

    m_driver->drag(port, {290, 230});

    QCOMPARE(document().edgeOrder().size(), 1);
    const Edge &made = edge(document().edgeOrder().first());
    QCOMPARE(made.source, 1);
    QCOMPARE(made.target, 3);
    QCOMPARE(bench().selection().ids(), QList<int>{made.id});
}

void tst_EditorWindow::theTargetLightsUp()
{
    m_driver->open(threeBoxes());
    m_driver->hover({90, 70});

    m_driver->press(bench().feedback().ports().at(1).at);
    m_driver->moveTo({230, 150});
    QVERIFY(bench().feedback().passing().size() == 1); // the line
    m_driver->moveTo({290, 70});
    const QList<Mark> marks = bench().feedback().passing();

    QCOMPARE(marks.size(), 2);
    QCOMPARE(marks.first().kind, Mark::Kind::Target);
    QVERIFY(marks.first().rect.contains(QRect(240, 40, 100, 60)));
    m_driver->release({230, 150});
    QVERIFY(bench().feedback().passing().isEmpty());
    QVERIFY(document().edgeOrder().isEmpty());
}

void tst_EditorWindow::theConnectToolConnects()
{
    m_driver->open(threeBoxes());
    bench().options.routing = Routing::Manhattan;

    m_driver->trigger(QStringLiteral("Connect"));
    m_driver->drag({90, 70}, {290, 70});
    m_driver->drag({290, 70}, {290, 230});
    m_driver->key(Qt::Key_Escape);

    QCOMPARE(document().edgeOrder().size(), 2);
    QCOMPARE(edge(document().edgeOrder().last()).source, 2);
    QCOMPARE(edge(document().edgeOrder().last()).routing, Routing::Manhattan);
    QCOMPARE(m_driver->window().tools().kind(), ToolBox::Kind::Select);
}

void tst_EditorWindow::aDragBackToTheFigureMakesALoop()
{
    m_driver->open(threeBoxes());
    m_driver->trigger(QStringLiteral("Connect"));

    m_driver->click({90, 70});
    QVERIFY(document().edgeOrder().isEmpty()); // a click is no loop
    m_driver->press({90, 70});
    m_driver->moveTo({190, 140});
    m_driver->moveTo({90, 70});
    m_driver->release({90, 70});

    QCOMPARE(document().edgeOrder().size(), 1);
    QVERIFY(edge(document().edgeOrder().first()).isLoop());
    QVERIFY(edge(document().edgeOrder().first()).bends.size() > 1);
}

void tst_EditorWindow::anEndIsDraggedToAnotherFigure()
{
    m_driver->open(connected());
    m_driver->click({190, 70});
    const QPoint end = bench().scene().points(4).last();

    m_driver->drag(end, {290, 230});

    QCOMPARE(edge(4).source, 1);
    QCOMPARE(edge(4).target, 3);
    m_driver->drag(bench().scene().points(4).first(), {290, 70});
    QCOMPARE(edge(4).source, 2);
    m_driver->drag(bench().scene().points(4).first(), {30, 350}); // nowhere
    QCOMPARE(edge(4).source, 2);
}

void tst_EditorWindow::bendsAreAddedMovedAndDeleted()
{
    openWithoutSnapping(connected());
    m_driver->click({170, 70});

    m_driver->drag({190, 70}, {190, 150});
    QCOMPARE(edge(4).bends, QList<QPoint>{QPoint(190, 150)});
    QCOMPARE(edge(4).routing, Routing::Bendpoint);
    m_driver->drag({190, 150}, {200, 160});
    QCOMPARE(edge(4).bends, QList<QPoint>{QPoint(200, 160)});
    m_driver->drag({200, 160}, {190, 72}); // where the line would be without it

    QVERIFY(edge(4).bends.isEmpty());
    QCOMPARE(bench().history().count(), 3);
}

void tst_EditorWindow::routingIsChosenForEachConnection()
{
    Content content = connected();
    content.edges << EditorFixtures::edge(5, 1, 3);
    m_driver->open(content);
    bench().selection().set({5});

    m_driver->trigger(QStringLiteral("manhattan"));

    QCOMPARE(edge(4).routing, Routing::Straight);
    QCOMPARE(edge(5).routing, Routing::Manhattan);
    bench().scene().validate();
    const QList<QPoint> way = bench().scene().points(5);
    for (qsizetype i = 1; i < way.size(); ++i)
        QVERIFY(way.at(i).x() == way.at(i - 1).x() || way.at(i).y() == way.at(i - 1).y());
    m_driver->trigger(QStringLiteral("bendpoint"));
    QCOMPARE(edge(5).bends, way.mid(1, way.size() - 2));
}

void tst_EditorWindow::aLabelIsDraggedAndStays()
{
    Content content = connected();
    content.edges[0].label = QStringLiteral("label");
    openWithoutSnapping(content);
    bench().scene().validate();
    const QPoint label = bench().scene().labelRect(4).center();

    m_driver->drag(label, label + QPoint(-25, 40));
    const QPoint offset = edge(4).labelOffset;
    const int percent = edge(4).labelPercent;
    QCOMPARE(offset, QPoint(0, 40));
    QCOMPARE(percent, 25);
    m_driver->drag({260, 60}, {260, 300}); // the target

    QCOMPARE(edge(4).labelOffset, offset);
    QCOMPARE(edge(4).labelPercent, percent);
}

void tst_EditorWindow::aNodeIsDroppedIntoALaneAndTakenOut()
{
    openWithoutSnapping(withLane());

    m_driver->drag({90, 70}, {500, 200});
    QCOMPARE(node(1).lane, 9);
    QVERIFY(bench().scene().rect(9).contains(bench().scene().rect(1)));
    QCOMPARE(bench().history().count(), 1);
    m_driver->drag({290, 70}, {500, 330}); // below it
    QCOMPARE(document().nodesIn(9), (QList<int>{1, 2}));

    m_driver->drag(bench().scene().rect(2).center(), bench().scene().rect(1).center());
    QCOMPARE(document().nodesIn(9), (QList<int>{2, 1}));
    m_driver->drag(bench().scene().rect(1).center(), {100, 300});
    QCOMPARE(node(1).lane, 0);
    QVERIFY(node(1).rect.contains(100, 300));
    while (bench().history().canUndo())
        bench().history().undo();
    QCOMPARE(document().content(), withLane());
}

void tst_EditorWindow::aFigureMadeInALaneIsInIt()
{
    m_driver->open(withLane());

    m_driver->choose(NodeKind::Rounded);
    m_driver->click({500, 200});

    QCOMPARE(node(document().nodeOrder().last()).lane, 9);
    QCOMPARE(bench().history().count(), 1);
}

void tst_EditorWindow::textIsEditedInPlace_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("double click") << false;
    QTest::newRow("F2") << true;
}

void tst_EditorWindow::textIsEditedInPlace()
{
    QFETCH(bool, byKey);
    m_driver->open(connected());
    InlineEditor &editor = m_driver->window().inlineEditor();

    if (byKey) {
        m_driver->click({90, 70});
        m_driver->trigger(QStringLiteral("Edit text"));
    } else {
        m_driver->doubleClick({90, 70});
    }
    QVERIFY(editor.isVisible());
    QTest::keyClicks(&editor, QStringLiteral("two"));
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&editor, QStringLiteral("lines"));
    QTest::keyClick(&editor, Qt::Key_Return);

    QCOMPARE(node(1).text, QStringLiteral("two\nlines"));
    QVERIFY(!editor.isVisible());
    m_driver->doubleClick({190, 70});
    QTest::keyClicks(&editor, QStringLiteral("label"));
    m_driver->click({20, 350}); // going elsewhere takes it over
    QCOMPARE(edge(4).label, QStringLiteral("label"));
    QCOMPARE(bench().history().count(), 2);
}

void tst_EditorWindow::escapeLeavesTheTextAsItWas()
{
    m_driver->open(threeBoxes());
    m_driver->doubleClick({90, 70});

    QTest::keyClicks(&m_driver->window().inlineEditor(), QStringLiteral("no"));
    QTest::keyClick(&m_driver->window().inlineEditor(), Qt::Key_Escape);

    QCOMPARE(node(1).text, QString());
    QCOMPARE(bench().history().count(), 0);
}

void tst_EditorWindow::deletedFiguresTakeTheirConnectionsAlong()
{
    m_driver->open(connected());
    m_driver->click({90, 70});

    m_driver->trigger(QStringLiteral("Delete"));

    QCOMPARE(document().nodeOrder(), (QList<int>{2, 3}));
    QVERIFY(document().edgeOrder().isEmpty());
    m_driver->trigger(QStringLiteral("Undo Delete"));
    QCOMPARE(document().content(), connected());
}

void tst_EditorWindow::copiesArePastedBesideTheirModels()
{
    m_driver->open(connected());
    bench().selection().set({1, 2});

    m_driver->trigger(QStringLiteral("Copy"));
    m_driver->trigger(QStringLiteral("Paste"));
    m_driver->trigger(QStringLiteral("Paste"));

    QCOMPARE(document().nodeOrder().size(), 7);
    QCOMPARE(document().edgeOrder().size(), 3);
    const QList<int> second = bench().selection().nodes();
    QCOMPARE(node(second.first()).rect.topLeft(), QPoint(80, 80));
    QCOMPARE(edge(document().edgeOrder().last()).source, second.first());
}

void tst_EditorWindow::theClipboardHasAPictureToo()
{
    m_driver->open(connected());
    bench().selection().set({1, 2});

    m_driver->trigger(QStringLiteral("Copy"));

    const QMimeData *data = QApplication::clipboard()->mimeData();
    QVERIFY(data->hasFormat(Clip::mimeType));
    QVERIFY(data->hasImage());
    const QImage image = qvariant_cast<QImage>(data->imageData());
    QVERIFY(image.width() >= 300 && image.width() < 340); // the two boxes, not the third
    QVERIFY(image.height() < 100);
}

void tst_EditorWindow::aDuplicateIsOneStep()
{
    m_driver->open(connected());
    bench().selection().set({1, 2});

    m_driver->trigger(QStringLiteral("Duplicate"));

    QCOMPARE(document().nodeOrder().size(), 5);
    QCOMPARE(document().edgeOrder().size(), 2);
    QCOMPARE(node(bench().selection().nodes().first()).rect.topLeft(), QPoint(60, 60));
    QCOMPARE(bench().history().count(), 1);
}

void tst_EditorWindow::figuresChangeTheirOrder()
{
    m_driver->open(threeBoxes());
    bench().selection().set({1});

    m_driver->trigger(QStringLiteral("To front"));
    QCOMPARE(document().nodeOrder(), (QList<int>{2, 3, 1}));
    m_driver->trigger(QStringLiteral("Backward"));
    QCOMPARE(document().nodeOrder(), (QList<int>{2, 1, 3}));
    m_driver->drag({90, 70}, {290, 230}, Qt::AltModifier);
    QCOMPARE(bench().scene().nodeAt({290, 230}), 3);
    m_driver->trigger(QStringLiteral("To front"));
    QCOMPARE(bench().scene().nodeAt({290, 230}), 1);
}

void tst_EditorWindow::figuresAreAlignedAndDistributed()
{
    Content content = threeBoxes();
    content.nodes[1].rect.moveTop(90);
    m_driver->open(content);
    bench().selection().set({1, 2, 3});

    m_driver->trigger(QStringLiteral("Align left"));
    m_driver->trigger(QStringLiteral("Distribute vertically"));

    QCOMPARE(node(1).rect.topLeft(), QPoint(40, 40));
    QCOMPARE(node(2).rect.topLeft(), QPoint(40, 120));
    QCOMPARE(node(3).rect.topLeft(), QPoint(40, 200));
    QCOMPARE(bench().history().count(), 2);
}

void tst_EditorWindow::theHistoryListsTheStepsAndGoesBack()
{
    m_driver->open(threeBoxes());
    auto *history = m_driver->window().findChild<QUndoView *>();
    m_driver->drag({90, 70}, {90, 170});
    m_driver->trigger(QStringLiteral("Duplicate"));
    m_driver->trigger(QStringLiteral("Delete"));

    QCOMPARE(history->model()->rowCount(), 4); // and the beginning
    QTest::mouseClick(history->viewport(), Qt::LeftButton, Qt::NoModifier,
                      history->visualRect(history->model()->index(0, 0)).center());

    QCOMPARE(document().content(), threeBoxes());
}

void tst_EditorWindow::ctrlAndWheelZoomAboutTheCursor()
{
    m_driver->open(threeBoxes());
    DiagramView *view = bench().view();
    const QPointF position = view->fromContent(QPointF(90, 70));

    QWheelEvent event(position, view->viewport()->mapToGlobal(position), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &event);

    QVERIFY(view->getScale() > 1.1);
    const QPointF now = view->fromContent(QPointF(90, 70));
    QVERIFY2((now - position).manhattanLength() < 3, "the point under the cursor has moved");
}

void tst_EditorWindow::theHandDragsThePaper()
{
    Content content = threeBoxes();
    content.nodes[2].rect.moveTo(3000, 3000);
    m_driver->open(content);
    m_driver->trigger(QStringLiteral("Hand"));
    const QPoint before = bench().view()->toContent(QPoint(0, 0));

    m_driver->drag({300, 300}, {200, 250});

    QVERIFY(bench().view()->toContent(QPoint(0, 0)) != before);
    QCOMPARE(document().content(), content);
}

void tst_EditorWindow::spaceDragsThePaper()
{
    Content content = threeBoxes();
    content.nodes[2].rect.moveTo(3000, 3000);
    m_driver->open(content);
    const QPoint before = bench().view()->toContent(QPoint(0, 0));

    QTest::keyPress(bench().view(), Qt::Key_Space);
    QTest::mousePress(m_driver->canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 130));
    QTest::mouseMove(m_driver->canvas(), QPoint(120, 100));
    QTest::mouseMove(m_driver->canvas(), QPoint(100, 100));
    QTest::mouseRelease(m_driver->canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::keyRelease(bench().view(), Qt::Key_Space);

    QVERIFY(bench().view()->toContent(QPoint(0, 0)) != before);
    QCOMPARE(document().content(), content);
    QVERIFY(bench().selection().isEmpty());
}

void tst_EditorWindow::fitAndNormalSize()
{
    Content content = threeBoxes();
    content.nodes[2].rect.moveTo(3000, 3000);
    m_driver->open(content);

    m_driver->trigger(QStringLiteral("Fit"));
    QVERIFY(bench().view()->getScale() < 0.5);
    QVERIFY(bench().view()->getViewRect().contains(QRect(40, 40, 3060, 3020)));
    m_driver->trigger(QStringLiteral("100 %"));

    QCOMPARE(bench().view()->getScale(), 1.0);
}

void tst_EditorWindow::theWindowTurnsDarkAndBack()
{
    m_driver->open(threeBoxes());
    const auto colorAt = [this](const QPoint &point) {
        const QPoint position = m_driver->canvas()->fromLogical(QPointF(point)).toPoint();
        return m_driver->canvas()->grab().toImage().pixelColor(position);
    };

    m_driver->trigger(QStringLiteral("Dark"));
    QCOMPARE(colorAt({90, 70}), Theme::dark().fill);
    QCOMPARE(colorAt({20, 120}), Theme::dark().paper);
    m_driver->trigger(QStringLiteral("Dark"));

    QCOMPARE(colorAt({90, 70}), Theme::light().fill);
    QCOMPARE(colorAt({20, 120}), Theme::light().paper);
}

void tst_EditorWindow::onlyWhatTheUserChoseIsRemembered()
{
    const auto remembersDark = [this] {
        return m_driver->settings().value(QStringLiteral("dark")).toBool();
    };

    m_driver->window().setDark(true); // as the command line does
    QVERIFY(!remembersDark());
    m_driver->window().setDark(false);
    m_driver->trigger(QStringLiteral("Dark"));
    QVERIFY(remembersDark());
    m_driver->trigger(QStringLiteral("Dark"));

    QVERIFY(!remembersDark());
}

QTEST_MAIN(tst_EditorWindow)
#include "tst_editor_window.moc"
