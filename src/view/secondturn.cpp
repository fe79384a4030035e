#include "secondturn_p.h"

#include <figura/figure/Figure.h>
#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <utility>

namespace Velmora::Figura {
namespace {

// An ancestor that was being validated itself is marked valid at the end, whatever came meanwhile.
bool isValidUpToTheRoot(const Figure *figure)
{
    for (; figure; figure = figure->getParentFigure()) {
        if (!figure->getFlag(Figure::FLAG_VALID))
            return false;
    }
    return true;
}

} // namespace

SecondTurn::SecondTurn(FreeformWidget *widget)
    : m_widget(widget)
{
}

void SecondTurn::examine(const QList<QPointer<Figure>> &late)
{
    if (!m_isRunning)
        m_served.clear();
    const bool isAsked = !m_waiting.isEmpty();
    for (const QPointer<Figure> &figure : late) {
        if (figure && !isValidUpToTheRoot(figure) && !m_served.contains(figure) &&
            !m_waiting.contains(figure))
            m_waiting.append(figure);
    }
    if (!isAsked && !m_waiting.isEmpty())
        QMetaObject::invokeMethod(
            m_widget, [this]() { run(); }, Qt::QueuedConnection);
}

void SecondTurn::run()
{
    const QPointer<FreeformWidget> alive(m_widget);
    for (const QPointer<Figure> &figure : std::exchange(m_waiting, {})) {
        if (!figure ||
            isValidUpToTheRoot(figure)) // a paint was quicker, and its turn is still to come
            continue;
        m_served.append(figure);
        figure->revalidate();
        if (!alive)
            return;
    }

    UpdateManager *manager = m_widget->getUpdateManager();
    if (!manager || !manager->getViewer())
        return;
    m_isRunning = true;
    manager->performUpdate();
    if (alive)
        m_isRunning = false;
}

} // namespace Velmora::Figura
