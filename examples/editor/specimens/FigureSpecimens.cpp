#include "specimens/Props.h"
#include "specimens/Specimens.h"

#include <figura/connection/Polyline.h>
#include <figura/connection/PolylineF.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>

#include <QPainter>
#include <QtMath>

using namespace Velmora::Figura;

namespace Editor::Specimens {
namespace {

constexpr QRect middle{20, 12, 120, 60};

void buildFigure(Figure *stage)
{
    auto *figure = new Figure(stage, QColor(0x8f, 0xb8, 0xde));
    stage->add(figure, middle);
}

void buildPolygon(Figure *stage)
{
    auto *polygon = new Polygon(stage);
    polygon->setFill(true);
    QList<QPoint> star;
    for (int i = 0; i < 10; ++i) {
        const double angle = i * M_PI / 5 - M_PI / 2;
        const int radius = i % 2 ? 17 : 40;
        star << QPoint(80 + qRound(radius * std::cos(angle)),
                       44 + qRound(radius * std::sin(angle)));
    }
    polygon->setLinePoints(star);
    stage->add(polygon);
}

void buildPolyline(Figure *stage)
{
    auto *line = new Polyline(stage);
    line->setLineWidth(2);
    line->setLinePoints(
        {QPoint(15, 65), QPoint(45, 15), QPoint(75, 60), QPoint(105, 25), QPoint(145, 65)});
    stage->add(line);
}

void buildPolylineF(Figure *stage)
{
    auto *line = new PolylineF(stage);
    line->setLineWidth(2);
    QList<QPointF> wave;
    for (int x = 15; x <= 145; x += 2)
        wave << QPointF(x, 42 - 28 * std::sin((x - 15) * M_PI / 43));
    line->setLinePoints(wave);
    stage->add(line);
}

void buildText(Figure *stage)
{
    auto *text = new TextFigure(QStringLiteral("One line of text"), stage, Qt::transparent);
    text->setAlignment(Qt::AlignCenter);
    stage->add(text, middle);
}

void buildPixmap(Figure *stage)
{
    stage->add(new PixmapFigure(samplePixmap(64), stage, Qt::transparent), QRect(48, 10, 64, 64));
}

void buildLabel(Figure *stage)
{
    auto *beside = new LabelFigure(QStringLiteral("beside"), samplePixmap(24), Qt::Horizontal,
                                   stage, Qt::transparent);
    stage->add(beside, QRect(4, 26, 80, 30));
    auto *below = new LabelFigure(QStringLiteral("below"), samplePixmap(24), Qt::Vertical, stage,
                                  Qt::transparent);
    stage->add(below, QRect(96, 12, 56, 60));
}

} // namespace

QPixmap samplePixmap(int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(QColor(0x9f, 0xd3, 0xf5));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xf7, 0xc9, 0x48));
    painter.drawEllipse(QRectF(side * 0.58, side * 0.12, side * 0.28, side * 0.28));
    painter.setBrush(QColor(0x4c, 0x8c, 0x5a));
    painter.drawPolygon(QPolygonF(
        {QPointF(0, side), QPointF(side * 0.38, side * 0.35), QPointF(side * 0.76, side)}));
    painter.setBrush(QColor(0x3a, 0x70, 0x48));
    painter.drawPolygon(QPolygonF(
        {QPointF(side * 0.4, side), QPointF(side * 0.72, side * 0.55), QPointF(side, side)}));
    return pixmap;
}

QList<Specimen> figures()
{
    return {
        {"Figure", buildFigure},
        {"Rectangle", [](Figure *stage) { put<Rectangle>(stage, middle); }},
        {"RoundedRectangle", [](Figure *stage) { put<RoundedRectangle>(stage, middle); }},
        {"Ellipse", [](Figure *stage) { put<Ellipse>(stage, middle); }},
        {"Polygon", buildPolygon},
        {"Polyline", buildPolyline},
        {"PolylineF", buildPolylineF},
        {"TextFigure", buildText},
        {"PixmapFigure", buildPixmap},
        {"LabelFigure", buildLabel},
    };
}

} // namespace Editor::Specimens
