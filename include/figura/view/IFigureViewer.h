#pragma once

#include <figura/export.h>

#include <QObject>
#include <QPoint>
#include <QRect>

namespace Velmora::Figura {

class IViewport;
class UpdateManager;

/// What an update manager and its figures need of the viewer that shows them.
class FIGURA_EXPORT IFigureViewer
{
public:
    virtual ~IFigureViewer();

    virtual UpdateManager *getUpdateManager() = 0; ///< Null when there is none.
    /// Takes the place of the one before.
    virtual void setUpdateManager(UpdateManager *manager) = 0;
    virtual IViewport *getViewport() = 0; ///< What of the content is visible.

    /// Requests a repaint of what shows \a rect, a rectangle in absolute coordinates.
    virtual void updateContentRect(const QRect &rect) = 0;

    /// The rubber band, in content coordinates; drawn while valid.
    virtual QRect &elasticBand() = 0;

    virtual QPoint toGlobal(const QPoint &point) = 0;   ///< From the shown widget to the screen.
    virtual QPoint fromGlobal(const QPoint &point) = 0; ///< From the screen to the shown widget.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IFigureViewer, "IFigureViewer.Figura.Velmora.velmora.org")
