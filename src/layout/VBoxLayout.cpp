#include <figura/layout/VBoxLayout.h>

#include "box_p.h"
#include "figure/figureguard_p.h"

namespace Velmora::Figura {

VBoxLayout::VBoxLayout(QObject *parent)
    : Layout(parent)
{
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter); // differs from the other box layout on purpose
}

VBoxLayout::~VBoxLayout() = default;

bool VBoxLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    const QPointer<VBoxLayout> alive(this);
    const FigureGuard guarded(child);
    const QVariant raised = boxConstraint(child, constraint); // measures the child
    return alive && Layout::setConstraint(guarded, raised);
}

bool VBoxLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!Layout::applyConstraint(child, constraint))
        return false;
    applyBoxConstraint(child, constraint);
    return true;
}

QSize VBoxLayout::calculateMinimumSize()
{
    return boxMinimumSize(this, Qt::Vertical);
}

QSize VBoxLayout::calculatePreferredSize()
{
    return boxPreferredSize(this, Qt::Vertical);
}

bool VBoxLayout::performLayout(const QRect &clientArea)
{
    const auto stretchOf = [this](Figure *child) {
        const LayoutHelper *helper = getHelper(child);
        return helper ? std::optional(helper->vStretch) : std::nullopt;
    };
    return layOutBox(this, Qt::Vertical, clientArea, {getVTotalStretch(), stretchOf});
}

} // namespace Velmora::Figura
