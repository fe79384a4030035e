#pragma once

#include <figura/layout/FreeformLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QScrollBar>
#include <QTest>

#include <optional>

namespace Velmora::Figura::Test {

/// A content whose extent can be told; it remembers what bounds it was given.
class ExtentPane : public FreeformLayeredPane
{
public:
    using FreeformLayeredPane::FreeformLayeredPane;

    std::optional<QRect> extent; ///< Without a value the layers decide.
    QList<QRect> freeformBounds; ///< What setFreeformBounds() was called with.

    QRect getFreeformExtent() override
    {
        return extent ? *extent : FreeformLayeredPane::getFreeformExtent();
    }

    void setFreeformBounds(const QRect &rect) override
    {
        freeformBounds.append(rect);
        FreeformLayeredPane::setFreeformBounds(rect);
    }
};

/// Paints what is still to be painted, so that later paint events are those of later requests.
inline void settle(QWidget *window)
{
    QCoreApplication::processEvents();
    window->repaint();
}

/// A viewer that shows a pane with one layer, "figures". It has neither frame nor visible scroll
/// bars, so that the viewport is as large as the viewer, whatever the content is.
class Scene
{
public:
    explicit Scene(const QSize &size = QSize(400, 300))
    {
        viewer.setFrameShape(QFrame::NoFrame);
        viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewer.resize(size);
        pane.addLayer(&layer, QStringLiteral("figures"));
        viewer.setContent(&pane);
    }

    ExtentPane pane;
    FreeformLayer layer;
    FreeformViewer viewer;

    bool show()
    {
        viewer.show();
        const bool isExposed = QTest::qWaitForWindowExposed(&viewer);
        settle(&viewer);
        return isExposed;
    }

    FreeformWidget *widget() const { return qobject_cast<FreeformWidget *>(viewer.widget()); }
    QScrollBar *horizontalBar() const { return viewer.horizontalScrollBar(); }
    QScrollBar *verticalBar() const { return viewer.verticalScrollBar(); }
    QPoint scrollOffset() const { return {horizontalBar()->value(), verticalBar()->value()}; }

    void scrollTo(const QPoint &offset)
    {
        horizontalBar()->setValue(offset.x());
        verticalBar()->setValue(offset.y());
    }

    /// Owned by the layer.
    Figure *addFigure(const QRect &bounds, const QColor &color)
    {
        auto *figure = new Figure(&layer, color);
        layer.add(figure, bounds);
        return figure;
    }
};

/// Counts the events of one type that reach an object.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }

    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_type;
};

} // namespace Velmora::Figura::Test
