#include "ownclass_p.h"

#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/FreeformStackLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/Polygon.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>
#include <figura/shape/TextFigure.h>
#include <figura/view/FreeformLayeredPane.h>

#include <QSet>

#include <typeinfo>

namespace Velmora::Figura {
namespace {

using Classes = QSet<const std::type_info *>;

template<class... Class>
Classes classes()
{
    return {&typeid(Class)...};
}

// Not the decorations: they place themselves while they are validated.
const Classes &ownClasses()
{
    static const Classes known =
        classes<Figure, Layer, LayeredPane, FreeformLayer, FreeformLayeredPane, ConnectionLayer,
                Rectangle, RoundedRectangle, Ellipse, Polygon, TextFigure, LabelFigure,
                PixmapFigure, Polyline, PolylineF, PolylineConnection, PolylineFConnection,
                XYLayout, FreeformLayout, StackLayout, FreeformStackLayout, DelegatingLayout,
                HBoxLayout, VBoxLayout>();
    return known;
}

const Classes &restoringClasses()
{
    static const Classes known =
        classes<Layer, FreeformLayer, ConnectionLayer, Rectangle, RoundedRectangle, Ellipse,
                Polygon, Polyline, PolylineF, PolylineConnection, PolylineFConnection>();
    return known;
}

} // namespace

// By address: an object of an own class has the library's own table, and so its type information.
bool isOwnClass(const QObject *object)
{
    return object && ownClasses().contains(&typeid(*object));
}

bool restoresPainter(const QObject *object)
{
    return restoringClasses().contains(&typeid(*object));
}

} // namespace Velmora::Figura
