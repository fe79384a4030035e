#pragma once

#include <QRect>

class QPainter;

namespace Velmora::Figura {

class Figure;
class FreeformLayeredPane;
class Layout;

/// How far figures paint beyond their bounding rectangles, in figure units on each side.
///
/// The one place that knows: damage is grown by the reach and culling allows for it, so that both
/// mean the same pixels, while bounds, option rectangles and what is reported to viewers stay as
/// they are. A figure keeps an upper bound for what it may have left on the screen; asking for all
/// of it brings that back to what it paints now.
class PaintReach
{
public:
    /// While it lives, what is reported as damage may have been painted beyond its edges, as far as
    /// \a figure reaches.
    class Damage
    {
    public:
        explicit Damage(const Figure &figure);
        ~Damage();
        Q_DISABLE_COPY_MOVE(Damage)

        static int reach(); ///< Of the damage that is being reported.

    private:
        const int m_outer;
    };

    /// Takes notice of what \a figure paints now, also for the figures that it sticks out of, and
    /// returns its present reach alone.
    static int refresh(Figure &figure);
    static int refresh(Figure &figure, const QRect &boundingRect);

    /// To be called when \a damage is reported: if that is all of the figure, only \a reach is
    /// left.
    static void settle(Figure &figure, const QRect &damage, int reach);

    /// The children may have followed a move of \a figure.
    static void shiftChildren(const Figure &figure, const QPoint &shift);
    /// Forgets where the children of \a layout were.
    static void collect(Layout &layout);

    /// Whether a figure or its subtree reaches into the damage; both in absolute coordinates.
    static bool meets(const Figure &figure, const QRect &boundingRect, const QRect &damage,
                      const QPainter *painter);
    /// All that meets() may say yes for, whatever the painter is.
    static QRect paintedArea(const Figure &figure, const QRect &boundingRect);
    /// The damage to paint the children for, inside \a content; empty if there is none.
    static QRect childDamage(Figure &figure, const QRect &content, const QRect &damage);

    /// What else is to be painted around damage, in widget pixels: half of a one-unit pen, and the
    /// pixel that Qt rounds or smooths. Nothing where units are device pixels.
    static int pixelsAround(double scale, double devicePixelRatio);

private:
    static void raise(Figure &figure, int reach);
    static int measure(Figure &figure, const QRect &boundingRect);
    static int measureLook(Figure &figure, const QRect &boundingRect);
    static int measureGrid(const FreeformLayeredPane &pane, const QRect &absoluteRect);
    static int measureChildren(Figure &figure, const QRect &boundingRect);
    static void noteInParents(Figure &figure, const QRect &boundingRect);
};

} // namespace Velmora::Figura
