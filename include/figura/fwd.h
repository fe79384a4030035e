#pragma once

/// Forward declarations of every public class, for headers that only name them.
namespace Velmora::Figura {

class GeometryUtils;
class Insets;
class Ray;
class Transform;
class Transposer;
struct IPositionConstants;
struct IStyleConstants;

class AncestorHelper;
class Border;
class ExclusionSearch;
class Figure;
class FocusBorder;
class IAncestorListener;
class IFigure;
class IPropertyChangeListener;
class ITreeSearch;
class ScaledBorder;
class SimpleBorder;

class DelegatingLayout;
class FreeformLayout;
class FreeformStackLayout;
class HBoxLayout;
class ILayoutListener;
class ILocator;
class Layout;
class PageLayout;
class StackLayout;
class VBoxLayout;
class XYLayout;

class FreeformLayer;
class FreeformLayeredPane;
class FreeformViewer;
class FreeformWidget;
class IFigureViewer;
class IFreeformFigure;
class IUpdateManager;
class IViewport;
class Layer;
class LayeredPane;
class UpdateManager;

class AbsoluteBendpoint;
class AbstractConnectionAnchor;
class AbstractRouter;
class Bendpoint;
class BendpointConnectionRouter;
class ChopboxAnchor;
class ConnectionAnchorBase;
class ConnectionLayer;
class EllipseAnchor;
class IAnchorListener;
class IBendpoint;
class IConnection;
class IConnectionAnchor;
class IConnectionRouter;
class ManhattanConnectionRouter;
class NullRouter;
class Polyline;
class PolylineConnection;
class PolylineF;
class PolylineFConnection;
class RelativeBendpoint;
class XYAnchor;

class ArrowLocator;
class BendpointLocator;
class ConnectionEndpointLocator;
class ConnectionLocator;
class Decoration;
class IRotatableDecoration;
class Locator;
class MidpointLocator;
class PolygonDecoration;
class PolylineDecoration;
class RelativeLocator;

class Ellipse;
class LabelFigure;
class PixmapFigure;
class Polygon;
class Rectangle;
class RoundedRectangle;
class Shape;
class TextFigure;

} // namespace Velmora::Figura
