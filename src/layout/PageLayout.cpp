#include <figura/layout/PageLayout.h>

#include <QPainter>

namespace Velmora::Figura {
namespace {

constexpr double marginInInches = 0.7874015748031495; // 20 mm

} // namespace

PageLayout::PageLayout(QObject *parent)
    : QObject(parent)
{
}

PageLayout::~PageLayout() = default;

QRectF PageLayout::getContentRect(QPainter *painter)
{
    const QPaintDevice *device = painter ? painter->device() : nullptr;
    if (!device)
        return QRectF();

    const int margin = static_cast<int>(device->logicalDpiY() * marginInInches);
    return QRectF(0, 0, device->width(), device->height())
        .adjusted(margin, margin, -margin, -margin);
}

} // namespace Velmora::Figura
