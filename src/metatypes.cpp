#include <figura/Figura.h>

#include <QMetaType>

namespace Velmora::Figura {
namespace {

template<typename... Types>
void registerTypes()
{
    (qRegisterMetaType<Types>(), ...);
}

// Qt learns a type when it is first used; a connection made by text may come before that, and then
// looks for the name alone. Only full names: a short one would take the place of whatever else a
// program calls Ray or Rectangle.
void registerAll()
{
    registerTypes<Insets, Ray, Insets *, Ray *, Transform *, Transposer *>();
    registerTypes<AncestorHelper *, Border *, ExclusionSearch *, Figure *, FocusBorder *,
                  IAncestorListener *, IFigure *, IPropertyChangeListener *, ITreeSearch *,
                  ScaledBorder *, SimpleBorder *>();
    registerTypes<DelegatingLayout *, FreeformLayout *, FreeformStackLayout *, HBoxLayout *,
                  ILayoutListener *, ILocator *, Layout *, PageLayout *, StackLayout *,
                  VBoxLayout *, XYLayout *>();
    registerTypes<FreeformLayer *, FreeformLayeredPane *, FreeformViewer *, FreeformWidget *,
                  IFigureViewer *, IFreeformFigure *, IUpdateManager *, IViewport *, Layer *,
                  LayeredPane *, UpdateManager *>();
    registerTypes<AbsoluteBendpoint, RelativeBendpoint, AbsoluteBendpoint *,
                  AbstractConnectionAnchor *, AbstractRouter *, Bendpoint *,
                  BendpointConnectionRouter *, ChopboxAnchor *, ConnectionAnchorBase *,
                  ConnectionLayer *, EllipseAnchor *, IAnchorListener *, IBendpoint *,
                  IConnection *, IConnectionAnchor *, IConnectionRouter *,
                  ManhattanConnectionRouter *, NullRouter *, Polyline *, PolylineConnection *,
                  PolylineF *, PolylineFConnection *, RelativeBendpoint *, XYAnchor *>();
    registerTypes<ArrowLocator *, BendpointLocator *, ConnectionEndpointLocator *,
                  ConnectionLocator *, Decoration *, IRotatableDecoration *, Locator *,
                  MidpointLocator *, PolygonDecoration *, PolylineDecoration *,
                  RelativeLocator *>();
    registerTypes<Ellipse *, LabelFigure *, PixmapFigure *, Polygon *, Rectangle *,
                  RoundedRectangle *, Shape *, TextFigure *>();
}

Q_CONSTRUCTOR_FUNCTION(registerAll)

} // namespace
} // namespace Velmora::Figura
