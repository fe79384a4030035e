#include <figura/figure/Figure.h>

#include "childwalk_p.h"
#include "figureextras_p.h"
#include "figureguard_p.h"
#include "layout/childtable_p.h"

#include <figura/layout/Layout.h>

namespace Velmora::Figura {

const QString Figure::PROPERTY_PARENT = QStringLiteral("parent");

Figure::Figure(QObject *parent, const QColor &backgroundColor)
    : QObject(parent)
    , m_backgroundColor(backgroundColor)
{
}

Figure::~Figure()
{
    // First of all: the helper lets go of this figure through operations that still work here.
    if (m_extras)
        m_extras->ancestorHelper.reset();
    // Nothing else asks for the pixels of a figure that is deleted while it is shown.
    Figure::erase();
    ChildTable::figureDestroyed(this);
    FigureGuard::figureDestroyed(this);
}

FigureExtras &Figure::extras()
{
    if (!m_extras)
        m_extras = std::make_unique<FigureExtras>();
    return *m_extras;
}

Border *Figure::getBorder() const
{
    return m_extras ? m_extras->border.data() : nullptr;
}

void Figure::setBorder(Border *border)
{
    if (m_extras || border)
        extras().border = border;
}

int Figure::getMargin() const
{
    return m_extras ? m_extras->margin : 0;
}

void Figure::setMargin(int margin)
{
    if (m_extras || margin > 0)
        extras().margin = qMax(margin, 0);
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
    return m_extras ? m_extras->tooltip.data() : nullptr;
}

void Figure::setTooltip(Figure *tooltip)
{
    if (m_extras || tooltip)
        extras().tooltip = tooltip;
}

Qt::Orientations Figure::expandingDirections()
{
    Layout *layout = getLayoutManager();
    if (layout)
        return layout->expandingDirections();
    return m_extras ? m_extras->expandingDirections : Qt::Orientations();
}

void Figure::setExpandingDirections(Qt::Orientations directions)
{
    extras().expandingDirections = directions & (Qt::Horizontal | Qt::Vertical);
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
    return m_extras ? m_extras->highlightStyle : IStyleConstants::HIGHLIGHT_RUBBERBAND;
}

void Figure::setHighlightStyle(int style)
{
    extras().highlightStyle = style;
    if (isClientAreaHighlighted())
        repaint();
}

void Figure::highlightClientArea(bool on)
{
    if (m_extras || on)
        extras().isClientAreaHighlighted = on;
    repaint();
}

bool Figure::isClientAreaHighlighted() const
{
    return m_extras && m_extras->isClientAreaHighlighted;
}

} // namespace Velmora::Figura
