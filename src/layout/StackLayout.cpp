#include <figura/layout/StackLayout.h>

#include "figure/childwalk_p.h"

namespace Velmora::Figura {

StackLayout::StackLayout(QObject *parent)
    : Layout(parent)
{
}

StackLayout::~StackLayout() = default;

bool StackLayout::isRelativeLayout() const
{
    return false;
}

QSize StackLayout::calculateMinimumSize()
{
    QSize size;
    walkChildren(this, [&size](Figure *child) {
        if (child)
            size = size.expandedTo(child->getMinimumSize());
    });
    return size;
}

QSize StackLayout::calculatePreferredSize()
{
    QSize size;
    walkChildren(this, [&size](Figure *child) {
        if (child)
            size = size.expandedTo(child->getPreferredSize());
    });
    return size;
}

bool StackLayout::performLayout(const QRect &clientArea)
{
    if (!clientArea.isValid())
        return false;
    walkChildren(this, [&clientArea](Figure *child) {
        if (child && child->isVisible())
            child->setBounds(clientArea);
    });
    return true;
}

} // namespace Velmora::Figura
