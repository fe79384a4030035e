#include <recordingupdatemanager.h>

namespace Velmora::Figura::Test {

bool RecordingUpdateManager::Request::operator==(const Request &other) const
{
    return kind == other.kind && figure == other.figure && rect == other.rect;
}

void RecordingUpdateManager::addDirtyRegion(Figure *figure, const QRect &rect)
{
    m_requests.append({Request::Dirty, figure, rect});
    if (getViewer())
        UpdateManager::addDirtyRegion(figure, rect);
}

void RecordingUpdateManager::addInvalidFigure(Figure *figure)
{
    m_requests.append({Request::Invalid, figure, QRect()});
    if (getViewer())
        UpdateManager::addInvalidFigure(figure);
}

const QList<RecordingUpdateManager::Request> &RecordingUpdateManager::requests() const
{
    return m_requests;
}

QList<RecordingUpdateManager::Request> RecordingUpdateManager::dirtyRequests() const
{
    QList<Request> result;
    for (const Request &request : m_requests) {
        if (request.kind == Request::Dirty)
            result.append(request);
    }
    return result;
}

QList<QRect> RecordingUpdateManager::dirtyRects() const
{
    QList<QRect> result;
    for (const Request &request : dirtyRequests())
        result.append(request.rect);
    return result;
}

QList<QRect> RecordingUpdateManager::dirtyRects(Figure *figure) const
{
    QList<QRect> result;
    for (const Request &request : dirtyRequests()) {
        if (request.figure == figure)
            result.append(request.rect);
    }
    return result;
}

QList<Figure *> RecordingUpdateManager::invalidFigures() const
{
    QList<Figure *> result;
    for (const Request &request : m_requests) {
        if (request.kind == Request::Invalid)
            result.append(request.figure);
    }
    return result;
}

void RecordingUpdateManager::clear()
{
    m_requests.clear();
}

} // namespace Velmora::Figura::Test
