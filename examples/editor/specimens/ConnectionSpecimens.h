#pragma once

#include <figura/connection/PolylineConnection.h>

namespace Editor::Specimens {

/// A connection between two figures of the stage, with an arrow head at its target.
Velmora::Figura::PolylineConnection *link(Velmora::Figura::Figure *stage,
                                          Velmora::Figura::Figure *source,
                                          Velmora::Figura::Figure *target);

/// The same between two boxes at the lower left and the upper right.
Velmora::Figura::PolylineConnection *linkedBoxes(Velmora::Figura::Figure *stage);

} // namespace Editor::Specimens
