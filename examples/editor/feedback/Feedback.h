#pragma once

#include "feedback/Grips.h"
#include "feedback/MarkPool.h"

#include <QLine>
#include <QObject>

namespace Editor {

class Workbench;

/// All that is shown for the sake of editing: the selection with its grips, ports, guides, targets.
class Feedback : public QObject
{
    Q_OBJECT

public:
    explicit Feedback(Workbench &bench);

    void refresh(); ///< After a change of document, selection or scale.
    void reset();   ///< After a change of colours.

    const QList<Grip> &grips() const { return m_grips; } ///< Of the selection.
    const QList<Grip> &ports() const { return m_ports; }
    const QList<Mark> &passing() const { return m_passingMarks.marks(); }

    int portNode() const { return m_portNode; }
    void setPortNode(int node); ///< 0 for none.

    // What is shown during a drag, all at once. clear() ends it.
    void setGuides(const QList<QLine> &guides);
    void setTarget(const QRect &rect); ///< Invalid for none.
    void setLine(const QLine &line);   ///< Null for none.
    void setBar(const QRect &rect);    ///< Invalid for none.
    void clear();

private:
    void showSelection();
    void showPorts();
    void showPassing();

    Workbench &m_bench;
    QList<Grip> m_grips;
    QList<Grip> m_ports;
    int m_portNode = 0;
    QList<QLine> m_guides;
    QRect m_target;
    QLine m_line;
    QRect m_bar;
    MarkPool m_selectionMarks;
    MarkPool m_portMarks;
    MarkPool m_passingMarks;
};

} // namespace Editor
