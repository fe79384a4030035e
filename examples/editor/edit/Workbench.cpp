#include "edit/Workbench.h"

#include "commands/ChangeElements.h"
#include "feedback/Feedback.h"

#include <figura/connection/Polyline.h>
#include <figura/diagram/DiagramView.h>

#include <cmath>

using Velmora::Figura::DiagramView;
using Velmora::Figura::Polyline;

namespace Editor {

Workbench::Workbench(DiagramView *view, QObject *parent)
    : QObject(parent)
    , m_view(view)
    , m_scene(m_document, m_diagram)
    , m_selection(m_document)
    , m_feedback(std::make_unique<Feedback>(*this))
{
    view->setDiagram(&m_diagram);
    connect(&m_history, &QUndoStack::indexChanged, this, &Workbench::handleStep);
    connect(&m_selection, &Selection::changed, m_feedback.get(), &Feedback::refresh);
    connect(view, &DiagramView::scaleChanged, this, [this] {
        constexpr double pixels = 6; // the library has one tolerance for all lines, in units
        Polyline::M_tolerance = units(pixels);
        m_feedback->refresh();
    });
}

Workbench::~Workbench()
{
    m_history.disconnect(this);
    m_view->setDiagram(nullptr);
}

void Workbench::push(QUndoCommand *command)
{
    m_history.push(command);
}

void Workbench::push(ChangeElements *command)
{
    if (command->isEmpty())
        delete command;
    else
        m_history.push(command);
}

void Workbench::open(const Content &content)
{
    m_selection.clear();
    m_document.setContent(content);
    m_history.clear();
    m_history.setClean();
    handleStep();
}

void Workbench::handleStep()
{
    if (!m_dragging)
        m_scene.settle();
    m_selection.prune();
    m_feedback->refresh();
    Q_EMIT documentChanged();
}

void Workbench::beginDrag()
{
    m_dragging = true;
}

void Workbench::endDrag()
{
    m_dragging = false;
    m_scene.settle();
    m_feedback->refresh();
}

int Workbench::units(double pixels) const
{
    return qMax(1, static_cast<int>(std::lround(pixels / m_view->getScale())));
}

} // namespace Editor
