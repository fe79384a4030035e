#pragma once

#include <figura/view/UpdateManager.h>

#include <QList>
#include <QRect>

namespace Velmora::Figura::Test {

/// Remembers what figures report. It works on as an update manager only when it has a viewer, so
/// that without one nothing is logged.
class RecordingUpdateManager : public UpdateManager
{
public:
    struct Request
    {
        enum Kind { Dirty, Invalid };

        Kind kind;
        Figure *figure;
        QRect rect; ///< Only of Dirty; in the coordinate system of the figure's bounds.

        bool operator==(const Request &other) const;
    };

    using UpdateManager::addDirtyRegion;
    void addDirtyRegion(Figure *figure, const QRect &rect) override;
    void addInvalidFigure(Figure *figure) override;

    const QList<Request> &requests() const;  ///< In call order.
    QList<Request> dirtyRequests() const;    ///< Those of kind Dirty.
    QList<QRect> dirtyRects() const;         ///< Their rectangles.
    QList<QRect> dirtyRects(Figure *) const; ///< Those of one figure.
    QList<Figure *> invalidFigures() const;  ///< With repetitions.
    void clear();

private:
    QList<Request> m_requests;
};

} // namespace Velmora::Figura::Test
