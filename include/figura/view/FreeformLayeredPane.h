#pragma once

#include <figura/export.h>
#include <figura/view/IFreeformFigure.h>
#include <figura/view/LayeredPane.h>

#include <QPointer>

namespace Velmora::Figura {

class FreeformStackLayout;
class PaintReach;

/// The content of a viewer: freeform layers on one canvas, with an optional grid behind them.
class FIGURA_EXPORT FreeformLayeredPane : public LayeredPane, public IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IFreeformFigure)
    Q_PROPERTY(QRect freeformExtent READ getFreeformExtent NOTIFY extentChanged)

public:
    explicit FreeformLayeredPane(QObject *parent = nullptr); ///< Comes with a FreeformStackLayout.
    ~FreeformLayeredPane() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    /// Solid grey lines at every fifth snap position. option.rect is in absolute coordinates.
    virtual void drawMainGrid(QPainter *painter, const QStyleOptionViewItem &option) const;
    /// Dotted lines at every snap position.
    virtual void drawSubGrid(QPainter *painter, const QStyleOptionViewItem &option) const;

    void addLayerAbove(Layer *layer, const QString &key, Layer *above) override;
    void addLayerBeneath(Layer *layer, const QString &key, Layer *beneath) override;
    Layer *removeLayer(const QString &key) override;
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;

    /// The union of the layers' extents; invalid when there is none, or when the layout manager is
    /// not a FreeformStackLayout.
    QRect getFreeformExtent() override;
    /// Sets the bounds of the pane and of all its visible freeform layers.
    void setFreeformBounds(const QRect &rect) override;

    void setDrawGrid(bool on); ///< Off at first.
    /// The distance of the grid lines in content units; below 2 there is no grid.
    void setSnapSize(int size);

Q_SIGNALS:
    void extentChanged() override; ///< The union of the layers' extents has become another.

protected:
    /// The grid alone: the background colour is not painted.
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    friend class PaintReach; // asks for the grid

    void drawGrid(QPainter *painter, const QRect &rect, int spacing) const;
    void watchExtent(Layer *layer, const QString &key);

    QPointer<FreeformStackLayout> m_stackLayout;
    bool m_drawGrid = false;
    int m_snapSize = 5;
};

} // namespace Velmora::Figura
