#include <figura/view/UpdateManager.h>

#include "figure/paintreach_p.h"
#include "figure/privateflags_p.h"
#include "figure/revalidation_p.h"
#include "secondturn_p.h"

#include <figura/figure/Figure.h>
#include <figura/view/FreeformWidget.h>

#include <QMessageLogger>

#include <utility>

namespace Velmora::Figura {

UpdateManager::UpdateManager(QObject *parent)
    : QObject(parent)
{
}

UpdateManager::~UpdateManager() = default;

void UpdateManager::setViewer(IFigureViewer *viewer)
{
    m_viewer = viewer;
}

IFigureViewer *UpdateManager::getViewer() const
{
    return m_viewer.get();
}

void UpdateManager::addDirtyRegion(Figure *figure, const QRect &rect)
{
    if (!hasViewer("addDirtyRegion"))
        return;

    QRect absolute = rect;
    figure->translateToAbsolute(absolute);
    const PaintReach::Damage damage(*figure);
    m_viewer->updateContentRect(absolute);
}

void UpdateManager::addDirtyRegion(const QRect &rect)
{
    if (hasViewer("addDirtyRegion"))
        m_viewer->updateContentRect(rect);
}

void UpdateManager::addInvalidFigure(Figure *figure)
{
    if (!hasViewer("addInvalidFigure"))
        return;
    if (!figure) {
        QMessageLogger().warning("UpdateManager::addInvalidFigure(): null figure pointer");
        return;
    }

    if (m_invalidFigures.size() >= m_nextSweep)
        sweep();
    // An entry that has become null was that of a destroyed figure at the same address.
    QPointer<Figure> &entry = m_queued[figure];
    if (!entry) {
        entry = figure;
        m_invalidFigures.append(entry);
    }
    noteLate(figure);
}

// Whoever is still to come in the pass is in time. One that is being validated is marked valid at
// the end, and hides the descendant that called for it.
void UpdateManager::noteLate(Figure *figure)
{
    if (m_passes == 0 || m_coming.contains(figure))
        return;
    if (!m_late.contains(figure))
        m_late.append(figure);
    Figure *origin = Revalidation::origin();
    if (figure->getFlag(FLAG_VALIDATING) && origin && m_late.constLast() != origin)
        m_late.append(origin);
}

void UpdateManager::performUpdate()
{
    if (!hasViewer("performUpdate"))
        return;
    sweep();
    if (m_invalidFigures.isEmpty())
        return;

    // Slots and layouts are the application's: they may destroy figures, and this manager too.
    const QPointer<UpdateManager> self(this);
    Q_EMIT aboutToValidate(m_viewer.get());
    if (!self)
        return;

    validateQueue();
    if (self)
        finishPass();
}

void UpdateManager::validateQueue()
{
    const QPointer<UpdateManager> self(this);
    ++m_passes;
    // A copy, because a layout may queue figures while we walk.
    m_coming = m_invalidFigures;
    while (self && !m_coming.isEmpty()) {
        if (const QPointer<Figure> figure = m_coming.takeFirst())
            figure->validate();
    }
    if (self)
        --m_passes;
}

// Figures queued while we validated are dropped on purpose: one that still needs work has to
// invalidate itself again, and its own repaint brings the next pass.
void UpdateManager::finishPass()
{
    m_invalidFigures.clear();
    m_queued.clear();
    if (m_passes > 0)
        return;
    const QList<QPointer<Figure>> late = std::exchange(m_late, {});
    if (m_widget)
        m_widget->m_secondTurn->examine(late);
}

bool UpdateManager::hasViewer(const char *operation) const
{
    if (!m_viewer)
        QMessageLogger().warning("UpdateManager::%s(): no managed widget", operation);
    return bool(m_viewer);
}

// What was destroyed would otherwise count as queued, and pile up while nothing is painted. On the
// way there only at doubled sizes, so that to queue one figure costs the same however many wait.
void UpdateManager::sweep()
{
    const auto isGone = [](const QPointer<Figure> &figure) { return figure.isNull(); };
    m_invalidFigures.removeIf(isGone);
    m_queued.removeIf([&](const auto &entry) { return isGone(entry.value()); });
    m_nextSweep = qMax(firstSweep, m_invalidFigures.size() * 2);
}

} // namespace Velmora::Figura
