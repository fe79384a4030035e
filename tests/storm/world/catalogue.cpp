#include "catalogue.h"

#include <QHash>

namespace Velmora::Figura::Storm {
namespace {

QList<Entry> allOperations()
{
    return runOperations() + figureOperations() + boundsOperations() + lookOperations() +
           layoutOperations() + borderOperations() + shapeOperations() + lineOperations() +
           contentOperations() + connectionOperations() + routingOperations() +
           decorationOperations() + layerOperations() + zoomOperations() + viewOperations() +
           printOperations() + listenerOperations() + destroyOperations();
}

QHash<QByteArray, int> codesByName()
{
    QHash<QByteArray, int> codes;
    for (int code = 0; code < catalogue().size(); ++code)
        codes.insert(catalogue().at(code).name, code);
    return codes;
}

} // namespace

const QList<Entry> &catalogue()
{
    static const QList<Entry> entries = allOperations();
    return entries;
}

int codeOf(const QByteArray &name)
{
    static const QHash<QByteArray, int> codes = codesByName();
    return codes.value(name, -1);
}

} // namespace Velmora::Figura::Storm
