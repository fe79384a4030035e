#pragma once

#include <QVariant>

namespace Velmora::Figura {

class ILocator;

/// The object that a constraint holds, whatever its static pointer type; null when it holds none.
QObject *constraintObject(const QVariant &constraint);

/// The locator that a constraint holds; null when it holds none.
ILocator *constraintLocator(const QVariant &constraint);

/// Two objects are equal when they are the same one; everything else by its value.
bool sameConstraint(const QVariant &a, const QVariant &b);

} // namespace Velmora::Figura
