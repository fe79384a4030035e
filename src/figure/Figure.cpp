#include <figura/figure/Figure.h>

#include "alive_p.h"
#include "ancestorhub_p.h"
#include "childwalk_p.h"
#include "layout/childtable_p.h"
#include "listenerconnections_p.h"

#include <figura/figure/AncestorHelper.h>
#include <figura/figure/Border.h>
#include <figura/layout/Layout.h>
#include <figura/view/UpdateManager.h>

namespace Velmora::Figura {

const QString Figure::PROPERTY_PARENT = QStringLiteral("parent");

Figure::Figure(QObject *parent, const QColor &backgroundColor)
    : QObject(parent)
    , m_backgroundColor(backgroundColor)
{
}

Figure::~Figure()
{
    Alive::figureDestroyed(this);
    // First of all: the helper lets go of this figure through operations that still work here.
    delete m_ancestorHelper;
    // Nothing else asks for the pixels of a figure that is deleted while it is shown.
    Figure::erase();
    ChildTable::figureDestroyed(this);
}

Border *Figure::getBorder() const
{
    return m_border;
}

void Figure::setBorder(Border *border)
{
    m_border = border;
}

int Figure::getMargin() const
{
    return m_margin;
}

void Figure::setMargin(int margin)
{
    m_margin = qMax(margin, 0);
}

bool Figure::isEnabled() const
{
    return getFlag(FLAG_ENABLED);
}

void Figure::setEnabled(bool enabled)
{
    if (isEnabled() != enabled)
        setFlag(FLAG_ENABLED, enabled);
}

void Figure::setChildrenEnabled(bool enabled)
{
    walkChildren(this, [enabled](Figure *child) { child->setEnabled(enabled); });
}

QColor Figure::getBackgroundColor()
{
    return m_backgroundColor;
}

void Figure::setBackgroundColor(const QColor &color)
{
    m_backgroundColor = color;
    repaint();
}

Figure *Figure::getTooltip() const
{
    return m_tooltip;
}

void Figure::setTooltip(Figure *tooltip)
{
    m_tooltip = tooltip;
}

Qt::Orientations Figure::expandingDirections()
{
    Layout *layout = getLayoutManager();
    return layout ? layout->expandingDirections() : m_expandingDirections;
}

void Figure::setExpandingDirections(Qt::Orientations directions)
{
    m_expandingDirections = directions & (Qt::Horizontal | Qt::Vertical);
}

bool Figure::getFlag(int mask) const
{
    return (m_flags & static_cast<quint32>(mask)) != 0;
}

void Figure::setFlag(int mask, bool on)
{
    const quint32 before = m_flags;
    if (on)
        m_flags |= static_cast<quint32>(mask);
    else
        m_flags &= ~static_cast<quint32>(mask);
    if (m_records && m_flags != before)
        noteFlags(m_flags ^ before);
}

void Figure::noteFlags(quint32 changed) const
{
    if (changed & FLAG_VALID & ~m_flags)
        ChildTable::note(this, Pending::Validation);
    if (changed & FLAG_VISIBLE) {
        ChildTable::note(this, Pending::Placement);
        ChildTable::note(this, Pending::Extent);
    }
}

void Figure::noteArea() const
{
    ChildTable::note(this, Pending::Placement);
    ChildTable::note(this, Pending::Area);
}

int Figure::getHighlightStyle() const
{
    return m_highlightStyle;
}

void Figure::setHighlightStyle(int style)
{
    m_highlightStyle = style;
    if (m_clientAreaHighlighted)
        repaint();
}

void Figure::highlightClientArea(bool on)
{
    m_clientAreaHighlighted = on;
    repaint();
}

bool Figure::isClientAreaHighlighted() const
{
    return m_clientAreaHighlighted;
}

} // namespace Velmora::Figura
