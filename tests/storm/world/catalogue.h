#pragma once

#include "numbers.h"

namespace Velmora::Figura::Storm {

class World;

/// Where an operation may run when it is set off from within the library.
enum class Place {
    Anywhere,      ///< In every slot and every operation that an application overrides.
    OutsidePaint,  ///< Not while the window system paints: it moves windows or paints itself.
    OutsideEvents, ///< Not while an event is handled: it destroys the window that handles it.
    Top            ///< Only between the other operations.
};

/// One operation of a storm.
struct Entry
{
    const char *name;
    int arity;  ///< How many numbers it reads at most.
    int weight; ///< How often it is drawn; 0 for what only a written list asks for.
    Place place;
    void (*run)(World &world, Numbers &numbers);
};

/// All operations. There are fewer than 256, so that one byte tells them apart.
const QList<Entry> &catalogue();

int codeOf(const QByteArray &name); ///< -1 for an unknown name.

// The rooms of the catalogue, each in a file of its own.
QList<Entry> borderOperations();
QList<Entry> boundsOperations();
QList<Entry> connectionOperations();
QList<Entry> contentOperations();
QList<Entry> decorationOperations();
QList<Entry> destroyOperations();
QList<Entry> figureOperations();
QList<Entry> layerOperations();
QList<Entry> layoutOperations();
QList<Entry> lineOperations();
QList<Entry> listenerOperations();
QList<Entry> lookOperations();
QList<Entry> printOperations();
QList<Entry> routingOperations();
QList<Entry> runOperations();
QList<Entry> shapeOperations();
QList<Entry> viewOperations();
QList<Entry> zoomOperations();

} // namespace Velmora::Figura::Storm
