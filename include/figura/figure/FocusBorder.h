#pragma once

#include <figura/export.h>
#include <figura/figure/SimpleBorder.h>

namespace Velmora::Figura {

/// The focus rectangle of the application's style; colour and pen settings do not matter to it.
class FIGURA_EXPORT FocusBorder : public SimpleBorder
{
    Q_OBJECT

public:
    explicit FocusBorder(QObject *parent = nullptr); ///< Takes one unit on each side.
    ~FocusBorder() override;

    void render(QPainter *painter, const QStyleOptionViewItem &option) const override;
};

} // namespace Velmora::Figura
