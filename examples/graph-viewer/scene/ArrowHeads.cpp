#include "ArrowHeads.h"

#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>

#include <QHash>

using Velmora::Figura::IRotatableDecoration;
using Velmora::Figura::PolygonDecoration;
using Velmora::Figura::PolylineDecoration;

namespace GraphViewer {
namespace {

struct Entry
{
    const char *name;
    ArrowHeads::Shape shape;
};

// The tip is at (0, 0), the line comes from the left. Round shapes are octagons and arcs of lines.
const QList<Entry> &table()
{
    static const QList<Entry> entries = {
        {"normal", {{{-100, 35}, {0, 0}, {-100, -35}}, true, false, 100}},
        {"inv", {{{0, 35}, {-100, 0}, {0, -35}}, true, false, 100}},
        {"diamond", {{{0, 0}, {-60, 35}, {-120, 0}, {-60, -35}}, true, false, 120}},
        {"box", {{{0, 40}, {-80, 40}, {-80, -40}, {0, -40}}, true, false, 80}},
        {"dot",
         {{{0, 17}, {-23, 40}, {-57, 40}, {-80, 17}, {-80, -17}, {-57, -40}, {-23, -40}, {0, -17}},
          true,
          false,
          80}},
        {"tee", {{{-10, 50}, {-25, 50}, {-25, -50}, {-10, -50}}, true, false, 10}},
        {"vee", {{{-100, 45}, {0, 0}, {-100, -45}}, false, false, 0}},
        {"crow", {{{0, 45}, {-100, 0}, {0, 0}, {-100, 0}, {0, -45}}, false, false, 0}},
        {"curve", {{{-70, 45}, {-40, 32}, {-25, 0}, {-40, -32}, {-70, -45}}, false, false, 0}},
        {"icurve", {{{0, 45}, {-30, 32}, {-45, 0}, {-30, -32}, {0, -45}}, false, false, 0}},
        {"none", {}},
    };
    return entries;
}

// Names from before shapes could be combined.
QString modern(const QString &name)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("open"), QStringLiteral("vee")},
        {QStringLiteral("halfopen"), QStringLiteral("lvee")},
        {QStringLiteral("empty"), QStringLiteral("onormal")},
        {QStringLiteral("invempty"), QStringLiteral("oinv")},
        {QStringLiteral("ediamond"), QStringLiteral("odiamond")},
    };
    return names.value(name, name);
}

const Entry *find(const QString &name)
{
    for (const Entry &entry : table()) {
        if (name.startsWith(QLatin1String(entry.name)))
            return &entry;
    }
    return nullptr;
}

// "l" and "r" keep one side of the line, seen from the tail. Up is negative.
void halve(ArrowHeads::Shape *shape, bool keepLeft)
{
    for (QPoint &point : shape->outline)
        point.setY(keepLeft ? qMin(point.y(), 0) : qMax(point.y(), 0));
}

} // namespace

ArrowHeads::Shape ArrowHeads::shape(const QString &name)
{
    QString rest = modern(name);
    const bool hollow = rest.startsWith(QLatin1Char('o'));
    if (hollow)
        rest.remove(0, 1);
    const bool left = rest.startsWith(QLatin1Char('l'));
    const bool right = rest.startsWith(QLatin1Char('r'));
    if (left || right)
        rest.remove(0, 1);

    const Entry *entry = find(rest);
    if (!entry)
        return table().first().shape;
    Shape result = entry->shape;
    result.hollow = hollow && result.closed;
    if (left || right)
        halve(&result, left);
    return result;
}

IRotatableDecoration *ArrowHeads::create(const Shape &shape, double scale, const QColor &color,
                                         int lineWidth)
{
    if (shape.outline.isEmpty() || scale <= 0)
        return nullptr;
    const auto prepare = [&](auto *head) {
        head->setTemplate(shape.outline);
        head->setScale(scale * unit, scale * unit);
        head->setEnabledFGColor(color);
        head->setLineWidth(lineWidth);
        return head;
    };
    if (!shape.closed)
        return prepare(new PolylineDecoration);
    auto *head = prepare(new PolygonDecoration);
    // Hollow ones are white within, so that no node shines through them.
    head->setEnabledBGColor(shape.hollow ? QColor(Qt::white) : color);
    return head;
}

} // namespace GraphViewer
