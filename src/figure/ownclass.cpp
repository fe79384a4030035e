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

#include <array>
#include <initializer_list>
#include <typeinfo>

namespace Velmora::Figura {
namespace {

/// A few classes by the address of their type information, to be looked up for each figure and
/// step.
class Classes
{
public:
    explicit Classes(std::initializer_list<const std::type_info *> types)
    {
        for (const std::type_info *type : types)
            m_places[freePlaceOf(type)] = type;
    }

    bool contains(const std::type_info *type) const { return m_places[freePlaceOf(type)] == type; }

private:
    // Four times as many places as classes, so that hardly two share one.
    static constexpr std::size_t placeCount = 128;

    std::size_t freePlaceOf(const std::type_info *type) const
    {
        std::size_t place = (reinterpret_cast<quintptr>(type) >> 4) % placeCount;
        while (m_places[place] && m_places[place] != type)
            place = (place + 1) % placeCount;
        return place;
    }

    std::array<const std::type_info *, placeCount> m_places{};
};

template<class... Class>
Classes classes()
{
    return Classes({&typeid(Class)...});
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
