#include <figura/decoration/Decoration.h>

#include "figure/figureguard_p.h"

#include <figura/layout/ILocator.h>

namespace Velmora::Figura {

Decoration::Decoration(Figure *owner, ILocator *locator, QObject *parent)
    : Shape(parent)
    , m_owner(owner)
    , m_locator(locator)
{
}

Decoration::Decoration(QObject *parent)
    : Shape(parent)
{
}

Decoration::~Decoration() = default;

Figure *Decoration::getOwner() const
{
    return m_owner;
}

void Decoration::setOwner(Figure *owner)
{
    m_owner = owner;
}

ILocator *Decoration::getLocator() const
{
    return m_locator.get();
}

void Decoration::setLocator(ILocator *locator)
{
    m_locator = locator;
}

bool Decoration::isManagedExternally() const
{
    return m_managedExternally;
}

void Decoration::setManagedExternally(bool managed)
{
    m_managedExternally = managed;
}

bool Decoration::isShowable() const
{
    return true;
}

QVariant Decoration::getConstraint() const
{
    return QVariant::fromValue(m_locator.object());
}

void Decoration::addNotify()
{
    const FigureGuard alive(this);
    Shape::addNotify();
    if (!alive)
        return;
    if (!m_owner) {
        QMessageLogger().warning("Decoration::addNotify(): no owner");
        return;
    }
    m_owner->addAncestorListener(this);
}

// Registered with the owner of the time of addNotify(), unregistered from the present one:
// setOwner() only stores.
void Decoration::removeNotify()
{
    if (m_owner)
        m_owner->removeAncestorListener(this);
    else
        QMessageLogger().warning(
            "DecorationFigure::addNotify(): no owner"); // this text, on purpose
    Shape::removeNotify();
}

void Decoration::validate()
{
    ILocator *locator = m_locator.get();
    if (locator && !m_managedExternally && !isValid())
        locator->relocate(this);
}

void Decoration::ancestorAdded(Figure * /*ancestor*/) {}

void Decoration::ancestorMoved(Figure * /*ancestor*/)
{
    const FigureGuard alive(this);
    revalidate();
    if (alive)
        repaint();
}

void Decoration::ancestorRemoved(Figure * /*ancestor*/) {}

} // namespace Velmora::Figura
