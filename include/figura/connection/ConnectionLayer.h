#pragma once

#include <figura/export.h>
#include <figura/figure/InterfacePointer.h>
#include <figura/view/FreeformLayer.h>

namespace Velmora::Figura {

class IConnectionRouter;

/// A layer for connections, which gives its router to each connection that is added.
///
/// Put it above the layers of the connected figures: layers are validated in their order, and a
/// connection below would be routed before its figures have moved.
class FIGURA_EXPORT ConnectionLayer : public FreeformLayer
{
    Q_OBJECT
    Q_MOC_INCLUDE("figura/connection/IConnectionRouter.h")
    Q_PROPERTY(
        IConnectionRouter *connectionRouter READ getConnectionRouter WRITE setConnectionRouter)

public:
    /// Connections have no rectangle constraints, so that monitoring them gains nothing.
    explicit ConnectionLayer(QObject *parent = nullptr, bool contentMonitored = false);
    ~ConnectionLayer() override;

    /// A connection gets the layer's router, if there is one, even when it is not accepted.
    bool add(Figure *child, const QVariant &constraint = QVariant(), int index = -1) override;
    /// \overload
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override; ///< A connection falls back to the shared NullRouter.
    /// Paints the layer, smoothed when setAntialias() says so.
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

    void setAntialias(bool on); ///< For painting this layer. Does not repaint.

    /// For connections added from now on; those already here keep theirs. Not owned.
    void setConnectionRouter(IConnectionRouter *router);
    IConnectionRouter *getConnectionRouter() const; ///< Null when none is set, or it was destroyed.

private:
    void handRouterTo(Figure *child);

    InterfacePointer<IConnectionRouter> m_router;
    bool m_antialias = false;
};

} // namespace Velmora::Figura
