#include <figura/layout/HBoxLayout.h>

#include "box_p.h"
#include "figure/figureguard_p.h"

namespace Velmora::Figura {

HBoxLayout::HBoxLayout(QObject *parent)
    : Layout(parent)
{
    setAlignment(Qt::AlignCenter); // differs from the other box layout on purpose
}

HBoxLayout::~HBoxLayout() = default;

bool HBoxLayout::setConstraint(Figure *child, const QVariant &constraint)
{
    const QPointer<HBoxLayout> alive(this);
    const FigureGuard guarded(child);
    const QVariant raised = boxConstraint(child, constraint); // measures the child
    return alive && Layout::setConstraint(guarded, raised);
}

bool HBoxLayout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!Layout::applyConstraint(child, constraint))
        return false;
    applyBoxConstraint(child, constraint);
    return true;
}

QSize HBoxLayout::calculateMinimumSize()
{
    return boxMinimumSize(this, Qt::Horizontal);
}

QSize HBoxLayout::calculatePreferredSize()
{
    return boxPreferredSize(this, Qt::Horizontal);
}

bool HBoxLayout::performLayout(const QRect &clientArea)
{
    const auto stretchOf = [this](Figure *child) {
        const LayoutHelper *helper = getHelper(child);
        return helper ? std::optional(helper->hStretch) : std::nullopt;
    };
    return layOutBox(this, Qt::Horizontal, clientArea, {getHTotalStretch(), stretchOf});
}

} // namespace Velmora::Figura
