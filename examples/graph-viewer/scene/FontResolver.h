#pragma once

#include "load/Drawing.h"

#include <QFont>

namespace GraphViewer {

/// Graph files name fonts the PostScript way, as in "Helvetica-BoldOblique"; Qt wants a family and
/// its traits.
namespace FontResolver {

/// In whole pixels of one unit each, the nearest to the size of the style: point sizes would come
/// out larger on a printer than on the screen.
QFont font(const TextStyle &style);

} // namespace FontResolver

} // namespace GraphViewer
