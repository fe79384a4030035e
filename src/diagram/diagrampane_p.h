#pragma once

#include "sheet_p.h"

#include <figura/view/FreeformLayeredPane.h>

namespace Velmora::Figura {

class Diagram;

/// The pane of a diagram; without one it stands for the content of a view that shows none.
///
/// Counts as attached from the beginning, so that shapes are built and connections follow whether a
/// view shows it or not.
class DiagramPane : public Sheet<FreeformLayeredPane>
{
public:
    DiagramPane(Diagram *diagram, QObject *parent);

    /// What counts as the extent while there is nothing: without any, a view does not zoom.
    void setStandIn(const QRect &extent);

    void addNotify() override; ///< Also by each view that shows it.
    void addLayerAbove(Layer *layer, const QString &key, Layer *above) override;
    void addLayerBeneath(Layer *layer, const QString &key, Layer *beneath) override;
    QRect getFreeformExtent() override; ///< What is painted, feedback excepted.
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

protected:
    void drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void unroll(Layer *layer);
    bool isOnDarkPaper() const;

    Diagram *const m_diagram;
    QRect m_standIn;
};

} // namespace Velmora::Figura
