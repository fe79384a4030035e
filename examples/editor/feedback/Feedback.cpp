#include "feedback/Feedback.h"

#include "edit/Workbench.h"

#include <numeric>

namespace Editor {
namespace {

Mark lineMark(Mark::Kind kind, const QLine &line)
{
    const QRect rect = QRect(QPoint(qMin(line.x1(), line.x2()), qMin(line.y1(), line.y2())),
                             QPoint(qMax(line.x1(), line.x2()), qMax(line.y1(), line.y2())));
    return {kind, rect, (line.x1() < line.x2()) != (line.y1() < line.y2())};
}

QRect grown(const QRect &rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

// Of very many figures, one around them all: nobody looks at thousands of outlines.
QList<QRect> outlinesOf(Workbench &bench)
{
    constexpr qsizetype many = 100;
    QList<QRect> rects;
    const QList<int> nodes = bench.selection().nodes();
    for (const int id : nodes)
        rects << bench.scene().rect(id);
    const QList<int> edges =
        bench.selection().singleEdge() ? QList<int>() : bench.selection().edges();
    for (const int id : edges)
        rects << bench.scene().boundsOf(id);
    if (rects.size() <= many)
        return rects;
    return {std::accumulate(rects.cbegin(), rects.cend(), QRect(),
                            [](const QRect &all, const QRect &rect) { return all | rect; })};
}

} // namespace

Feedback::Feedback(Workbench &bench)
    : m_bench(bench)
    , m_selectionMarks(bench.diagram().getFeedbackLayer())
    , m_portMarks(bench.diagram().getFeedbackLayer())
    , m_passingMarks(bench.diagram().getFeedbackLayer())
{
}

void Feedback::refresh()
{
    m_bench.scene().validate();
    showSelection();
    showPorts();
    showPassing();
}

void Feedback::reset()
{
    for (MarkPool *pool : {&m_selectionMarks, &m_portMarks, &m_passingMarks})
        pool->reset();
    refresh();
}

void Feedback::showSelection()
{
    QList<Mark> marks;
    const QList<QRect> outlines = outlinesOf(m_bench);
    for (const QRect &rect : outlines)
        marks << Mark{Mark::Kind::Outline, grown(rect, m_bench.units(2))};
    m_grips = Grips::ofSelection(m_bench);
    for (const Grip &grip : std::as_const(m_grips))
        marks << Grips::markOf(grip, m_bench);
    m_selectionMarks.show(marks, m_bench.scene().theme());
}

void Feedback::setPortNode(int node)
{
    if (node == m_portNode)
        return;
    m_portNode = node;
    showPorts();
}

void Feedback::showPorts()
{
    if (!m_bench.scene().figure(m_portNode))
        m_portNode = 0;
    m_ports = m_portNode ? Grips::ofPorts(m_bench, m_portNode) : QList<Grip>();
    QList<Mark> marks;
    for (const Grip &port : std::as_const(m_ports))
        marks << Grips::markOf(port, m_bench);
    m_portMarks.show(marks, m_bench.scene().theme());
}

void Feedback::setGuides(const QList<QLine> &guides)
{
    m_guides = guides;
    showPassing();
}

void Feedback::setTarget(const QRect &rect)
{
    m_target = rect;
    showPassing();
}

void Feedback::setLine(const QLine &line)
{
    m_line = line;
    showPassing();
}

void Feedback::setBar(const QRect &rect)
{
    m_bar = rect;
    showPassing();
}

void Feedback::clear()
{
    m_guides.clear();
    m_target = m_bar = QRect();
    m_line = QLine();
    showPassing();
}

void Feedback::showPassing()
{
    QList<Mark> marks;
    for (const QLine &guide : std::as_const(m_guides))
        marks << lineMark(Mark::Kind::Guide, guide);
    if (m_target.isValid())
        marks << Mark{Mark::Kind::Target, grown(m_target, m_bench.units(4))};
    if (m_bar.isValid())
        marks << Mark{Mark::Kind::Bar, m_bar};
    if (!m_line.isNull())
        marks << lineMark(Mark::Kind::Line, m_line);
    m_passingMarks.show(marks, m_bench.scene().theme());
}

} // namespace Editor
