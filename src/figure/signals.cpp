#include "signals_p.h"

#include <figura/figure/Figure.h>

#include <QMetaMethod>

namespace Velmora::Figura {
namespace {

int figureMovedIndex()
{
    static const int index = QMetaMethod::fromSignal(&Figure::figureMoved).methodIndex();
    return index;
}

} // namespace

QMetaObject::Connection connectNormalized(QObject *sender, const char *signal, QObject *receiver,
                                          const char *slot)
{
    const int signalIndex = sender->metaObject()->indexOfSignal(signal);
    const int slotIndex = receiver->metaObject()->indexOfSlot(slot);
    if (signalIndex >= 0 && slotIndex >= 0)
        return QMetaObject::connect(sender, signalIndex, receiver, slotIndex);
    // Qt reports what is missing.
    return QObject::connect(sender, QByteArray(1, '0' + QSIGNAL_CODE) + signal, receiver,
                            QByteArray(1, '0' + QSLOT_CODE) + slot);
}

void disconnectNormalized(QObject *sender, const char *signal, QObject *receiver, const char *slot)
{
    const int signalIndex = sender->metaObject()->indexOfSignal(signal);
    const int slotIndex = receiver->metaObject()->indexOfSlot(slot);
    if (signalIndex >= 0 && slotIndex >= 0)
        QMetaObject::disconnect(sender, signalIndex, receiver, slotIndex);
}

void connectMoves(Figure *figure, QObject *receiver, int slot)
{
    QMetaObject::connect(figure, figureMovedIndex(), receiver, slot);
}

void disconnectMoves(Figure *figure, QObject *receiver, int slot)
{
    QMetaObject::disconnect(figure, figureMovedIndex(), receiver, slot);
}

} // namespace Velmora::Figura
