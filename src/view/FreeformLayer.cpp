#include <figura/view/FreeformLayer.h>

#include <figura/layout/FreeformLayout.h>

#include <algorithm>

namespace Velmora::Figura {
namespace {

FreeformLayout *freeformLayout(const Figure *figure)
{
    return qobject_cast<FreeformLayout *>(figure->getLayoutManager());
}

} // namespace

FreeformLayer::FreeformLayer(QObject *parent, bool contentMonitored)
    : Layer(parent)
{
    auto *layout = new FreeformLayout(this, contentMonitored);
    setLayoutManager(layout);
    connect(layout, SIGNAL(extentChanged()), this, SIGNAL(extentChanged()));
}

FreeformLayer::~FreeformLayer() = default;

QRect FreeformLayer::getFreeformExtent()
{
    FreeformLayout *layout = freeformLayout(this);
    if (!layout)
        return {};

    const int padding = m_extentPadding; // figures that are measured may destroy the layer
    const QRect extent = layout->getFreeformExtent();
    return padding < 1 ? extent : extent.adjusted(-padding, -padding, padding, padding);
}

void FreeformLayer::setFreeformBounds(const QRect &rect)
{
    if (freeformLayout(this) && rect != getBounds())
        setBounds(rect);
}

void FreeformLayer::setExtentPadding(int padding)
{
    m_extentPadding = std::max(padding, 0);
}

int FreeformLayer::getExtentPadding() const
{
    return m_extentPadding;
}

void FreeformLayer::setContentMonitored(bool monitored)
{
    if (FreeformLayout *layout = freeformLayout(this))
        layout->setContentMonitored(monitored);
}

bool FreeformLayer::isContentMonitored() const
{
    const FreeformLayout *layout = freeformLayout(this);
    return layout && layout->isContentMonitored();
}

} // namespace Velmora::Figura
