#include "signals_p.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>
#include <figura/figure/AncestorHelper.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>

#include <QHash>
#include <QMetaMethod>
#include <QSet>

#include <utility>

namespace Velmora::Figura {
namespace {

int figureMovedIndex()
{
    static const int index = QMetaMethod::fromSignal(&Figure::figureMoved).methodIndex();
    return index;
}

// Those of the library live as long as the program. Others may go, and leave their address to one
// that has other methods.
bool isForEver(const QMetaObject *meta)
{
    static const QSet<const QMetaObject *> known{
        &Figure::staticMetaObject,
        &AncestorHelper::staticMetaObject,
        &Rectangle::staticMetaObject,
        &RoundedRectangle::staticMetaObject,
        &Ellipse::staticMetaObject,
        &Polygon::staticMetaObject,
        &TextFigure::staticMetaObject,
        &LabelFigure::staticMetaObject,
        &PixmapFigure::staticMetaObject,
        &Polyline::staticMetaObject,
        &PolylineF::staticMetaObject,
        &PolylineConnection::staticMetaObject,
        &PolylineFConnection::staticMetaObject,
        &ChopboxAnchor::staticMetaObject,
        &EllipseAnchor::staticMetaObject,
        &XYAnchor::staticMetaObject,
    };
    return known.contains(meta);
}

// The search goes through the methods of all base classes and takes ten times as long as a
// connection. Signatures are literals.
template<QMetaMethod::MethodType type>
int indexOf(const QMetaObject *meta, const char *signature)
{
    static QHash<std::pair<const QMetaObject *, const char *>, int> known;
    const auto found = known.constFind({meta, signature});
    if (found != known.cend())
        return *found;
    const int index =
        type == QMetaMethod::Signal ? meta->indexOfSignal(signature) : meta->indexOfSlot(signature);
    if (isForEver(meta))
        known.insert({meta, signature}, index);
    return index;
}

int signalIndexOf(const QObject *object, const char *signature)
{
    return indexOf<QMetaMethod::Signal>(object->metaObject(), signature);
}

int slotIndexOf(const QObject *object, const char *signature)
{
    return indexOf<QMetaMethod::Slot>(object->metaObject(), signature);
}

} // namespace

QMetaObject::Connection connectNormalized(QObject *sender, const char *signal, QObject *receiver,
                                          const char *slot)
{
    const int signalIndex = signalIndexOf(sender, signal);
    const int slotIndex = slotIndexOf(receiver, slot);
    if (signalIndex >= 0 && slotIndex >= 0)
        return QMetaObject::connect(sender, signalIndex, receiver, slotIndex);
    // Qt reports what is missing.
    return QObject::connect(sender, QByteArray(1, '0' + QSIGNAL_CODE) + signal, receiver,
                            QByteArray(1, '0' + QSLOT_CODE) + slot);
}

void disconnectNormalized(QObject *sender, const char *signal, QObject *receiver, const char *slot)
{
    const int signalIndex = signalIndexOf(sender, signal);
    const int slotIndex = slotIndexOf(receiver, slot);
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
