#pragma once

#include <figura/decoration/ConnectionLocator.h>
#include <figura/figure/InterfacePointer.h>

#include <QRect>

namespace Velmora::Figura {

class Figure;
class IAnchorListener;
class IConnection;
class IConnectionAnchor;
class IConnectionRouter;
class IRotatableDecoration;

/// What the integer and the floating connection share: anchors, router, decorations and bounds.
class ConnectionCore
{
public:
    /// One end of the connection.
    struct End
    {
        const ConnectionLocator::Alignment alignment;
        const char *const decorationSetter; // for the message
        InterfacePointer<IConnectionAnchor> anchor;
        InterfacePointer<IRotatableDecoration> decoration;
        bool hooked = false; // the connection is a listener of the anchor
    };

    /// The one connection object, in each of its roles.
    ConnectionCore(Figure *figure, IConnection *connection, IAnchorListener *listener,
                   const char *className);
    ~ConnectionCore();

    void setAnchor(End &end, IConnectionAnchor *anchor);
    void hook(End &end);
    void unhook(End &end);
    bool isConnected() const; ///< Whether both anchors are set.

    IConnectionRouter *router() const; ///< Never null.
    void setRouter(IConnectionRouter *router);

    void setDecoration(End &end, IRotatableDecoration *decoration);

    QRect bounds() const;
    /// Takes the bounds of the line, adds those of the children, and shows the result.
    void updateBounds(const QRect &lineBounds);
    void eraseBounds(); ///< Reports the present area as damage.

    End source;
    End target;

private:
    void release(IRotatableDecoration *decoration);

    Figure *const m_figure;
    IConnection *const m_connection;
    IAnchorListener *const m_listener;
    const char *const m_className;
    InterfacePointer<IConnectionRouter> m_router;
    QRect m_bounds;
};

} // namespace Velmora::Figura
