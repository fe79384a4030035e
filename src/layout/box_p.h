#pragma once

// What the two box layouts share. All of it reckons in the terms of a horizontal box; sizes of a
// vertical one are turned on their way in and out.

#include <figura/layout/Layout.h>

#include <functional>
#include <optional>

namespace Velmora::Figura {

struct BoxStretch
{
    unsigned int total;                                           // of the visible children
    std::function<std::optional<unsigned int>(Figure *)> ofChild; // none without a record
};

/// A size constraint raised to the minimum size of \a child; anything else as it is.
QVariant boxConstraint(Figure *child, const QVariant &constraint);

/// Gives \a child the size that is its constraint.
void applyBoxConstraint(Figure *child, const QVariant &constraint);

QSize boxMinimumSize(Layout *box, Qt::Orientation orientation);
QSize boxPreferredSize(Layout *box, Qt::Orientation orientation);
bool layOutBox(Layout *box, Qt::Orientation orientation, const QRect &area,
               const BoxStretch &stretch);

} // namespace Velmora::Figura
