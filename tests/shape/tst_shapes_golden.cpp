#include <figura/connection/PolylineF.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>

#include <golden.h>
#include <rootfigure.h>

#include <QFontInfo>
#include <QPainter>
#include <QPalette>
#include <QStyleOptionViewItem>
#include <QTest>

#include <cmath>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

using Fill = void (*)(Figure &);
Q_DECLARE_METATYPE(Fill)

namespace {

const QSize SHEET(240, 100);
const int CELLS = 6;
const QString FAMILY = QStringLiteral("DejaVu Sans");

// Three columns, two rows.
QRect cell(int index)
{
    return QRect(12 + 75 * (index % 3), 8 + 46 * (index / 3), 60, 36);
}

// Images keep their resolution per metre; rounding gives the dots per inch back exactly.
int dotsPerMeter(int dpi)
{
    return qRound(dpi / 0.0254);
}

QStyleOptionViewItem fixedOption()
{
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), SHEET);
    option.palette = QPalette(Qt::white);
    option.palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::darkCyan);
    option.palette.setColor(QPalette::Active, QPalette::Button, QColor(220, 240, 240));
    return option;
}

QImage paint(Figure &root, double scale, int dpi)
{
    QImage image(SHEET * scale, QImage::Format_RGB32);
    image.setDotsPerMeterX(dotsPerMeter(dpi));
    image.setDotsPerMeterY(dotsPerMeter(dpi));
    image.fill(Qt::white);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    painter.scale(scale, scale);
    root.render(&painter, fixedOption());
    return image;
}

// The first cell stays as it was made, the last one is disabled.
void vary(Shape &shape, int index)
{
    static const int widths[CELLS] = {1, 1, 5, 3, 2, 3};
    shape.setLineWidth(widths[index]);
    if (index == 0)
        return;

    shape.setFill(index != 3);
    shape.setEnabledFGColor(Qt::red);
    shape.setEnabledBGColor(QColor(255, 230, 150));
    shape.setDisabledFGColor(QColor(150, 150, 190));
    shape.setDisabledBGColor(Qt::black);
    shape.setLineStyle(index == 4 ? Qt::DashLine : Qt::SolidLine);
    shape.setEnabled(index != 5);
}

void place(Shape &shape, const QRect &rect)
{
    shape.setBounds(rect);
}

void place(Polygon &polygon, const QRect &rect)
{
    const QPoint half(rect.width() / 2, 0);
    polygon.setLinePoints({rect.topLeft() + half, rect.bottomRight(), rect.center() + QPoint(0, 6),
                           rect.bottomLeft()});
}

void place(Polyline &line, const QRect &rect)
{
    line.setFill(false);
    line.setLinePoints({rect.bottomLeft(), rect.topLeft() + QPoint(15, 0),
                        rect.bottomLeft() + QPoint(30, 0), rect.topRight(), rect.bottomRight()});
}

void place(PolylineF &line, const QRect &rect)
{
    line.setFill(false);
    QList<QPointF> points;
    for (double x = 0; x <= rect.width(); x += 1.5)
        points.append(rect.topLeft() + QPointF(x, 18 - 17.5 * std::sin(x / 8)));
    line.setLinePoints(points);
}

template<typename Class>
void fillWith(Figure &root)
{
    for (int i = 0; i < CELLS; ++i) {
        auto *shape = new Class(&root);
        root.add(shape);
        vary(*shape, i);
        place(*shape, cell(i));
    }
}

void fillWithRounded(Figure &root)
{
    static const QSize roundings[CELLS] = {{25, 25}, {50, 50}, {30, 60},
                                           {99, 99}, {10, 20}, {0, 9}};
    for (int i = 0; i < CELLS; ++i) {
        auto *shape = new RoundedRectangle(&root);
        root.add(shape);
        shape->setXRnd(roundings[i].width());
        shape->setYRnd(roundings[i].height());
        vary(*shape, i);
        place(*shape, cell(i));
    }
}

