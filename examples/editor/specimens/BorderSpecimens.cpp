#include "specimens/Props.h"
#include "specimens/Specimens.h"

#include <figura/figure/FocusBorder.h>
#include <figura/figure/ScaledBorder.h>
#include <figura/figure/SimpleBorder.h>

using namespace Velmora::Figura;

namespace Editor::Specimens {
namespace {

void putBordered(Figure *stage, const QRect &rect, Border *border)
{
    auto *figure = new Figure(stage);
    figure->setBorder(border);
    stage->add(figure, rect);
}

void buildSimple(Figure *stage)
{
    putBordered(stage, {12, 16, 60, 52}, new SimpleBorder(stage));
    auto *dashed = new SimpleBorder(stage);
    dashed->setPenStyle(Qt::DashLine);
    putBordered(stage, {88, 16, 60, 52}, dashed);
}

void buildScaled(Figure *stage)
{
    putBordered(stage, {12, 16, 60, 52}, new ScaledBorder(stage, 5));
    auto *twofold = new ScaledBorder(stage, 2);
    twofold->setInnerMarginBorder(5);
    putBordered(stage, {88, 16, 60, 52}, twofold);
}

void buildFocus(Figure *stage)
{
    putBordered(stage, {20, 16, 120, 52}, new FocusBorder(stage));
}

} // namespace

QList<Specimen> borders()
{
    return {
        {"SimpleBorder", buildSimple},
        {"ScaledBorder", buildScaled},
        {"FocusBorder", buildFocus},
    };
}

} // namespace Editor::Specimens
