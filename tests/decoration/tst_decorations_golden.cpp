#include "decoration_fixtures.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/decoration/BendpointLocator.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/XYLayout.h>

#include <golden.h>
#include <rootfigure.h>

#include <QPainter>
#include <QPalette>
#include <QStyleOptionViewItem>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Pos = IPositionConstants;
using Fill = void (*)(Figure &);
Q_DECLARE_METATYPE(Fill)

namespace {

const QSize SHEET(240, 160);

QStyleOptionViewItem fixedOption()
{
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), SHEET);
    option.palette = QPalette(Qt::white);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::darkCyan);
    option.palette.setColor(QPalette::Active, QPalette::Button, QColor(220, 240, 240));
    return option;
}

QImage paint(Figure &root, double scale, bool isSmooth)
{
    QImage image(SHEET * scale, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(96 / 0.0254));
    image.setDotsPerMeterY(qRound(96 / 0.0254));
    image.fill(Qt::white);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, isSmooth);
    painter.scale(scale, scale);
    root.render(&painter, fixedOption());
    return image;
}

template<typename Class>
Class *addConnection(Figure &root, const QList<QPoint> &points)
{
    auto *connection = new Class(&root);
    root.add(connection);
    connection->setPoints(points);
    return connection;
}

// Eight lines from a ring outwards, every other one floating, with one head at each end.
template<typename Head, typename Class>
void addSpoke(Figure &root, const QPoint &from, const QPoint &to)
{
    auto *spoke = addConnection<Class>(root, {from, to});
    spoke->setSourceDecoration(new Head(spoke));
    auto *large = new Head(spoke);
    large->setScale(12, 5);
    spoke->setTargetDecoration(large);
}

template<typename Head>
void fillWithHeads(Figure &root)
{
    const QPointF centre(120, 80);
    for (int i = 0; i < 8; ++i) {
        const double angle = i * std::acos(-1.0) / 4;
        const QPointF way(std::cos(angle) * 100, std::sin(angle) * 70);
        const QPoint from = (centre + way * 0.25).toPoint();
        const QPoint to = (centre + way).toPoint();
        if (i % 2)
            addSpoke<Head, PolylineFConnection>(root, from, to);
        else
            addSpoke<Head, PolylineConnection>(root, from, to);
    }
}

// An arrow head of another outline, colour and line, beside those that are hidden or disabled.
void fillWithVariants(Figure &root)
{
    for (int i = 0; i < 5; ++i) {
        const int y = 20 + 30 * i;
        auto *line = addConnection<PolylineConnection>(root, {{30, y}, {120, y + 8}, {210, y}});
        auto *source = new PolylineDecoration(line);
        auto *target = new PolygonDecoration(line);
        source->setScale(10, 6);
        target->setScale(10, 6);
        line->setSourceDecoration(source);
        line->setTargetDecoration(target);
        if (i == 1)
            target->setTemplate({{0, 0}, {-1, 1}, {-2, 0}, {-1, -1}});
        if (i == 2)
            target->setEnabledBGColor(Qt::yellow);
        if (i == 2)
            source->setEnabledFGColor(Qt::red);
        if (i == 3)
            source->setLineWidth(3);
        if (i == 3)
            target->setVisible(false);
        if (i == 4)
            target->setDisabledFGColor(Qt::lightGray);
        target->setEnabled(i != 4);
    }
}

Figure *newLabel(Figure &parent, const QColor &color, const QSize &size = QSize(16, 8))
{
    auto *label = new Figure(&parent, color);
    label->setPreferredSize(size);
    return label;
}

QVariant asConstraint(QObject *locator)
{
    return QVariant::fromValue(locator);
}

// A box with a label at each of its nine points, and one at a fraction.
void fillWithRelativeLabels(Figure &root)
{
    auto *box = new Figure(&root, QColor(220, 240, 240));
    root.add(box);
    box->setLayoutManager(new DelegatingLayout(box));
    box->setBounds(QRect(40, 30, 160, 100));
    for (const int vertical : {Pos::NORTH, Pos::NONE, Pos::SOUTH}) {
        for (const int horizontal : {Pos::WEST, Pos::NONE, Pos::EAST}) {
            auto *label = newLabel(*box, vertical | horizontal ? Qt::darkCyan : Qt::red);
            box->add(label, asConstraint(new RelativeLocator(box, vertical | horizontal, label)));
        }
    }
    auto *label = newLabel(*box, Qt::darkYellow);
    box->add(label, asConstraint(new RelativeLocator(box, 0.25, 0.75, label)));
}

