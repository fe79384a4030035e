#include "constraint_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {

QObject *constraintObject(const QVariant &constraint)
{
    return constraint.canConvert<QObject *>() ? constraint.value<QObject *>() : nullptr;
}

ILocator *constraintLocator(const QVariant &constraint)
{
    return qobject_cast<ILocator *>(constraintObject(constraint));
}

bool sameConstraint(const QVariant &a, const QVariant &b)
{
    if (a.canConvert<QObject *>() && b.canConvert<QObject *>())
        return constraintObject(a) == constraintObject(b);
    return a == b;
}

} // namespace Velmora::Figura
