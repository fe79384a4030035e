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

void connectMoves(Figure *figure, QObject *receiver, int slot)
{
    QMetaObject::connect(figure, figureMovedIndex(), receiver, slot);
}

void disconnectMoves(Figure *figure, QObject *receiver, int slot)
{
    QMetaObject::disconnect(figure, figureMovedIndex(), receiver, slot);
}

} // namespace Velmora::Figura
