#pragma once

class QObject;

namespace Velmora::Figura {

/// Whether \a object is of exactly one of the library's own figure or layout classes, whose
/// operations do what they are known to do. What a subclass overrides cannot be known from outside,
/// so shortcuts are taken only around objects for which this is true.
bool isOwnClass(const QObject *object);

/// Whether \a object is of an own class that leaves the painter as it was, whatever it draws.
bool restoresPainter(const QObject *object);

} // namespace Velmora::Figura
