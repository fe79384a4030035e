#include "box_p.h"

#include "figure/childwalk_p.h"
#include "figure/figureguard_p.h"

#include <QStyle>

namespace Velmora::Figura {
namespace {

QSize turned(const QSize &size, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? size : size.transposed();
}

QRect turned(const QRect &rect, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? rect
                                         : QRect(rect.y(), rect.x(), rect.height(), rect.width());
}

int gap(const Layout *box)
{
    return qMax(box->getSpacing(), 0);
}

// A negative length is kept as it is.
template<typename Length>
Length raised(Length length, Length minimum)
{
    return length >= 0 ? qMax(length, minimum) : length;
}

QSize wantedSize(Layout *box, Figure *child)
{
    const QVariant constraint = box->getConstraint(child);
    return constraint.typeId() == QMetaType::QSize ? constraint.toSize()
                                                   : child->getPreferredSize();
}

// The gap depends on the length so far: a leading child without a width gets none after it.
template<typename SizeOf>
QSize totalSize(Layout *box, Qt::Orientation orientation, SizeOf sizeOf)
{
    QSize total(0, 0);
    if (!box->getFigure())
        return total;

    const int between = gap(box); // a child that is measured may destroy the box
    walkChildren(box, [&](Figure *child) {
        if (!child->isVisible())
            return;
        const QSize size = turned(sizeOf(child), orientation);
        if (total.width() > 0)
            total.rwidth() += between;
        total.rwidth() += size.width();
        total.setHeight(qMax(total.height(), size.height()));
    });
    return turned(total, orientation);
}

int shareOf(int extra, unsigned int stretch, unsigned int total)
{
    if (extra < 1 || total == 0)
        return 0;
    return static_cast<int>(static_cast<double>(static_cast<qint64>(stretch) * extra) / total);
}

// A child that expands in one direction only fills its cell in both, on purpose.
void place(Figure *child, const QSize &size, const QRect &cell, Qt::Alignment alignment)
{
    if (child->expandingDirections() & (Qt::Horizontal | Qt::Vertical))
        child->setBounds(cell);
    else
        child->setBounds(QStyle::alignedRect(Qt::LeftToRight, alignment, size, cell));
}

} // namespace

QVariant boxConstraint(Figure *child, const QVariant &constraint)
{
    if (!child)
        return constraint;
    if (constraint.typeId() == QMetaType::QSize) {
        const QSize size = constraint.toSize();
        const QSize minimum = child->getMinimumSize();
        return QSize(raised(size.width(), minimum.width()),
                     raised(size.height(), minimum.height()));
    }
    if (constraint.typeId() == QMetaType::QSizeF) {
        const QSizeF size = constraint.toSizeF();
        const QSizeF minimum = child->getMinimumSize();
        return QSizeF(raised(size.width(), minimum.width()),
                      raised(size.height(), minimum.height()));
    }
    return constraint;
}

void applyBoxConstraint(Figure *child, const QVariant &constraint)
{
    if (constraint.typeId() != QMetaType::QSize)
        return;
    const QRect bounds = child->getBounds();
    if (bounds.size() == constraint.toSize())
        return;
    const FigureGuard alive(child); // a slot may destroy it
    child->setBounds(QRect(bounds.topLeft(), constraint.toSize()));
    if (alive)
        child->validate();
}

QSize boxMinimumSize(Layout *box, Qt::Orientation orientation)
{
    return totalSize(box, orientation, [](Figure *child) { return child->getMinimumSize(); });
}

QSize boxPreferredSize(Layout *box, Qt::Orientation orientation)
{
    return totalSize(box, orientation, [box](Figure *child) { return wantedSize(box, child); });
}

bool layOutBox(Layout *box, Qt::Orientation orientation, const QRect &area,
               const BoxStretch &stretch)
{
    if (!area.isValid())
        return false;

    // Whoever is measured may destroy itself, or the box.
    const QPointer<Layout> alive(box);
    const QSize room = turned(area.size(), orientation);
    const int extra = room.width() - turned(box->getPreferredSize(), orientation).width();
    if (!alive)
        return false;
    int position = 0; // cells begin at 0, not at the corner of the area
    walkChildren(box, [&](Figure *child) {
        const std::optional<unsigned int> factor = stretch.ofChild(child);
        if (!child->isVisible() || !factor)
            return;
        const FigureGuard guarded(child);
        const QSize size = wantedSize(box, child);
        if (!alive || !guarded)
            return;
        const int share = shareOf(extra, *factor, stretch.total);
        const int length = turned(size, orientation).width() + share;
        const QRect cell(position, 0, length, room.height());
        position += length + gap(box);
        place(child, size, turned(cell, orientation), box->getAligment());
    });
    return true;
}

} // namespace Velmora::Figura
