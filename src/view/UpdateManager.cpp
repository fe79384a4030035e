#include <figura/view/UpdateManager.h>

#include <figura/figure/Figure.h>

#include <QMessageLogger>

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
    return m_viewer;
}

void UpdateManager::addDirtyRegion(Figure *figure, const QRect &rect)
{
    if (!hasViewer("addDirtyRegion"))
        return;

    QRect absolute = rect;
    figure->translateToAbsolute(absolute);
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

    dropDestroyedFigures();
    if (!m_invalidFigures.contains(figure))
        m_invalidFigures.append(figure);
}

void UpdateManager::performUpdate()
{
    if (!hasViewer("performUpdate"))
        return;
    dropDestroyedFigures();
    if (m_invalidFigures.isEmpty())
        return;

    // Slots and layouts are the application's: they may destroy figures, and this manager too.
    const QPointer<UpdateManager> self(this);
    Q_EMIT aboutToValidate(m_viewer);
    if (!self)
        return;

    // A copy, because a layout may queue figures while we walk.
    const QList<QPointer<Figure>> figures = m_invalidFigures;
    for (const QPointer<Figure> &figure : figures) {
        if (figure)
            figure->validate();
        if (!self)
            return;
    }

    // Figures queued while we validated are dropped on purpose: one that still needs work has to
    // invalidate itself again, and its own repaint brings the next pass.
    m_invalidFigures.clear();
}

bool UpdateManager::hasViewer(const char *operation) const
{
    if (!m_viewer)
        QMessageLogger().warning("UpdateManager::%s(): no managed widget", operation);
    return m_viewer;
}

// Pointers that became null would otherwise count as queued, and pile up while nothing is painted.
void UpdateManager::dropDestroyedFigures()
{
    m_invalidFigures.removeIf([](const QPointer<Figure> &figure) { return figure.isNull(); });
}

} // namespace Velmora::Figura
