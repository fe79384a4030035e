#include "constraint_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {
namespace {

// Answers for the rectangles that most constraints are, without a look at what Qt can convert.
bool mayHoldObject(const QVariant &constraint)
{
    const int type = constraint.typeId();
    return type != QMetaType::QRect && type != QMetaType::QRectF && type != QMetaType::UnknownType;
}

bool holdsObject(const QVariant &constraint)
{
    return mayHoldObject(constraint) && constraint.canConvert<QObject *>();
}

} // namespace

QObject *constraintObject(const QVariant &constraint)
{
    return holdsObject(constraint) ? constraint.value<QObject *>() : nullptr;
}

ILocator *constraintLocator(const QVariant &constraint)
{
    return qobject_cast<ILocator *>(constraintObject(constraint));
}

bool sameConstraint(const QVariant &a, const QVariant &b)
{
    if (holdsObject(a) && holdsObject(b))
        return constraintObject(a) == constraintObject(b);
    return a == b;
}

} // namespace Velmora::Figura
