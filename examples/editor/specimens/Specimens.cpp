#include "specimens/Specimens.h"

namespace Editor::Specimens {
namespace {

const QList<Specimen> &all()
{
    static const QList<Specimen> specimens =
        figures() + layouts() + layers() + borders() + connections() + locators();
    return specimens;
}

const Specimen *find(const QString &name)
{
    for (const Specimen &specimen : all()) {
        if (name == QLatin1String(specimen.name))
            return &specimen;
    }
    return nullptr;
}

} // namespace

QStringList names()
{
    QStringList result;
    for (const Specimen &specimen : all())
        result << QLatin1String(specimen.name);
    return result;
}

bool contains(const QString &name)
{
    return find(name) != nullptr;
}

void build(const QString &name, Velmora::Figura::Figure *stage)
{
    if (const Specimen *specimen = find(name))
        specimen->build(stage);
}

} // namespace Editor::Specimens