template<typename Located>
void addLabel(Figure &connection, Located *locator, const QColor &color, int position, int gap)
{
    auto *label = newLabel(connection, color);
    locator->setParent(label);
    locator->setRelativePosition(position);
    locator->setGap(gap);
    connection.add(label, asConstraint(locator));
}

// Red at the bendpoints, green on the segments, blue at the ends and in the middle.
void fillWithConnectionLabels(Figure &root)
{
    auto *line = addConnection<PolylineConnection>(
        root, {{20, 130}, {60, 40}, {120, 90}, {170, 30}, {215, 120}});
    for (int i = 1; i < 4; ++i)
        addLabel(*line, new BendpointLocator(line, i), Qt::red, Pos::NORTH, 4);
    for (int i = 0; i < 4; ++i)
        addLabel(*line, new MidpointLocator(line, i), Qt::green, Pos::CENTER, 0);
    addLabel(*line, new ConnectionLocator(line), Qt::blue, Pos::SOUTH, 2);
    addLabel(*line, new ConnectionLocator(line, ConnectionLocator::SOURCE), Qt::blue,
             Pos::SOUTH_EAST, 2);
    addLabel(*line, new ConnectionLocator(line, ConnectionLocator::TARGET), Qt::blue,
             Pos::SOUTH_WEST, 2);
}

void addEndLabel(PolylineConnection *line, bool end, const QColor &color, int vDistance)
{
    auto *label = newLabel(*line, color, QSize(12, 6));
    auto *locator = new ConnectionEndpointLocator(line, end, label);
    locator->setVDistance(vDistance);
    locator->setUDistance(8);
    line->add(label, asConstraint(locator));
}

// Lines between boxes, with a label beside, on and beyond the line at both ends.
void fillWithEndLabels(Figure &root)
{
    const QRect boxes[] = {
        {95, 60, 50, 40}, {5, 65, 20, 30}, {215, 65, 20, 30}, {100, 2, 40, 12}, {100, 146, 40, 12}};
    QList<Figure *> figures;
    for (const QRect &box : boxes) {
        figures.append(new Figure(&root, QColor(220, 240, 240)));
        root.add(figures.last());
        figures.last()->setBounds(box);
    }
    for (int i = 1; i < 5; ++i) {
        auto *line = addConnection<PolylineConnection>(root, {});
        line->setSourceAnchor(new ChopboxAnchor(figures[0], line));
        line->setTargetAnchor(new ChopboxAnchor(figures[i], line));
        addEndLabel(line, false, Qt::red, 3);
        addEndLabel(line, false, Qt::darkRed, -3);
        addEndLabel(line, true, Qt::darkCyan, 0);
    }
}

} // namespace

class tst_DecorationsGolden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sheetLooksAsStored_data();
    void sheetLooksAsStored();
};

void tst_DecorationsGolden::sheetLooksAsStored_data()
{
    QTest::addColumn<Fill>("fill");
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("isSmooth");

    const QList<std::pair<const char *, Fill>> sheets = {
        {"polygon-heads", fillWithHeads<PolygonDecoration>},
        {"polyline-heads", fillWithHeads<PolylineDecoration>},
        {"variants", fillWithVariants},
        {"relative-labels", fillWithRelativeLabels},
        {"connection-labels", fillWithConnectionLabels},
        {"end-labels", fillWithEndLabels},
    };
    for (const auto &[name, fill] : sheets) {
        QTest::addRow("%s", name) << fill << 1.0 << false;
        QTest::addRow("%s-double", name) << fill << 2.0 << false;
    }
    for (int i = 0; i < 3; ++i) {
        QTest::addRow("%s-smooth", sheets[i].first) << sheets[i].second << 1.0 << true;
        QTest::addRow("%s-smooth-double", sheets[i].first) << sheets[i].second << 2.0 << true;
    }
}

void tst_DecorationsGolden::sheetLooksAsStored()
{
    QFETCH(Fill, fill);
    QFETCH(double, scale);
    QFETCH(bool, isSmooth);
    RootFigure root(nullptr);
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(QPoint(0, 0), SHEET));
    fill(root);
    root.validate();

    // Blending may round another way on another processor.
    FIGURA_COMPARE_GOLDEN(
        paint(root, scale, isSmooth),
        QStringLiteral("decorations/%1").arg(QLatin1String(QTest::currentDataTag())),
        isSmooth ? 2 : 0);
}

QTEST_MAIN(tst_DecorationsGolden)
#include "tst_decorations_golden.moc"
