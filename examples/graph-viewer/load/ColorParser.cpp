#include "ColorParser.h"

#include "XdotScanner.h"

#include <QLinearGradient>
#include <QRadialGradient>

namespace GraphViewer {
namespace {

bool readByte(const QByteArray &hex, int index, int *value)
{
    bool ok = false;
    *value = hex.mid(1 + 2 * index, 2).toInt(&ok, 16);
    return ok;
}

QBrush withStops(XdotScanner &scanner, QGradient &&gradient)
{
    for (int left = scanner.integer(); left > 0 && !scanner.hasFailed(); --left) {
        const double at = scanner.number();
        gradient.setColorAt(qBound(0.0, at, 1.0), ColorParser::color(scanner.counted()));
    }
    return scanner.hasFailed() ? QBrush(Qt::black) : QBrush(gradient);
}

QBrush linear(XdotScanner &scanner)
{
    const QPointF from = scanner.point();
    const QPointF to = scanner.point();
    return withStops(scanner, QLinearGradient(from, to));
}

QBrush radial(XdotScanner &scanner)
{
    const QPointF focus = scanner.point();
    const double focusRadius = scanner.number();
    const QPointF centre = scanner.point();
    const double radius = scanner.number();
    return withStops(scanner, QRadialGradient(centre, radius, focus, focusRadius));
}

} // namespace

QColor ColorParser::color(const QByteArray &text)
{
    if (!text.startsWith('#') || (text.size() != 7 && text.size() != 9))
        return Qt::black;

    int red = 0, green = 0, blue = 0, alpha = 255;
    const bool opaque = text.size() == 7;
    const bool ok = readByte(text, 0, &red) && readByte(text, 1, &green) &&
                    readByte(text, 2, &blue) && (opaque || readByte(text, 3, &alpha));
    return ok ? QColor(red, green, blue, alpha) : QColor(Qt::black);
}

QBrush ColorParser::brush(const QByteArray &text, const QTransform &toScene)
{
    if (text.size() < 2 || (text.front() != '[' && text.front() != '('))
        return color(text);

    XdotScanner scanner(text.mid(1, text.size() - 2), toScene);
    return text.front() == '[' ? linear(scanner) : radial(scanner);
}

} // namespace GraphViewer
