#include <fakeviewer.h>

namespace Velmora::Figura::Test {

UpdateManager *FakeViewer::getUpdateManager()
{
    return m_updateManager;
}

void FakeViewer::setUpdateManager(UpdateManager *manager)
{
    m_updateManager = manager;
}

IViewport *FakeViewer::getViewport()
{
    return nullptr;
}

void FakeViewer::updateContentRect(const QRect &rect)
{
    updatedRects.append(rect);
}

QRect &FakeViewer::elasticBand()
{
    return m_elasticBand;
}

QPoint FakeViewer::toGlobal(const QPoint &point)
{
    return point;
}

QPoint FakeViewer::fromGlobal(const QPoint &point)
{
    return point;
}

} // namespace Velmora::Figura::Test
