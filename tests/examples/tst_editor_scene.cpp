#include "commands/DeleteElements.h"
#include "edit/Workbench.h"
#include "editorfixtures.h"
#include "files/DocumentFile.h"
#include "model/Document.h"
#include "scene/EdgeFigure.h"
#include "scene/LaneFigure.h"
#include "scene/NodeFigures.h"
#include "scene/Scene.h"
#include "scene/TextBlock.h"
#include "scene/Way.h"
#include "specimens/Specimens.h"
#include "window/Keeper.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/diagram/Diagram.h>
#include <figura/diagram/DiagramView.h>
#include <figura/figure/Border.h>
#include <figura/layout/Layout.h>

#include <QDirIterator>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>
#include <QUndoStack>

using namespace Editor;
using namespace Editor::EditorFixtures;
using Velmora::Figura::Diagram;
using Velmora::Figura::DiagramView;
using Velmora::Figura::Figure;
using Velmora::Figura::IConnection;

class tst_EditorScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!.*propagateSizeHints)")));
    }
    void theSceneShowsTheDocument();
    void thePictureIsThatOfTheDocumentWhateverHappenedBefore_data();
    void thePictureIsThatOfTheDocumentWhateverHappenedBefore();
    void everyUndoneCommandLeavesTheFormerPicture_data();
    void everyUndoneCommandLeavesTheFormerPicture();
    void aLaneLaysOutItsNodes();
    void figuresInALaneKeepTheirOutlinesAtAnyScale_data();
    void figuresInALaneKeepTheirOutlinesAtAnyScale();
    void aLaneThatIsTurnedLaysOutItsNodesTheOtherWay();
    void aNodeInALaneIsFoundAndConnected();
    void anUndoneDeletionOfALaneBringsItsNodesBackIntoIt();
    void theLabelStaysAtItsPlaceOnTheWay();
    void theColoursOfTheWindowFillWhatIsLeftOpen();
    void textWithoutAColourCanBeReadOnItsFill_data();
    void textWithoutAColourCanBeReadOnItsFill();
    void everySpecimenShowsSomething_data();
    void everySpecimenShowsSomething();
    void everyClassOfTheLibraryIsInTheGallery_data();
    void everyClassOfTheLibraryIsInTheGallery();
    void everySampleIsADocument();
};

namespace {

constexpr QRect sheet{-120, -120, 1300, 1000};

QImage pictureOf(Workbench &bench)
{
    bench.scene().validate();
    QImage image(sheet.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(-sheet.topLeft());
    bench.diagram().render(&painter, sheet);
    return image;
}

QString differenceOf(const QImage &a, const QImage &b)
{
    if (a == b)
        return {};
    a.save(QStringLiteral("tst_editor_scene.a.png"));
    b.save(QStringLiteral("tst_editor_scene.b.png"));
    return QStringLiteral("the pictures differ: tst_editor_scene.[ab].png");
}

struct Stage
{
    explicit Stage(const Content &content = {})
        : bench(&view)
    {
        view.resize(800, 600);
        bench.open(content);
    }

    DiagramView view;
    Workbench bench;
};

QImage freshPictureOf(const Content &content)
{
    Stage stage(content);
    return pictureOf(stage.bench);
}

void addSeeds()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 25; ++seed)
        QTest::addRow("%u", seed) << seed;
}

QString shortName(const QMetaObject *type)
{
    return QString::fromLatin1(type->className()).section(QStringLiteral("::"), -1);
}

void note(QSet<QString> &names, const QObject *object)
{
    for (const QMetaObject *type = object ? object->metaObject() : nullptr; type;
         type = type->superClass())
        names.insert(shortName(type));
}

void noteBendpoints(QSet<QString> &names, IConnection *connection)
{
    const QList<QVariant> bends = connection->getRoutingConstraint().toList();
    for (const QVariant &bend : bends)
        names.insert(QString::fromLatin1(bend.typeName()).section(QStringLiteral("::"), -1));
}

