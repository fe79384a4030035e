#include "listeners.h"

namespace Velmora::Figura::Storm {

FigureListener::FigureListener(World &world)
    : m_world(world)
{
}

void FigureListener::listenTo(Figure *figure, bool toAncestors)
{
    m_subjects.append(Subject{figure, toAncestors});
    if (toAncestors)
        figure->addAncestorListener(this);
    else
        figure->addPropertyChangeListener(this);
}

// Only what was added is removed: the count goes down for a stranger too, as documented.
void FigureListener::stopListening()
{
    m_subjects.removeIf([](const Subject &subject) { return !subject.figure; });
    if (m_subjects.isEmpty())
        return;
    const Subject subject = m_subjects.takeFirst();
    if (subject.toAncestors)
        subject.figure->removeAncestorListener(this);
    else
        subject.figure->removePropertyChangeListener(this);
}

void FigureListener::ancestorAdded(Figure *)
{
    m_world.happens(Moment::Ancestor);
}

void FigureListener::ancestorMoved(Figure *)
{
    m_world.happens(Moment::Ancestor);
}

void FigureListener::ancestorRemoved(Figure *)
{
    m_world.happens(Moment::Ancestor);
}

void FigureListener::propertyChanged(const QString &, const QVariant &, const QVariant &)
{
    m_world.happens(Moment::Parented);
}

} // namespace Velmora::Figura::Storm
