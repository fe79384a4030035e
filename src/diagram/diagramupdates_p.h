#pragma once

#include <figura/view/UpdateManager.h>

#include <functional>

namespace Velmora::Figura {

/// Tells first which figure it is whose damage comes.
class DiagramUpdates : public UpdateManager
{
public:
    using Told = std::function<void(const Figure *)>;

    DiagramUpdates(QObject *parent, Told told)
        : UpdateManager(parent)
        , m_told(std::move(told))
    {
    }

    using UpdateManager::addDirtyRegion;
    void addDirtyRegion(Figure *figure, const QRect &rect) override
    {
        m_told(figure);
        UpdateManager::addDirtyRegion(figure, rect);
    }

private:
    Told m_told;
};

} // namespace Velmora::Figura
