#include "feedback/Feedback.h"

#include "edit/Workbench.h"

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
    const QList<int> nodes = m_bench.selection().nodes();
    for (const int id : nodes)
        marks << Mark{Mark::Kind::Outline, grown(m_bench.scene().rect(id), m_bench.units(2))};
    const QList<int> edges = m_bench.selection().edges();
    if (!m_bench.selection().singleEdge()) {
        for (const int id : edges)
            marks << Mark{Mark::Kind::Outline, m_bench.scene().boundsOf(id)};
    }
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
