#pragma once

#include <figura/export.h>
#include <figura/view/IFreeformFigure.h>
#include <figura/view/Layer.h>

namespace Velmora::Figura {

/// A layer whose children are placed freely by rectangles, in a FreeformLayout of its own.
class FIGURA_EXPORT FreeformLayer : public Layer, public IFreeformFigure
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IFreeformFigure)
    Q_PROPERTY(QRect freeformExtent READ getFreeformExtent NOTIFY extentChanged)
    Q_PROPERTY(bool contentMonitored READ isContentMonitored WRITE setContentMonitored)
    Q_PROPERTY(int extentPadding READ getExtentPadding WRITE setExtentPadding)

public:
    /// With \a contentMonitored the extent follows the moves of the children.
    explicit FreeformLayer(QObject *parent = nullptr, bool contentMonitored = true);
    ~FreeformLayer() override;

    /// The layout's extent, grown by the padding. Invalid when there is none, or when the layout
    /// manager is not a FreeformLayout.
    QRect getFreeformExtent() override;
    void setFreeformBounds(const QRect &rect) override;

    /// Space kept around the children, in content units; a negative value counts as 0. Only stores.
    void setExtentPadding(int padding);
    int getExtentPadding() const; ///< 0 at first.

    void setContentMonitored(bool monitored); ///< See FreeformLayout::setContentMonitored().
    bool isContentMonitored() const; ///< False when the layout manager is not a FreeformLayout.

Q_SIGNALS:
    void extentChanged() override; ///< The layout's extent has become another.

private:
    int m_extentPadding = 0;
};

} // namespace Velmora::Figura
