#pragma once

#include <figura/export.h>

#include <QObject>

class QRect;

namespace Velmora::Figura {

class Figure;

/// Collects what is stale in a displayed figure tree; UpdateManager documents each operation.
class FIGURA_EXPORT IUpdateManager
{
public:
    virtual ~IUpdateManager();

    /// Asks for a repaint of \a rect, in the coordinate system of the figure's bounds.
    virtual void addDirtyRegion(Figure *figure, const QRect &rect) = 0;
    /// Asks for a repaint of \a rect, in absolute coordinates.
    virtual void addDirtyRegion(const QRect &rect) = 0;
    /// Queues \a figure for the next validation.
    virtual void addInvalidFigure(Figure *figure) = 0;
    virtual void performUpdate() = 0; ///< Validates what is queued.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IUpdateManager, "IUpdateManager.Figura.Velmora.velmora.org")
