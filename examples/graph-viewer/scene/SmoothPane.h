#pragma once

#include <figura/view/FreeformLayeredPane.h>

namespace GraphViewer {

/// Paints its layers with smooth edges; the library leaves that to the application.
class SmoothPane : public Velmora::Figura::FreeformLayeredPane
{
    Q_OBJECT

public:
    using FreeformLayeredPane::FreeformLayeredPane;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
};

} // namespace GraphViewer
