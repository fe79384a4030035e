#pragma once

#include <QRect>
#include <QRegion>

class QWidget;

namespace Velmora::Figura {

/// Asks Qt for the repaints of one widget, and for no more of them than needed.
///
/// Qt keeps a region for each widget, to which every further rectangle is added more slowly, also
/// when it lies where nobody looks. So what cannot be seen is dropped, which costs nothing: it is
/// painted when it is scrolled in. After a few rectangles one takes the place of all.
class WidgetDamage
{
public:
    explicit WidgetDamage(QWidget *widget);

    bool isWanted() const;         ///< False while nothing of the widget is shown.
    double devicePixelRatio();     ///< As the last paint had it: with another one, all is painted.
    void add(const QRect &pixels); ///< In the widget's coordinates.

    /// The widget is going to paint \a region, after the last changes to what it shows.
    void beginPaint(const QRegion &region);
    void beginContent(); ///< What changes from here on may have been painted already.
    void endPaint();     ///< Asks for what was reported meanwhile and has not been painted.

private:
    static constexpr int fewRects = 32;

    QRect visiblePart() const;
    void ask(const QRect &pixels);
    bool willBePainted(const QRect &pixels) const;

    QWidget *const m_widget;
    double m_ratio = 0; // to ask for it takes as long as all the rest
    QRegion m_toPaint;
    int m_asked = 0; // since the last paint
    QRect m_bounds;  // of what was asked for since
    QRect m_whole;   // what was asked for instead of many rectangles
    int m_paintsUnderWay = 0;
    QRect m_reportedWhilePainting;
};

} // namespace Velmora::Figura
