// Painting, damage, and the validation that comes before the paint.

#include <figura/figure/Figure.h>

#include "alive_p.h"
#include "layout/childagenda_p.h"
#include "ownclass_p.h"
#include "paintreach_p.h"
#include "revalidation_p.h"
#include "workcounters_p.h"

#include <figura/figure/Border.h>
#include <figura/layout/Layout.h>
#include <figura/view/UpdateManager.h>

#include <QApplication>
#include <QPainter>
#include <QRubberBand>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyleOptionRubberBand>
#include <QStyleOptionViewItem>

#include <optional>

namespace Velmora::Figura {
namespace {

void drawRubberBand(QPainter *painter, const QStyleOption &option, const QRect &rect)
{
    QStyleOptionRubberBand band;
    band.QStyleOption::operator=(option);
    band.shape = QRubberBand::Rectangle;
    band.opaque = false;
    band.rect = rect;
    QApplication::style()->drawControl(QStyle::CE_RubberBand, &band, painter);
}

void drawFocusFrame(QPainter *painter, const QStyleOption &option, const QRect &rect)
{
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(option);
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.rect = rect;
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter);
}

// Whether what draws the figure itself looks at no more of the option than the palette.
bool ignoresOption(Figure &figure)
{
    return restoresPainter(&figure) && !figure.getBorder() &&
           figure.getBackgroundColor() == QColor(Qt::transparent);
}

bool isLeaf(const Figure &figure)
{
    if (!isOwnClass(&figure))
        return false;
    const Layout *layout = figure.getLayoutManager();
    return !layout || ChildTable::paintsNothing(layout);
}

} // namespace

void Figure::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter)
        return;
    QRect rect = getBoundingRect();
    if (!rect.isValid()) {
        QMessageLogger().debug("Figure::render(): invalid figure bounds");
        return;
    }
    const QRect bounds = rect;
    translateToAbsolute(rect);
    if (!PaintReach::meets(*this, rect, option.rect, painter))
        return;

    PaintReach::refresh(*this, bounds);
    // Figures draw themselves by the application's code, which may destroy this one.
    const Alive alive(this);
    std::optional<QStyleOptionViewItem> part; // to copy the option takes as long as to draw a line
    if (ignoresOption(*this)) {
        drawOwn(painter, option);
    } else {
        part.emplace(option).rect = rect;
        drawOwn(painter, *part);
    }
    if (!alive || (!m_clientAreaHighlighted && isLeaf(*this)))
        return;

    const QRect content = calculateContentRect(rect);
    if (!content.isValid())
        return;
    if (!part)
        part.emplace(option);
    part->rect = PaintReach::childDamage(*this, content, option.rect);
    if (part->rect.isValid())
        drawChildren(painter, *part);
    if (alive && m_clientAreaHighlighted)
        drawHighlight(painter, option, content);
}

// Background, shape and border; the children come on top of all three.
void Figure::drawOwn(QPainter *painter, const QStyleOptionViewItem &option)
{
    ++workCounters().painted;
    const Alive alive(this);
    const bool isRestored = !m_border && restoresPainter(this);
    if (!isRestored)
        painter->save();
    drawBackground(painter, option);
    if (alive)
        drawFigure(painter, option);
    if (alive)
        drawBorder(painter, option, getBorder());
    if (!isRestored)
        painter->restore();
}

void Figure::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_backgroundColor != QColor(Qt::transparent))
        painter->fillRect(option.rect, m_backgroundColor);
}

void Figure::drawFigure(QPainter * /*painter*/, const QStyleOptionViewItem & /*option*/) const {}

void Figure::drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                        const Border *border) const
{
    if (border)
        border->render(painter, option);
}

void Figure::drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const
{
    Layout *layout = getLayoutManager();
    if (layout && option.rect.isValid())
        layout->render(painter, option);
}

void Figure::drawHighlight(QPainter *painter, const QStyleOptionViewItem &option,
                           const QRect &rect) const
{
    if (m_highlightStyle == IStyleConstants::HIGHLIGHT_FOCUSRECT)
        drawFocusFrame(painter, option, rect);
    else
        drawRubberBand(painter, option, rect);
}

void Figure::erase()
{
    QRect rect = getBoundingRect();
    Figure *parent = getParentFigure();
    if (!rect.isValid() || !parent || !isVisible())
        return;
    parent->translateToParent(rect);
    const PaintReach::Damage damage(*this);
    parent->repaint(rect);
}

void Figure::repaint()
{
    repaint(getBoundingRect());
}

void Figure::repaint(int x, int y, int w, int h)
{
    repaint(QRect(x, y, w, h));
}

void Figure::repaint(const QRect &rect)
{
    if (!rect.isValid() || !isVisible())
        return;
    const int reach = PaintReach::refresh(*this);
    UpdateManager *manager = getUpdateManager();
    if (!manager)
        return;
    const PaintReach::Damage damage(*this);
    PaintReach::settle(*this, rect, reach);
    manager->addDirtyRegion(this, rect);
}

void Figure::invalidate()
{
    setFlag(FLAG_VALID, false);
    if (Layout *layout = getLayoutManager())
        layout->invalidate();
}

void Figure::revalidate()
{
    const Alive alive(this);
    invalidate(); // layout listeners hear of it
    if (!alive)
        return;
    const Revalidation way(this);
    Figure *parent = getParentFigure();
    if (parent && !isValidateRoot())
        parent->revalidate();
    else if (UpdateManager *manager = getUpdateManager())
        manager->addInvalidFigure(this);
}

void Figure::validate()
{
    if (isValid())
        return;

    const Alive alive(this);
    m_isValidating = true;
    layout();
    if (alive)
        validateChildren();
    if (!alive)
        return;
    m_isValidating = false;
    setValid(true);
}

// To validate what is valid does nothing, unless a class of the application says otherwise.
void Figure::validateChildren()
{
    const auto validateChild = [](Figure *child) { child->validate(); };
    Layout *layout = getLayoutManager();
    if (isOwnClass(this) && isOwnClass(layout))
        walkPending(this, layout, Pending::Validation, validateChild);
    else
        walkChildren(this, validateChild);
}

void Figure::layout()
{
    if (Layout *layout = getLayoutManager())
        layout->layout(this);
}

bool Figure::isValidateRoot() const
{
    return false;
}

bool Figure::isValid() const
{
    return getFlag(FLAG_VALID);
}

void Figure::setValid(bool valid)
{
    setFlag(FLAG_VALID, valid);
}

} // namespace Velmora::Figura
