#pragma once

#include <QByteArray>
#include <QList>

class QPoint;
class QRect;

namespace Velmora::Figura {
class Figure;
}

namespace Velmora::Figura::Storm {

class World;

// What has to be true of a world at rest. Each check reports the first thing that is not.

void checkTree(World &world);         ///< Parents, children, flags and update managers agree.
void checkHitTest(World &world);      ///< Searches find what the plain way finds.
void checkPicture(World &world);      ///< The screen shows what a full repaint shows.
void checkIndex(World &world);        ///< Where the children lie is known, for painting as well.
void checkReservations(World &world); ///< Routers keep lines for living connections only.
void checkValidity(World &world);     ///< Nothing stays invalid for good.

/// All of them, after all that is pending. A viewer or content that was destroyed is made anew.
void runChecks(World &world);

// The plain way: slow and obvious. What the library does faster is held against it.

/// All figures from \a root down that are shown and hold \a point, in the order of painting.
QList<Figure *> figuresHolding(Figure *root, const QPoint &point);
/// All figures from \a root down that are shown and meet \a rect, children before their parent.
QList<Figure *> figuresMeeting(Figure *root, const QRect &rect);

} // namespace Velmora::Figura::Storm
