#pragma once

class QObject;

namespace Velmora::Figura {

class Figure;

/// Connects figureMoved() of \a figure with a slot, by its index, that takes a figure or nothing.
///
/// This is the connection that SIGNAL() and SLOT() make, and those undo it too. To make it so is
/// much quicker.
void connectMoves(Figure *figure, QObject *receiver, int slot);
void disconnectMoves(Figure *figure, QObject *receiver, int slot);

} // namespace Velmora::Figura
