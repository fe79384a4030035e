#include <figura/view/IFigureViewer.h>

namespace Velmora::Figura {

IFigureViewer::~IFigureViewer() = default;

} // namespace Velmora::Figura
