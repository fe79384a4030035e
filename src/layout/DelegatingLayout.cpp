#include <figura/layout/DelegatingLayout.h>

#include "constraint_p.h"
#include "figure/childwalk_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {

DelegatingLayout::DelegatingLayout(QObject *parent)
    : Layout(parent)
{
}

DelegatingLayout::~DelegatingLayout() = default;

bool DelegatingLayout::isRelativeLayout() const
{
    return false;
}

bool DelegatingLayout::isClipping() const
{
    return false;
}

QSize DelegatingLayout::calculateMinimumSize()
{
    QSize size;
    if (!getFigure())
        return size;
    walkChildren(this, [&size](Figure *child) {
        if (child)
            size = size.expandedTo(child->getPreferredSize());
    });
    return size;
}

QSize DelegatingLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

bool DelegatingLayout::performLayout(const QRect & /*clientArea*/)
{
    walkChildren(this, [this](Figure *child) {
        ILocator *locator = constraintLocator(getConstraint(child));
        if (child && locator)
            locator->relocate(child);
    });
    return true;
}

} // namespace Velmora::Figura
