#include <figura/FiguraDiagram.h>

#include <QMetaType>

namespace Velmora::Figura {
namespace {

// As in the library below: for connections by text, which look for the full name alone.
void registerAll()
{
    qRegisterMetaType<Diagram *>();
    qRegisterMetaType<DiagramView *>();
    qRegisterMetaType<OutlineAnchor *>();
    qRegisterMetaType<Overview *>();
}

Q_CONSTRUCTOR_FUNCTION(registerAll)

} // namespace
} // namespace Velmora::Figura
