#include "view_fixtures.h"

#include <golden.h>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Routing = Diagram::Routing;
using Arrow = Diagram::Arrow;
using End = Diagram::End;

// One figure of each kind in the middle, and the same around it.
void fillWithStar(Diagram &diagram, Figure *middle, Routing routing)
{
    diagram.add(middle, QRect(150, 110, 100, 80));
    for (int x : {20, 180, 340}) {
        for (int y : {20, 130, 240}) {
            if (x == 180 && y == 130)
                continue;
            auto *outer =
                diagram.add(painted<Rectangle>(QColor(0xfb, 0xe3, 0xc0)), QRect(x, y, 40, 40));
            PolylineConnection *connection = diagram.connect(outer, middle, routing);
            connection->setEnabledFGColor(Qt::darkBlue);
            diagram.setArrow(connection, End::Target, Arrow::Filled);
        }
    }
}

void fillWithEverything(Diagram &diagram)
{
    auto *start = diagram.add(painted<Ellipse>(), QRect(20, 20, 80, 50));
    auto *question = diagram.add(diamond(), QRect(150, 15, 100, 60));
    auto *box =
        diagram.add(painted<RoundedRectangle>(QColor(0xfb, 0xe3, 0xc0)), QRect(150, 150, 100, 50));
    auto *lane = diagram.add(painted<Rectangle>(Qt::white), QRect(300, 90, 90, 160));
    lane->setLayoutManager(new VBoxLayout(lane));
    lane->setMargin(8);
    for (int i = 0; i < 2; ++i) {
        auto *inner = painted<Rectangle>(QColor(0xd6, 0xf0, 0xd0));
        inner->setParent(lane);
        lane->add(inner, 1, 1, -1);
        Diagram::setText(inner, i == 0 ? QStringLiteral("i") : QStringLiteral("ii"));
    }
    diagram.validate();

    diagram.setArrow(diagram.connect(start, question), End::Target, Arrow::Filled);
    PolylineConnection *down = diagram.connect(question, box, Routing::Manhattan);
    diagram.setArrow(down, End::Target, Arrow::Open);
    PolylineConnection *bent = diagram.connect(start, box, Routing::Bendpoints);
    diagram.setBendpoints(bent, {QPoint(60, 220), QPoint(110, 220)});
    bent->setLineWidth(3);
    bent->setEnabledFGColor(Qt::darkRed);
    diagram.setArrow(bent, End::Source, Arrow::Open);
    diagram.setArrow(bent, End::Target, Arrow::Filled);
    diagram.setArrow(diagram.connect(box, box), End::Target, Arrow::Filled);
    diagram.connect(question, lane->childFigures().constLast(), Routing::Manhattan);
    for (PolylineConnection *connection : diagram.getConnections()) {
        if (!connection->getEnabledFGColor().isValid())
            connection->setEnabledFGColor(Qt::black);
    }
}

} // namespace

class tst_DiagramGolden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void linesEndAtEachOutline_data();
    void linesEndAtEachOutline();
    void everythingTogether();
    void overviewOfEverything();
};

void tst_DiagramGolden::linesEndAtEachOutline_data()
{
    QTest::addColumn<Figure *>("middle");
    QTest::newRow("rectangle") << static_cast<Figure *>(painted<Rectangle>());
    QTest::newRow("rounded") << static_cast<Figure *>(painted<RoundedRectangle>());
    QTest::newRow("ellipse") << static_cast<Figure *>(painted<Ellipse>());
    QTest::newRow("diamond") << static_cast<Figure *>(diamond());
}

void tst_DiagramGolden::linesEndAtEachOutline()
{
    QFETCH(Figure *, middle);
    Diagram diagram;
    fillWithStar(diagram, middle, Routing::Straight);

    FIGURA_COMPARE_GOLDEN(
        picture(diagram),
        QStringLiteral("diagram/star_%1").arg(QString::fromUtf8(QTest::currentDataTag())), 8);
}

void tst_DiagramGolden::everythingTogether()
{
    Diagram diagram;
    fillWithEverything(diagram);

    FIGURA_COMPARE_GOLDEN(picture(diagram), QStringLiteral("diagram/everything"), 8);
}

void tst_DiagramGolden::overviewOfEverything()
{
    ViewScene scene(QSize(250, 200));
    fillWithEverything(scene.diagram);
    Overview overview(&scene.view);
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    overview.setPalette(palette);
    overview.resize(200, 150);
    QVERIFY(scene.show());

    FIGURA_COMPARE_GOLDEN(overview.grab().toImage(), QStringLiteral("diagram/overview"), 8);
}

QTEST_MAIN(tst_DiagramGolden)
#include "tst_diagram_golden.moc"
