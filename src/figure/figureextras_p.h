#pragma once

#include "ancestorhub_p.h"
#include "listenerconnections_p.h"
#include "ownclass_p.h"
#include "privateflags_p.h"

#include <figura/figure/AncestorHelper.h>
#include <figura/figure/Border.h>
#include <figura/figure/Figure.h>
#include <figura/geometry/IStyleConstants.h>
#include <figura/layout/Layout.h>
#include <figura/view/UpdateManager.h>

#include <QColor>

#include <memory>

namespace Velmora::Figura {

/// What a shape is painted with while it is disabled; invalid colours come from the palette.
struct DisabledColors
{
    QColor pen;
    QColor fill;
};

/// What only few figures have, and a hundred thousand others need no room for.
struct FigureExtras
{
    static constexpr QSize leastSize{-1, -1};
    static constexpr QSize greatestSize{0x7FFFFFF, 0x7FFFFFF};

    QPointer<Layout> layout;
    QPointer<Border> border;
    QPointer<Figure> tooltip;
    QPointer<UpdateManager> updateManager; // set on the root only
    std::unique_ptr<AncestorHelper> ancestorHelper;
    QPointer<AncestorHub> ancestorHub; // while somebody watches below the figure
    std::unique_ptr<ListenerConnections> ancestorConnections;
    std::unique_ptr<ListenerConnections> propertyConnections;
    std::unique_ptr<DisabledColors> disabledColors; // of a shape, made when one is set or used
    QSize minimumSize = leastSize;
    QSize maximumSize = greatestSize;
    int margin = 0;
    Qt::Orientations expandingDirections;
    int ancestorListenerCount = 0;
    int highlightStyle = IStyleConstants::HIGHLIGHT_RUBBERBAND;
    bool isClientAreaHighlighted = false;
};

// A class of the application may have another layout than it says here.
inline bool Figure::isLayoutDue() const
{
    return (m_flags & FLAG_LAYOUT_ON_DEMAND) != 0 && isOwnClass(this);
}

inline Layout *Figure::presentLayout() const
{
    return isLayoutDue() ? nullptr : getLayoutManager();
}

} // namespace Velmora::Figura
