#include "XdotParser.h"

#include "ColorParser.h"
#include "XdotScanner.h"

namespace GraphViewer {
namespace {

QString utf8(const QByteArray &text)
{
    return QString::fromUtf8(text);
}

// How far left of its anchor a text begins, in widths: -1, 0 and 1 stand for left, centre, right.
double shiftOf(int justification)
{
    return (justification + 1) / 2.0;
}

QPainterPath bezierPath(const QPolygonF &points)
{
    QPainterPath path(points.value(0));
    for (int i = 1; i + 2 < points.size(); i += 3)
        path.cubicTo(points.at(i), points.at(i + 1), points.at(i + 2));
    return path;
}

} // namespace

XdotParser::XdotParser(const QTransform &toScene)
    : m_toScene(toScene)
{
}

bool XdotParser::parse(const QByteArray &text, Drawing *drawing)
{
    m_pen = QPen(Qt::black);
    m_brush = QBrush(Qt::black);
    m_text = TextStyle();

    XdotScanner scanner(text, m_toScene);
    while (!scanner.atEnd()) {
        if (!parseOperation(scanner, drawing))
            return false;
    }
    return !scanner.hasFailed();
}

// Capital letters are the filled variants.
bool XdotParser::parseOperation(XdotScanner &scanner, Drawing *drawing)
{
    const char operation = scanner.letter();
    switch (operation) {
    case 'E':
    case 'e':
        addEllipse(scanner, drawing, operation == 'E');
        break;
    case 'P':
    case 'p':
        addPolygon(scanner, drawing, operation == 'P');
        break;
    case 'L':
        addPolyline(scanner, drawing);
        break;
    case 'B': // here the capital is the unfilled one
    case 'b':
        addBezier(scanner, drawing, operation == 'b');
        break;
    case 'T':
        addText(scanner, drawing);
        break;
    case 'I':
        addPicture(scanner, drawing);
        break;
    default:
        return parsePen(operation, scanner);
    }
    return !scanner.hasFailed();
}

bool XdotParser::parsePen(char operation, XdotScanner &scanner)
{
    switch (operation) {
    case 'c':
        m_pen.setColor(ColorParser::color(scanner.counted()));
        m_text.color = m_pen.color();
        break;
    case 'C':
        m_brush = ColorParser::brush(scanner.counted(), m_toScene);
        break;
    case 'F':
        m_text.size = scanner.number();
        m_text.face = utf8(scanner.counted());
        break;
    case 't':
        m_text.traits = scanner.integer();
        break;
    case 'S':
        setStyle(scanner.counted());
        break;
    default:
        return false;
    }
    return !scanner.hasFailed();
}

void XdotParser::addEllipse(XdotScanner &scanner, Drawing *drawing, bool filled) const
{
    const QPointF centre = scanner.point();
    const double horizontal = scanner.number();
    const double vertical = scanner.number();
    if (scanner.hasFailed())
        return;

    QPainterPath path;
    path.addEllipse(centre, horizontal, vertical);
    addStroke(drawing, path, filled);
}

void XdotParser::addPolygon(XdotScanner &scanner, Drawing *drawing, bool filled) const
{
    const QPolygonF points = scanner.points();
    if (scanner.hasFailed() || points.isEmpty())
        return;

    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    addStroke(drawing, path, filled);
}

void XdotParser::addPolyline(XdotScanner &scanner, Drawing *drawing) const
{
    const QPolygonF points = scanner.points();
    if (scanner.hasFailed() || points.isEmpty())
        return;

    QPainterPath path;
    path.addPolygon(points);
    addStroke(drawing, path, false);
}

void XdotParser::addBezier(XdotScanner &scanner, Drawing *drawing, bool filled) const
{
    const QPolygonF points = scanner.points();
    if (!scanner.hasFailed() && !points.isEmpty())
        addStroke(drawing, bezierPath(points), filled);
}

void XdotParser::addText(XdotScanner &scanner, Drawing *drawing) const
{
    TextSpan span;
    const QPointF anchor = scanner.point();
    const int justification = qBound(-1, scanner.integer(), 1);
    span.width = scanner.number();
    span.text = utf8(scanner.counted());
    span.left = anchor - QPointF(shiftOf(justification) * span.width, 0);
    span.style = m_text;
    if (!scanner.hasFailed())
        drawing->texts << span;
}

void XdotParser::addPicture(XdotScanner &scanner, Drawing *drawing) const
{
    Picture picture;
    const QPointF corner = scanner.point();
    const double width = scanner.number();
    const double height = scanner.number();
    picture.file = utf8(scanner.counted());
    // The engine names the lower left corner.
    picture.box = QRectF(corner - QPointF(0, height), QSizeF(width, height));
    if (!scanner.hasFailed())
        drawing->pictures << picture;
}

void XdotParser::addStroke(Drawing *drawing, const QPainterPath &path, bool filled) const
{
    Stroke stroke;
    stroke.path = path;
    stroke.pen = m_pen.color().alpha() == 0 ? QPen(Qt::NoPen) : m_pen;
    stroke.brush = filled ? m_brush : QBrush(Qt::NoBrush);
    drawing->strokes << stroke;
}

// Other styles ("filled", "rounded", ...) already show in the operations themselves.
void XdotParser::setStyle(const QByteArray &style)
{
    static const QByteArray widthStyle = QByteArrayLiteral("setlinewidth(");
    if (style == "solid")
        m_pen.setStyle(Qt::SolidLine);
    else if (style == "dashed")
        m_pen.setStyle(Qt::DashLine);
    else if (style == "dotted")
        m_pen.setStyle(Qt::DotLine);
    else if (style == "bold")
        m_pen.setWidthF(2);
    else if (style.startsWith(widthStyle) && style.endsWith(')'))
        m_pen.setWidthF(style.mid(widthStyle.size()).chopped(1).toDouble());
}

} // namespace GraphViewer