QFont fixedFont(int pixelSize)
{
    QFont font(FAMILY);
    font.setPixelSize(pixelSize);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void fillWithText(Figure &root)
{
    static const Qt::Alignment alignments[CELLS] = {Qt::AlignLeft,
                                                    Qt::AlignHCenter,
                                                    Qt::AlignRight,
                                                    Qt::AlignCenter,
                                                    Qt::AlignRight | Qt::AlignBottom,
                                                    Qt::AlignLeft | Qt::AlignVCenter};
    for (int i = 0; i < CELLS; ++i) {
        auto *figure = new TextFigure(QStringLiteral("Figura"), &root, QColor(255, 230, 150));
        root.add(figure);
        figure->setFont(fixedFont(i == 3 ? 18 : 12));
        figure->setAlignment(alignments[i]);
        figure->setTextColor(i == 0 ? QColor() : QColor(Qt::darkBlue));
        figure->setIndent(i == 5 ? 15 : 0);
        figure->setBounds(cell(i));
    }
}

QPixmap chequers()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::yellow);
    QPainter painter(&pixmap);
    for (int i = 0; i < 16; ++i)
        painter.fillRect(i % 4 * 4 + (i / 4 % 2 ? 2 : 0), i / 4 * 4, 2, 4, Qt::darkGreen);
    painter.fillRect(0, 0, 4, 4, Qt::red);
    return pixmap;
}

QRect at(const QPoint &corner, const QSize &size)
{
    return QRect(corner, size);
}

void fillWithPixmaps(Figure &root)
{
    static const QSize sizes[CELLS] = {{16, 16}, {60, 36}, {60, 16}, {16, 36}, {8, 8}, {40, 30}};
    for (int i = 0; i < CELLS; ++i) {
        auto *figure = new PixmapFigure(i == 5 ? QPixmap() : chequers(), &root, Qt::lightGray);
        root.add(figure);
        if (i == 1)
            figure->setBorder(new SimpleBorder(figure, 1));
        figure->setBounds(at(cell(i).topLeft(), sizes[i]));
    }
}

void fillWithLabels(Figure &root)
{
    for (int i = 0; i < 4; ++i) {
        const Qt::Orientation orientation = i % 2 ? Qt::Vertical : Qt::Horizontal;
        auto *label = new LabelFigure(QStringLiteral("Figura"), chequers(), orientation, &root,
                                      QColor(255, 230, 150));
        root.add(label);
        static_cast<TextFigure *>(label->childFigures()[1])->setFont(fixedFont(12));
        label->setMargin(i < 2 ? 0 : 4);
        label->setBounds(at(cell(i).topLeft(), label->getPreferredSize()));
    }
}

} // namespace

class tst_ShapesGolden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sheetLooksAsStored_data();
    void sheetLooksAsStored();
};

void tst_ShapesGolden::sheetLooksAsStored_data()
{
    QTest::addColumn<Fill>("fill");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("dpi");

    const QList<std::pair<const char *, Fill>> sheets = {
        {"rectangle", fillWith<Rectangle>},
        {"ellipse", fillWith<Ellipse>},
        {"roundedrectangle", fillWithRounded},
        {"polygon", fillWith<Polygon>},
        {"polyline", fillWith<Polyline>},
        {"polylinef", fillWith<PolylineF>},
        {"text", fillWithText},
        {"pixmap", fillWithPixmaps},
        {"label", fillWithLabels},
    };
    for (const auto &[name, fill] : sheets) {
        QTest::addRow("%s", name) << fill << 1.0 << 96;
        QTest::addRow("%s-double", name) << fill << 2.0 << 96;
    }
    QTest::newRow("rectangle-printer") << Fill(fillWith<Rectangle>) << 1.5 << 300;
    QTest::newRow("ellipse-half") << Fill(fillWith<Ellipse>) << 0.5 << 96;
}

void tst_ShapesGolden::sheetLooksAsStored()
{
    QFETCH(Fill, fill);
    QFETCH(double, scale);
    QFETCH(int, dpi);
    const bool hasText = fill == fillWithText || fill == fillWithLabels;
    if (hasText && QFontInfo(fixedFont(12)).family() != FAMILY)
        QSKIP("The font DejaVu Sans is not installed (Debian package fonts-dejavu-core)");

    RootFigure root(nullptr);
    root.setLayoutManager(new FreeformLayout(&root));
    root.setBounds(QRect(QPoint(0, 0), SHEET));
    fill(root);

    FIGURA_COMPARE_GOLDEN(paint(root, scale, dpi),
                          QStringLiteral("shapes/%1").arg(QLatin1String(QTest::currentDataTag())));
}

QTEST_MAIN(tst_ShapesGolden)
#include "tst_shapes_golden.moc"
