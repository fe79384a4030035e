#pragma once

#include "diagram_fixtures.h"

#include <QScreen>
#include <QScrollBar>
#include <QTest>

namespace Velmora::Figura::Test {

/// A shown view of a diagram, without a frame.
class ViewScene
{
public:
    explicit ViewScene(const QSize &size = QSize(400, 300))
    {
        view.setFrameShape(QFrame::NoFrame);
        view.getCanvas()->setProperty("backgroundColor", QColor(250, 250, 240));
        view.resize(size);
        view.setDiagram(&diagram);
    }

    Diagram diagram;
    DiagramView view;

    bool show()
    {
        view.show();
        const bool isExposed = QTest::qWaitForWindowExposed(&view);
        settle();
        return isExposed;
    }

    /// Lets queued work be done and painted.
    void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QEvent update(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(&view, &update);
        }
    }

    /// What stands on the screen: only what was asked for is painted.
    QImage incremental()
    {
        settle();
        return view.screen()
            ->grabWindow(view.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

    QImage full() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QScrollBar *horizontalBar() const { return view.horizontalScrollBar(); }
    QScrollBar *verticalBar() const { return view.verticalScrollBar(); }

    /// The bounds of the paper, in content coordinates.
    QRect canvas() const { return diagram.getPane()->getBounds(); }
};

} // namespace Velmora::Figura::Test
