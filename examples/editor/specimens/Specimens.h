#pragma once

#include <QList>
#include <QString>

namespace Velmora::Figura {
class Figure;
}

namespace Editor {

/// Small exhibits of what the library has, one for each class that is seen on the screen.
namespace Specimens {

struct Specimen
{
    const char *name; ///< That of the class.
    void (*build)(Velmora::Figura::Figure *stage);
};

QStringList names();
bool contains(const QString &name);

/// Fills \a stage, an empty figure with an XYLayout; whatever is made is owned by it. An unknown
/// name leaves it empty.
void build(const QString &name, Velmora::Figura::Figure *stage);

// A room for each kind. All stages show about 160 x 84 units.
QList<Specimen> figures();
QList<Specimen> layouts();
QList<Specimen> layers();
QList<Specimen> borders();
QList<Specimen> connections();
QList<Specimen> locators();

} // namespace Specimens

} // namespace Editor
