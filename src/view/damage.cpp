#include "damage_p.h"

#include <QWidget>

#include <algorithm>
#include <utility>

namespace Velmora::Figura {

WidgetDamage::WidgetDamage(QWidget *widget)
    : m_widget(widget)
{
}

// What the parent shows of the widget, which the parent moves about to scroll it.
QRect WidgetDamage::visiblePart() const
{
    const QWidget *parent = m_widget->isWindow() ? nullptr : m_widget->parentWidget();
    return parent ? m_widget->rect() & parent->rect().translated(-m_widget->pos())
                  : m_widget->rect();
}

bool WidgetDamage::isWanted() const
{
    return m_widget->isVisible();
}

double WidgetDamage::devicePixelRatio()
{
    if (m_ratio == 0)
        m_ratio = m_widget->devicePixelRatioF();
    return m_ratio;
}

void WidgetDamage::add(const QRect &pixels)
{
    const QRect visible = pixels & visiblePart();
    if (visible.isEmpty())
        return;
    if (m_paintsUnderWay == 0)
        ask(visible);
    else if (!willBePainted(visible))
        m_reportedWhilePainting |= visible;
}

void WidgetDamage::ask(const QRect &pixels)
{
    m_bounds |= pixels;
    if (m_asked < fewRects) {
        ++m_asked;
        m_widget->update(pixels);
    } else if (!m_whole.contains(pixels)) {
        m_whole = m_bounds;
        m_widget->update(m_whole);
    }
}

bool WidgetDamage::willBePainted(const QRect &pixels) const
{
    return std::any_of(m_toPaint.begin(), m_toPaint.end(),
                       [&pixels](const QRect &rect) { return rect.contains(pixels); });
}

void WidgetDamage::beginPaint(const QRegion &region)
{
    ++m_paintsUnderWay;
    m_ratio = 0;
    m_toPaint = region;
    m_asked = 0;
    m_bounds = QRect();
    m_whole = QRect();
}

void WidgetDamage::beginContent()
{
    m_toPaint = QRegion();
}

// Within a paint event Qt makes a posted event of every request.
void WidgetDamage::endPaint()
{
    m_toPaint = QRegion();
    if (--m_paintsUnderWay > 0)
        return;
    const QRect reported = std::exchange(m_reportedWhilePainting, QRect());
    if (!reported.isEmpty())
        ask(reported);
}

} // namespace Velmora::Figura
