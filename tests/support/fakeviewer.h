#pragma once

#include <figura/view/IFigureViewer.h>

#include <QList>

namespace Velmora::Figura::Test {

/// A viewer that shows nothing and remembers which areas it was asked to repaint.
class FakeViewer : public IFigureViewer
{
public:
    QList<QRect> updatedRects; ///< In absolute coordinates, in call order.

    UpdateManager *getUpdateManager() override;
    void setUpdateManager(UpdateManager *manager) override; ///< Only stores.
    IViewport *getViewport() override;                      ///< Null: there is none.
    void updateContentRect(const QRect &rect) override;
    QRect &elasticBand() override;
    QPoint toGlobal(const QPoint &point) override;   ///< The same point.
    QPoint fromGlobal(const QPoint &point) override; ///< The same point.

private:
    UpdateManager *m_updateManager = nullptr;
    QRect m_elasticBand;
};

} // namespace Velmora::Figura::Test
