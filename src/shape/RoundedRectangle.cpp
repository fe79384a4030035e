#include <figura/shape/RoundedRectangle.h>

#include <algorithm>

namespace Velmora::Figura {
namespace {

QPainterPath squarePath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

// Counter-clockwise from the top of the top left corner; arcTo() adds the straight sides.
QPainterPath roundedPath(const QRectF &rect, double cornerWidth, double cornerHeight)
{
    const double left = rect.x();
    const double top = rect.y();
    const double farX = left + rect.width() - cornerWidth;
    const double farY = top + rect.height() - cornerHeight;

    QPainterPath path;
    path.moveTo(left + cornerWidth / 2, top);
    path.arcTo(left, top, cornerWidth, cornerHeight, 90, 90);
    path.arcTo(left, farY, cornerWidth, cornerHeight, 180, 90);
    path.arcTo(farX, farY, cornerWidth, cornerHeight, 270, 90);
    path.arcTo(farX, top, cornerWidth, cornerHeight, 0, 90);
    path.closeSubpath();
    return path;
}

} // namespace

RoundedRectangle::RoundedRectangle(QObject *parent)
    : Shape(parent)
{
}

RoundedRectangle::~RoundedRectangle() = default;

void RoundedRectangle::setXRnd(int percent)
{
    m_xRnd = std::min(percent, 99); // no lower bound on purpose: below 1 means square
}

int RoundedRectangle::getXRnd() const
{
    return m_xRnd;
}

void RoundedRectangle::setYRnd(int percent)
{
    m_yRnd = std::min(percent, 99);
}

int RoundedRectangle::getYRnd() const
{
    return m_yRnd;
}

void RoundedRectangle::regeneratePath(const QRectF &rect)
{
    if (m_xRnd < 1 || m_yRnd < 1) {
        painterPath() = squarePath(rect);
        return;
    }
    const QRectF normal = rect.normalized();
    painterPath() = roundedPath(normal, 2 * (m_xRnd * normal.width() / 200),
                                2 * (m_yRnd * normal.height() / 200));
}

} // namespace Velmora::Figura
