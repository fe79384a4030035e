#pragma once

#include "layout_fixtures.h"

#include <QList>
#include <QRandomGenerator>
#include <QStyle>

#include <memory>
#include <vector>

/// A second, plain account of what a box layout does, to compare the real one with. It knows rows
/// only; columns are rows with both axes exchanged.
namespace Velmora::Figura::Test {

struct BoxChild
{
    QSize preferred{10, 10};
    QSize minimum{1, 1};
    QVariant constraint{};
    unsigned int vStretch = 0;
    unsigned int hStretch = 0;
    bool visible = true;
    Qt::Orientations expanding{};
};

struct Box
{
    QSize size; ///< Of the client area.
    int spacing = 0;
    Qt::Alignment alignment = Qt::AlignCenter;
    QList<BoxChild> children;
};

struct BoxResult
{
    QSize minimum;
    QSize preferred;
    QList<QRect> places; ///< Invalid for hidden children.
};

namespace RowModel {

inline int raised(int length, int minimum)
{
    return length < 0 || length > minimum ? length : minimum;
}

inline QSize wantedSize(const BoxChild &child)
{
    if (child.constraint.typeId() != QMetaType::QSize)
        return child.preferred;
    const QSize size = child.constraint.toSize();
    return QSize(raised(size.width(), child.minimum.width()),
                 raised(size.height(), child.minimum.height()));
}

inline QSize minimumSize(const BoxChild &child)
{
    return child.minimum;
}

inline QSize totalSize(const Box &box, QSize (*sizeOf)(const BoxChild &))
{
    int width = 0;
    int height = 0;
    for (const BoxChild &child : box.children) {
        if (!child.visible)
            continue;
        const int gap = width > 0 && box.spacing > 0 ? box.spacing : 0;
        width += gap + sizeOf(child).width();
        height = std::max(height, sizeOf(child).height());
    }
    return QSize(width, height);
}

inline qint64 totalStretch(const Box &box)
{
    qint64 total = 0;
    for (const BoxChild &child : box.children)
        total += child.visible ? qint64(child.hStretch) : 0;
    return total;
}

inline QList<QRect> places(const Box &box)
{
    const qint64 extra = box.size.width() - totalSize(box, wantedSize).width();
    const qint64 total = totalStretch(box);
    QList<QRect> result;
    int x = 0;
    for (const BoxChild &child : box.children) {
        if (!child.visible) {
            result.append(QRect());
            continue;
        }
        const QSize size = wantedSize(child);
        int width = size.width();
        if (extra > 0 && total > 0)
            width += int(qint64(child.hStretch) * extra / total);
        const QRect cell(x, 0, width, box.size.height());
        result.append(child.expanding
                          ? cell
                          : QStyle::alignedRect(Qt::LeftToRight, box.alignment, size, cell));
        x += width + (box.spacing > 0 ? box.spacing : 0);
    }
    return result;
}

} // namespace RowModel

inline BoxResult modelRow(const Box &box)
{
    return {RowModel::totalSize(box, RowModel::minimumSize),
            RowModel::totalSize(box, RowModel::wantedSize), RowModel::places(box)};
}

inline Qt::Alignment transposed(Qt::Alignment alignment)
{
    const QList<QPair<Qt::AlignmentFlag, Qt::AlignmentFlag>> pairs{
        {Qt::AlignLeft, Qt::AlignTop},
        {Qt::AlignHCenter, Qt::AlignVCenter},
        {Qt::AlignRight, Qt::AlignBottom}};
    Qt::Alignment result;
    for (const auto &[horizontal, vertical] : pairs) {
        result.setFlag(vertical, alignment.testFlag(horizontal));
        result.setFlag(horizontal, alignment.testFlag(vertical));
    }
    return result;
}

inline QRect transposed(const QRect &rect)
{
    return QRect(rect.y(), rect.x(), rect.height(), rect.width());
}

inline BoxChild transposed(BoxChild child)
{
    child.preferred.transpose();
    child.minimum.transpose();
    if (child.constraint.typeId() == QMetaType::QSize)
        child.constraint = child.constraint.toSize().transposed();
    else if (child.constraint.typeId() == QMetaType::QSizeF)
        child.constraint = child.constraint.toSizeF().transposed();
    std::swap(child.vStretch, child.hStretch);
    return child;
}

inline Box transposed(Box box)
{
    box.size.transpose();
    box.alignment = transposed(box.alignment);
    for (BoxChild &child : box.children)
        child = transposed(child);
    return box;
}

inline BoxResult transposed(BoxResult result)
{
    result.minimum.transpose();
    result.preferred.transpose();
    for (QRect &place : result.places)
        place = transposed(place);
    return result;
}

inline BoxResult modelColumn(const Box &box)
{
    return transposed(modelRow(transposed(box)));
}

/// What the layout manager under test makes of the box, through the whole cycle of validation.
template<class Base>
BoxResult layOut(const Box &box)
{
    Scene<Base> scene(QRect(QPoint(70, 90), box.size + QSize(6, 6)));
    scene.figure.setMargin(3);
    scene.layout.setSpacing(box.spacing);
    scene.layout.setAlignment(box.alignment);

    std::vector<std::unique_ptr<SizedFigure>> figures;
    for (const BoxChild &child : box.children) {
        figures.push_back(std::make_unique<SizedFigure>(child.preferred, child.minimum));
        SizedFigure *figure = figures.back().get();
        figure->setExpandingDirections(child.expanding);
        figure->setVisible(child.visible);
        scene.layout.add(figure, child.vStretch, child.hStretch, -1);
        scene.layout.setConstraint(figure, child.constraint);
    }
    const QSize minimum = scene.freshMinimum();
    const QSize preferred = scene.freshPreferred();
    scene.figure.invalidate();
    scene.figure.validate();

    BoxResult result{minimum, preferred, {}};
    for (const auto &figure : figures)
        result.places.append(figure->isVisible() ? figure->getBounds() : QRect());
    return result;
}

inline Box randomBox(QRandomGenerator *random)
{
    static const QList<Qt::Alignment> alignments{Qt::AlignCenter,
                                                 Qt::AlignLeft | Qt::AlignTop,
                                                 Qt::AlignLeft | Qt::AlignVCenter,
                                                 Qt::AlignRight | Qt::AlignBottom,
                                                 Qt::AlignHCenter | Qt::AlignBottom,
                                                 Qt::AlignRight | Qt::AlignTop};
    const auto below = [random](int limit) { return int(random->bounded(limit)); };

    Box box;
    box.size = QSize(1 + below(400), 1 + below(400));
    box.spacing = below(14) - 4;
    box.alignment = alignments.at(below(int(alignments.count())));
    for (int count = below(9); count > 0; --count) {
        BoxChild child;
        child.minimum = QSize(1 + below(20), 1 + below(20));
        child.preferred = QSize(1 + below(60), 1 + below(60));
        child.visible = below(5) != 0;
        child.expanding = Qt::Orientations(below(3) == 0 ? 1 + below(3) : 0);
        child.vStretch = below(2) == 0 ? 0u : unsigned(below(6));
        child.hStretch = below(2) == 0 ? 0u : unsigned(below(6));
        if (below(3) == 0)
            child.constraint = QSize(1 + below(60), 1 + below(60));
        else if (below(6) == 0)
            child.constraint = QSizeF(1 + below(60), 1 + below(60));
        box.children.append(child);
    }
    return box;
}

} // namespace Velmora::Figura::Test
