#pragma once

class QObject;

namespace Velmora::Figura {

class IAncestorListener;
class IAnchorListener;
class IConnection;
class IConnectionAnchor;

/// The object that implements the interface; null when it is none. What dynamic_cast gives, which
/// takes far longer to find out, but for the classes that nearly all connections and anchors are
/// of.
QObject *objectOf(IConnection *connection);
QObject *objectOf(IConnectionAnchor *anchor);
QObject *objectOf(IAncestorListener *listener);
QObject *objectOf(IAnchorListener *listener);

} // namespace Velmora::Figura
