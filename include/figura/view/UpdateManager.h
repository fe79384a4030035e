#pragma once

#include <figura/export.h>
#include <figura/figure/InterfacePointer.h>
#include <figura/view/IFigureViewer.h> // complete, so that the signal's argument has a meta-type
#include <figura/view/IUpdateManager.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

namespace Velmora::Figura {

class Figure;
class FreeformWidget;

/// Queues figures for validation until the next paint, and passes damage on to the viewer at once.
///
/// Schedules nothing by itself: the paint events that damage asks for bring the validation. Every
/// operation is refused with a warning while no viewer is set. Owns neither viewer nor figures; a
/// queued figure that is destroyed leaves the queue.
class FIGURA_EXPORT UpdateManager : public QObject, public IUpdateManager
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IUpdateManager)
    Q_PROPERTY(IFigureViewer *viewer READ getViewer WRITE setViewer)

public:
    /// Without a viewer; a FreeformViewer sets itself.
    explicit UpdateManager(QObject *parent = nullptr);
    ~UpdateManager() override;

    void setViewer(IFigureViewer *viewer); ///< Not owned; null for none.
    IFigureViewer *getViewer() const;      ///< Null when there is none.

    /// Reports damage. \a rect is in the coordinate system of the figure's bounds; \a figure must
    /// not be null.
    void addDirtyRegion(Figure *figure, const QRect &rect) override;
    void addDirtyRegion(const QRect &rect) override; ///< \a rect is in absolute coordinates.
    void addInvalidFigure(Figure *figure) override;  ///< Queues once; null is refused.

    /// Validates the queued figures in the order of their arrival and empties the queue. Figures
    /// queued meanwhile are dropped; the widget of the viewer lets those that are still invalid
    /// revalidate once on a later turn of the event loop.
    void performUpdate() override;

Q_SIGNALS:
    void aboutToValidate(IFigureViewer *pFigureViewer); ///< Only when something is queued.

private:
    friend class FreeformWidget; // looks after what a pass has dropped

    bool hasViewer(const char *operation) const;
    void sweep();
    void validateQueue();
    void noteLate(Figure *figure);
    void finishPass();

    static constexpr qsizetype firstSweep = 16;

    QList<QPointer<Figure>> m_invalidFigures;   // in the order of their arrival
    QHash<Figure *, QPointer<Figure>> m_queued; // the same, to be found by address
    qsizetype m_nextSweep = firstSweep;
    QList<QPointer<Figure>> m_coming; // what is left of the present pass
    QList<QPointer<Figure>> m_late;   // what called for validation too late for it
    int m_passes = 0;                 // under way, one inside the other
    QPointer<FreeformWidget> m_widget;
    InterfacePointer<IFigureViewer> m_viewer;
};

} // namespace Velmora::Figura