// What a figure uses counts as seen, and so do their bases.
void noteTree(QSet<QString> &names, Figure *figure)
{
    note(names, figure);
    note(names, figure->getLayoutManager());
    note(names, figure->getBorder());
    if (auto *connection = dynamic_cast<IConnection *>(figure)) {
        note(names, dynamic_cast<QObject *>(connection->getConnectionRouter()));
        note(names, dynamic_cast<QObject *>(connection->getSourceAnchor()));
        note(names, dynamic_cast<QObject *>(connection->getTargetAnchor()));
        noteBendpoints(names, connection);
    }
    const QList<Figure *> children = figure->childFigures();
    for (Figure *child : children) {
        note(names, figure->getLayoutManager()->getConstraint(child).value<QObject *>());
        noteTree(names, child);
    }
}

Content lanes()
{
    Content content;
    content.nodes = {node(1, {0, 0, 240, 300}, NodeKind::Lane), node(2, {0, 0, 80, 40}),
                     node(3, {0, 0, 90, 50}, NodeKind::Ellipse), node(4, {400, 100, 100, 60})};
    content.nodes[1].lane = content.nodes[2].lane = 1;
    content.edges = {edge(5, 2, 3), edge(6, 3, 4)};
    return content;
}

} // namespace

void tst_EditorScene::theSceneShowsTheDocument()
{
    Stage stage(smallContent());
    Scene &scene = stage.bench.scene();

    scene.validate();

    QCOMPARE(scene.rect(1), QRect(20, 20, 100, 60));
    QCOMPARE(scene.nodeAt({60, 50}), 1);
    QCOMPARE(scene.nodeAt({222, 32}), 0); // in the corner beside the ellipse
    QCOMPARE(scene.edgeAt({300, 150}), 5);
    QCOMPARE(scene.points(5).mid(1, 2), (QList<QPoint>{QPoint(300, 150), QPoint(260, 220)}));
    QCOMPARE(scene.elementsIn({0, 0, 330, 110}), (QList<int>{1, 2, 4}));
}

void tst_EditorScene::thePictureIsThatOfTheDocumentWhateverHappenedBefore_data()
{
    addSeeds();
}

void tst_EditorScene::thePictureIsThatOfTheDocumentWhateverHappenedBefore()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    Stage stage(randomContent(random, 8, 8));

    for (int i = 0; i < 25; ++i)
        stage.bench.history().push(randomCommand(random, stage.bench.document()));

    const QString difference =
        differenceOf(pictureOf(stage.bench), freshPictureOf(stage.bench.document().content()));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_EditorScene::everyUndoneCommandLeavesTheFormerPicture_data()
{
    addSeeds();
}

void tst_EditorScene::everyUndoneCommandLeavesTheFormerPicture()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed + 1000);
    Stage stage(randomContent(random, 8, 8));
    QUndoStack &history = stage.bench.history();
    QList<QImage> pictures = {pictureOf(stage.bench)};

    for (int i = 0; i < 15; ++i) {
        history.push(randomCommand(random, stage.bench.document()));
        pictures << pictureOf(stage.bench);
    }

    for (qsizetype i = pictures.size() - 2; i >= 0; --i) {
        history.undo();
        const QString difference = differenceOf(pictureOf(stage.bench), pictures.at(i));
        QVERIFY2(difference.isEmpty(), qPrintable(history.redoText() + difference));
    }
    for (qsizetype i = 1; i < pictures.size(); ++i) {
        history.redo();
        const QString difference = differenceOf(pictureOf(stage.bench), pictures.at(i));
        QVERIFY2(difference.isEmpty(), qPrintable(history.undoText() + difference));
    }
}

void tst_EditorScene::aLaneLaysOutItsNodes()
{
    Stage stage(lanes());
    Scene &scene = stage.bench.scene();

    scene.validate();

    const QRect first = scene.rect(2);
    const QRect second = scene.rect(3);
    QCOMPARE(first.size(), QSize(80, 40));
    QCOMPARE(second.size(), QSize(90, 50));
    QVERIFY(scene.rect(1).contains(first) && scene.rect(1).contains(second));
    QVERIFY(first.bottom() < second.top());
    QVERIFY(first.top() >= LaneFigure::titleHeight);
}

