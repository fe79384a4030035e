#include "scene/ArrowHeads.h"

#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>

using Velmora::Figura::IRotatableDecoration;
using Velmora::Figura::PolygonDecoration;
using Velmora::Figura::PolylineDecoration;

namespace Editor {
namespace {

// The templates point to the right with their tips at (0, 0). They are small, the library's own one
// unit long and two wide: the scale makes them what they are on the screen, so it is set as a
// whole.
constexpr int length = 7;
constexpr int halfWidth = 3;
constexpr int diamondLength = 12;
constexpr int diamondHalfWidth = 4;

const QList<QPoint> &diamond()
{
    static const QList<QPoint> points = {QPoint(0, 0), QPoint(-1, 1), QPoint(-2, 0),
                                         QPoint(-1, -1)};
    return points;
}

// Grows with the line, but more slowly.
double scaleFor(int lineWidth)
{
    return 1.0 + 0.4 * lineWidth;
}

PolygonDecoration *createFilled(const ArrowHeads::Look &look, const QColor &fill)
{
    auto *head = new PolygonDecoration;
    head->setFill(true);
    head->setEnabledFGColor(look.line);
    head->setEnabledBGColor(fill);
    head->setScale(length * scaleFor(look.lineWidth), halfWidth * scaleFor(look.lineWidth));
    return head;
}

PolylineDecoration *createOpen(const ArrowHeads::Look &look)
{
    auto *head = new PolylineDecoration;
    head->setEnabledFGColor(look.line);
    head->setLineWidth(look.lineWidth);
    head->setScale(length * scaleFor(look.lineWidth), halfWidth * scaleFor(look.lineWidth));
    return head;
}

PolygonDecoration *createDiamond(const ArrowHeads::Look &look)
{
    PolygonDecoration *head = createFilled(look, look.paper);
    const double scale = scaleFor(look.lineWidth);
    head->setTemplate(diamond());
    head->setScale(diamondLength / 2.0 * scale, diamondHalfWidth * scale);
    return head;
}

} // namespace

IRotatableDecoration *ArrowHeads::create(Arrow arrow, const Look &look)
{
    if (arrow == Arrow::Filled)
        return createFilled(look, look.line);
    if (arrow == Arrow::Diamond)
        return createDiamond(look);
    PolylineDecoration *head = createOpen(look);
    if (arrow == Arrow::None) {
        head->setTemplate({});
        head->setVisible(false);
    }
    return head;
}

double ArrowHeads::trim(Arrow arrow, const Look &look)
{
    switch (arrow) {
    case Arrow::Filled:
        return (length - 1) * scaleFor(look.lineWidth);
    case Arrow::Diamond:
        return diamondLength * scaleFor(look.lineWidth);
    case Arrow::Open:
        return look.lineWidth;
    case Arrow::None:
        break;
    }
    return 0;
}

} // namespace Editor
