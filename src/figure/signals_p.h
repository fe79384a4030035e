#pragma once

#include <QObject>

namespace Velmora::Figura {

class Figure;

/// Connects a signal with a slot, both by their signatures as moc writes them: without a blank,
/// without const and &. The connection is the one that SIGNAL() and SLOT() make, and it can be
/// undone by them. It is made in a fraction of the time, for nothing has to be normalized.
QMetaObject::Connection connectNormalized(QObject *sender, const char *signal, QObject *receiver,
                                          const char *slot);
void disconnectNormalized(QObject *sender, const char *signal, QObject *receiver, const char *slot);

/// Connects figureMoved() of \a figure with a slot, by its index, that takes a figure or nothing.
void connectMoves(Figure *figure, QObject *receiver, int slot);
void disconnectMoves(Figure *figure, QObject *receiver, int slot);

} // namespace Velmora::Figura