void tst_EditorScene::figuresInALaneKeepTheirOutlinesAtAnyScale_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {0.35, 0.5, 0.63, 0.8, 1.0, 1.3, 2.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_EditorScene::figuresInALaneKeepTheirOutlinesAtAnyScale()
{
    QFETCH(double, scale);
    Content content = lanes();
    content.nodes[1].style.line = Qt::red;
    content.nodes[1].style.fill = Qt::white;
    Stage stage(content);
    stage.bench.scene().validate();
    QImage image(QSize(800, 800), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);

    stage.bench.diagram().render(&painter, QRect(0, 0, 400, 400));
    painter.end();

    const QRect box = stage.bench.scene().rect(2);
    const auto redness = [&](int edge) { // where there is most of it, near that edge
        int best = 0;
        for (int y = qRound(edge * scale) - 2; y <= qRound(edge * scale) + 2; ++y) {
            const QColor color = image.pixelColor(qRound(box.center().x() * scale), y);
            best = qMax(best, 255 - color.green());
        }
        return best;
    };
    QVERIFY(redness(box.bottom()) > 40);
    QVERIFY2(redness(box.top()) > redness(box.bottom()) / 2,
             qPrintable(QString::number(redness(box.top()))));
}

void tst_EditorScene::aLaneThatIsTurnedLaysOutItsNodesTheOtherWay()
{
    Content content = lanes();
    Stage stage(content);
    Scene &scene = stage.bench.scene();
    content.nodes[0].flow = Qt::Horizontal;

    stage.bench.document().replaceNode(content.nodes[0]);
    scene.validate();

    QVERIFY(scene.rect(2).right() < scene.rect(3).left());
    QCOMPARE(scene.rect(2).size(), QSize(80, 40));
}

void tst_EditorScene::aNodeInALaneIsFoundAndConnected()
{
    Stage stage(lanes());
    Scene &scene = stage.bench.scene();
    scene.validate();

    QCOMPARE(scene.nodeAt(scene.rect(3).center()), 3);
    QCOMPARE(scene.laneAt(scene.rect(3).center(), {}), 1);
    QCOMPARE(scene.laneAt(scene.rect(3).center(), {1}), 0);
    QVERIFY(scene.rect(3).adjusted(-2, -2, 2, 2).contains(scene.points(6).first()));
    QVERIFY(scene.rect(4).adjusted(-2, -2, 2, 2).contains(scene.points(6).last()));
}

void tst_EditorScene::anUndoneDeletionOfALaneBringsItsNodesBackIntoIt()
{
    Content content = lanes();
    content.nodes.move(0, 2); // the lane is above what it holds
    Stage stage(content);
    const QImage before = pictureOf(stage.bench);
    stage.bench.history().push(new DeleteElements(stage.bench.document(), {1}));
    stage.bench.history().undo();

    QVERIFY2(differenceOf(pictureOf(stage.bench), before).isEmpty(), "the lane is another one");
}

void tst_EditorScene::theLabelStaysAtItsPlaceOnTheWay()
{
    Content content = smallContent();
    content.edges[0].label = QStringLiteral("label");
    content.edges[0].labelPercent = 25;
    content.edges[0].labelOffset = QPoint(0, -20);
    Stage stage(content);
    Scene &scene = stage.bench.scene();

    for (const QPoint &corner : {QPoint(220, 30), QPoint(500, 300)}) {
        content.nodes[1].rect.moveTopLeft(corner);
        stage.bench.document().replaceNode(content.nodes[1]);
        scene.validate();

        const QPoint expected = Way::pointAt(scene.points(4), 25) + QPoint(0, -20);
        QVERIFY((scene.labelRect(4).center() - expected).manhattanLength() <= 2);
        QCOMPARE(scene.labelAt(scene.labelRect(4).center()), 4);
    }
}

void tst_EditorScene::theColoursOfTheWindowFillWhatIsLeftOpen()
{
    Content content = smallContent();
    content.nodes[2].style.fill = Qt::red;
    Stage stage(content);
    const auto colorAt = [&stage](const QPoint &point) {
        return pictureOf(stage.bench).pixelColor(point - sheet.topLeft());
    };

    QCOMPARE(colorAt({60, 50}), Theme::light().fill);
    stage.bench.scene().setTheme(Theme::dark());

    QCOMPARE(colorAt({60, 50}), Theme::dark().fill);
    QCOMPARE(colorAt({160, 250}), QColor(Qt::red));
}

void tst_EditorScene::textWithoutAColourCanBeReadOnItsFill_data()
{
    QTest::addColumn<bool>("isDark");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("ink");
    const QColor black = Theme::light().text;
    const QColor white = Theme::dark().text;
    QTest::newRow("light window") << false << QColor() << black;
    QTest::newRow("dark window") << true << QColor() << white;
    QTest::newRow("light fill, dark window") << true << QColor(0xe8, 0xe3, 0xf6) << black;
    QTest::newRow("dark fill, light window") << false << QColor(0x20, 0x30, 0x60) << white;
    QTest::newRow("hardly any fill") << true << QColor(255, 255, 255, 20) << white;
}

void tst_EditorScene::textWithoutAColourCanBeReadOnItsFill()
{
    QFETCH(bool, isDark);
    QFETCH(QColor, fill);
    QFETCH(QColor, ink);
    Content content = smallContent();
    content.nodes[0].text = QStringLiteral("x");
    content.nodes[0].style.fill = fill;
    Stage stage(content);

    stage.bench.scene().setTheme(isDark ? Theme::dark() : Theme::light());

    QCOMPARE(NodeFigures::textOf(stage.bench.scene().figure(1))->color(), ink);
}

void tst_EditorScene::everySpecimenShowsSomething_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = Specimens::names();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

// More than the frame and the caption that an empty showcase has.
void tst_EditorScene::everySpecimenShowsSomething()
{
    QFETCH(QString, name);
    Content content;
    content.nodes = {node(1, {20, 20, 184, 124}, NodeKind::Specimen)};
    const QImage empty = freshPictureOf(content);
    content.nodes[0].specimen = name;

    const QImage image = freshPictureOf(content);

    int different = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            different += image.pixel(x, y) != empty.pixel(x, y);
    }
    QVERIFY2(different > 60, qPrintable(QString::number(different)));
}

