#include "EdgeConnection.h"

#include "ArrowHeads.h"
#include "BendFinder.h"
#include "DashPattern.h"
#include "EdgeLine.h"
#include "ElementFigure.h"
#include "OutlineFigure.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/decoration/IRotatableDecoration.h>

#include <QLineF>

using namespace Velmora::Figura;

namespace GraphViewer {
namespace {

bool isRound(const QString &shape)
{
    static const QStringList round = {QStringLiteral("ellipse"), QStringLiteral("oval"),
                                      QStringLiteral("circle"),  QStringLiteral("doublecircle"),
                                      QStringLiteral("Mcircle"), QStringLiteral("point"),
                                      QStringLiteral("egg")};
    return round.contains(shape);
}

// One for each end of each connection: the library's anchors stop following their owner when the
// first of several connections leaves.
IConnectionAnchor *createAnchor(ElementFigure *node, QObject *parent)
{
    if (isRound(node->shape()))
        return new EllipseAnchor(node, parent);
    return new ChopboxAnchor(node, parent);
}

QPointF shortened(const QPointF &end, const QPointF &next, double length)
{
    QLineF line(end, next);
    if (line.length() <= length)
        return next;
    line.setLength(length);
    return line.p2();
}

} // namespace

EdgeConnection::EdgeConnection(const QString &title, const GraphEdge &edge, ElementFigure *tail,
                               ElementFigure *head, QObject *parent)
    : PolylineFConnection(parent)
    , m_title(title)
    , m_tail(tail)
    , m_head(head)
    , m_bends(BendFinder::bends(edge.curve, tail->home(), head->home()))
{
    adoptPen(edge.line);
    setPointsF({edge.start, edge.end});
    addArrowHeads(edge);
    addDrawing(edge);
    setSourceAnchor(createAnchor(tail, this));
    setTargetAnchor(createAnchor(head, this));
}

// A tapered edge is an area without a pen; of several parallel lines the first one counts.
void EdgeConnection::adoptPen(const Drawing &line)
{
    if (line.strokes.isEmpty()) {
        setLineStyle(Qt::NoPen);
        return;
    }
    const Stroke &stroke = line.strokes.first();
    const bool tapered = stroke.brush.style() != Qt::NoBrush;
    setLineStyle(tapered ? Qt::SolidLine : stroke.pen.style());
    setLineWidth(qMax(1, qRound(stroke.pen.widthF())));
    setEnabledFGColor(tapered ? stroke.brush.color() : stroke.pen.color());
}

void EdgeConnection::addArrowHeads(const GraphEdge &edge)
{
    const double scale = edge.arrowSize * qMax(1.0, getLineWidth() / 4.0);
    const auto create = [&](const EdgeEnd &end, const QPointF &tip, const QPointF &from,
                            double *trim) {
        const ArrowHeads::Shape shape = ArrowHeads::shape(end.arrow);
        IRotatableDecoration *head =
            ArrowHeads::create(shape, scale, getEnabledFGColor(), getLineWidth());
        if (!head)
            return head;
        *trim = shape.length * scale * ArrowHeads::unit;
        head->setLocation(tip); // it counts for the bounds even while it is hidden
        head->setReferencePoint(from);
        head->setVisible(false);
        return head;
    };
    if (IRotatableDecoration *tail = create(edge.atTail, edge.start, edge.end, &m_tailTrim))
        setSourceDecoration(tail);
    if (IRotatableDecoration *head = create(edge.atHead, edge.end, edge.start, &m_headTrim))
        setTargetDecoration(head);
}

// Curves become lines; what is filled (a tapered edge, an arrow head) stays an outline.
void EdgeConnection::addDrawing(const GraphEdge &edge)
{
    const auto addOutline = [this](const Stroke &stroke) {
        auto *part = new OutlineFigure(stroke, {}, this);
        addPart(part, part->box());
    };
    for (const Stroke &stroke : edge.line.strokes) {
        if (stroke.brush.style() != Qt::NoBrush) {
            addOutline(stroke);
            continue;
        }
        const QList<QPolygonF> lines = EdgeLine::flatten(stroke.path);
        for (const QPolygonF &line : lines)
            addPart(new EdgeLine(line, stroke.pen, this), {});
    }
    for (const Stroke &stroke : edge.arrows.strokes)
        addOutline(stroke);
}

void EdgeConnection::addPart(Shape *part, const QRect &box)
{
    add(part);
    part->setBounds(box);
    m_drawing << part;
}

// Parts that are not shown must not be hit either, so they leave the tree; they stay ours.
void EdgeConnection::showEngineDrawing(bool show)
{
    if (show == m_showsDrawing)
        return;
    erase();
    m_showsDrawing = show;
    showParts(show);
    for (IRotatableDecoration *head : {getSourceDecoration(), getTargetDecoration()}) {
        if (head)
            head->setVisible(!show);
    }
    revalidate();
}

void EdgeConnection::showParts(bool show)
{
    for (Shape *part : std::as_const(m_drawing)) {
        if (show)
            add(part);
        else
            remove(part);
    }
}

void EdgeConnection::setHot(bool hot)
{
    light(this, hot);
    const QList<Figure *> children = childFigures();
    for (Figure *child : children) {
        if (auto *shape = qobject_cast<Shape *>(child))
            light(shape, hot);
    }
    if (!hot)
        m_ownColors.clear();
}

void EdgeConnection::light(Shape *shape, bool hot)
{
    const QColor hotColor(0xe0, 0x4f, 0x00);
    if (hot == m_ownColors.contains(shape))
        return;
    if (hot)
        m_ownColors.insert(shape, {shape->getEnabledFGColor(), shape->getEnabledBGColor()});
    const Colors colors = hot ? Colors{hotColor, hotColor} : m_ownColors.take(shape);
    shape->setEnabledFGColor(colors.line);
    shape->setEnabledBGColor(colors.fill);
}

QRect EdgeConnection::absoluteRect()
{
    QRect rect = getBoundingRect();
    return translateToAbsolute(rect);
}

QRect EdgeConnection::getBoundingRect()
{
    const QRect bounds = getBounds();
    if (!bounds.isValid())
        return bounds;
    const int reach = getLineWidth() / 2 + 1;
    return bounds.adjusted(-reach, -reach, reach, reach);
}

// The connection itself erases its bounds only, and a wide line reaches beyond them.
void EdgeConnection::revalidate()
{
    if (getBounds().isValid())
        erase();
    PolylineFConnection::revalidate();
}

void EdgeConnection::layout()
{
    PolylineFConnection::layout();
    repaint();
}

// The line ends where an arrow head begins: a wide one would hide the tip.
void EdgeConnection::regeneratePath(const QRectF &rect)
{
    PolylineFConnection::regeneratePath(rect);
    QList<QPointF> points = getLinePoints();
    const qsizetype last = points.size() - 1;
    if (last < 1)
        return;
    points.first() = shortened(points.first(), points.at(1), m_tailTrim);
    points.last() = shortened(points.last(), points.at(last - 1), m_headTrim);
    painterPath() = QPainterPath();
    painterPath().addPolygon(QPolygonF(points));
}

void EdgeConnection::drawShape(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_showsDrawing)
        return;
    DashPattern::apply(painter);
    PolylineFConnection::drawShape(painter, option);
}

} // namespace GraphViewer
