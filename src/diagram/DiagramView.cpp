#include <figura/diagram/DiagramView.h>

#include "diagrampane_p.h"
#include "diagramupdates_p.h"

#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QScrollBar>

// Which diagram is shown, and what it reports.

namespace Velmora::Figura {
namespace {

constexpr double smallestScale = 0.02;
constexpr double largestScaleAtFirst = 32.0;

} // namespace

DiagramView::DiagramView(QWidget *parent)
    : FreeformViewer(parent)
    , m_emptyPane(new DiagramPane(nullptr, this))
{
    prepare();
}

DiagramView::DiagramView(Diagram *diagram, QWidget *parent)
    : DiagramView(parent)
{
    setDiagram(diagram);
}

DiagramView::~DiagramView() = default;

void DiagramView::prepare()
{
    DiagramView::setUpdateManager(new DiagramUpdates(this, [this](const Figure *figure) {
        if (m_diagram)
            m_diagram->noteReach(figure);
    }));
    setContent(m_emptyPane);
    setScaleBounds(smallestScale, largestScaleAtFirst);
    getCanvas()->setMinimumSize(1, 1); // a view may be smaller than a canvas usually is

    // The base shrinks the canvas without regard to what is visible.
    for (QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()}) {
        disconnect(bar, SIGNAL(sliderReleased()), this, SLOT(evaluateContentBounds()));
        connect(bar, &QScrollBar::sliderReleased, this, &DiagramView::queueFollow);
    }
    connect(this, &FreeformViewer::scaleChanged, this, [this]() {
        queueFollow();
        Q_EMIT viewChanged();
    });
    viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    viewport()->grabGesture(Qt::PinchGesture);
}

// Everything that is stale, in the order of the layers, and before the manager begins: what it is
// told while it validates it forgets.
void DiagramView::setUpdateManager(UpdateManager *manager)
{
    disconnect(m_validation);
    FreeformViewer::setUpdateManager(manager);
    if (!manager)
        return;
    m_validation = connect(manager, &UpdateManager::aboutToValidate, this, [this]() {
        if (m_diagram)
            m_diagram->validate();
    });
}

Diagram *DiagramView::getDiagram() const
{
    return m_diagram;
}

void DiagramView::setDiagram(Diagram *diagram)
{
    if (diagram == m_diagram)
        return;
    letGo();
    if (diagram)
        take(diagram);
    else
        setContent(m_emptyPane);
    m_placed = false;
    if (isVisible())
        place();
    Q_EMIT diagramChanged(diagram);
}

// The content keeps the manager that it was given, and would go on to report to it.
void DiagramView::letGo()
{
    if (!m_diagram)
        return;
    disconnect(m_diagram, nullptr, this, nullptr);
    m_diagram->m_view.clear();
    FreeformWidget *canvas = getCanvas();
    if (!canvas) {
        m_diagram.clear();
        return;
    }
    canvas->setUpdateManager(nullptr);
    m_diagram.clear();
    setContent(m_emptyPane);
    canvas->setUpdateManager(getUpdateManager());
}

void DiagramView::take(Diagram *diagram)
{
    if (auto *other = qobject_cast<DiagramView *>(diagram->m_view))
        other->setDiagram(nullptr);
    m_diagram = diagram;
    diagram->m_view = this;
    connect(diagram, &QObject::destroyed, this, [this]() {
        setContent(m_emptyPane);
        queueFollow();
        Q_EMIT diagramChanged(nullptr);
    });
    diagram->noteAllReaches();
    setContent(diagram->getPane());
}

FreeformWidget *DiagramView::getCanvas() const
{
    return qobject_cast<FreeformWidget *>(widget());
}

void DiagramView::updateContentRect(const QRect &rect)
{
    const int reach = m_diagram ? m_diagram->m_reach : 0;
    const QRect damaged = rect.adjusted(-reach, -reach, reach, reach);
    FreeformViewer::updateContentRect(damaged);
    queueFollow();
    Q_EMIT contentDamaged(damaged);
}

void DiagramView::update()
{
    FreeformViewer::update();
    queueFollow();
    if (Figure *content = getContent())
        Q_EMIT contentDamaged(content->getBounds());
}

} // namespace Velmora::Figura