void tst_EditorScene::everyClassOfTheLibraryIsInTheGallery_data()
{
    // Bases, interfaces, what has no picture, and the views themselves.
    static const QStringList others = {
        "AncestorHelper",       "AbstractConnectionAnchor", "AbstractRouter",   "Bendpoint",
        "ConnectionAnchorBase", "ExclusionSearch",          "InterfacePointer", "PageLayout",
        "FreeformViewer",       "FreeformWidget",           "UpdateManager"};
    static const QRegularExpression interface(QStringLiteral("^I[A-Z]"));
    QTest::addColumn<QString>("name");
    for (const char *group : {"figure", "shape", "layout", "view", "connection", "decoration"}) {
        QDirIterator headers(QStringLiteral(FIGURA_HEADERS "/%1").arg(QLatin1String(group)),
                             {QStringLiteral("*.h")});
        while (headers.hasNext()) {
            const QString name = QFileInfo(headers.next()).completeBaseName();
            if (!others.contains(name) && !interface.match(name).hasMatch())
                QTest::newRow(qPrintable(name)) << name;
        }
    }
}

void tst_EditorScene::everyClassOfTheLibraryIsInTheGallery()
{
    QFETCH(QString, name);
    static const QSet<QString> seen = [] {
        Stage stage(DocumentFile::load(QStringLiteral(EDITOR_SAMPLES "/gallery.figura")).content);
        stage.bench.scene().validate();
        QSet<QString> names;
        const QList<Figure *> figures = stage.bench.diagram().getFigures();
        for (Figure *figure : figures)
            noteTree(names, figure);
        const auto connections = stage.bench.diagram().getConnections();
        for (Figure *connection : connections)
            noteTree(names, connection);
        note(names, stage.bench.diagram().getConnectionLayer());
        return names;
    }();

    QVERIFY(seen.contains(name));
}

void tst_EditorScene::everySampleIsADocument()
{
    const QStringList names = Keeper::sampleNames();
    QCOMPARE(names, (QStringList{"gallery", "network-plan", "state-machine"}));
    for (const QString &name : names) {
        const ReadResult result =
            DocumentFile::load(QStringLiteral(EDITOR_SAMPLES "/%1.figura").arg(name));
        QCOMPARE(result.problem, QString());
        QVERIFY(result.content.nodes.size() > 10);
    }
}

QTEST_MAIN(tst_EditorScene)
#include "tst_editor_scene.moc"
