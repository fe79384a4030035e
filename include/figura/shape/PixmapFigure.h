#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h>

#include <QPixmap>

namespace Velmora::Figura {

/// A pixmap stretched to the bounds.
///
/// Setting the first pixmap fixes the size to that of the pixmap. A later one of another size meets
/// the limits that the first has set: what exceeds them is reported and refused.
class FIGURA_EXPORT PixmapFigure : public Figure
{
    Q_OBJECT

public:
    /// Its size is that of \a pixmap.
    explicit PixmapFigure(const QPixmap &pixmap, QObject *parent = nullptr,
                          const QColor &backgroundColor = Qt::white);
    explicit PixmapFigure(QObject *parent = nullptr); ///< No pixmap on white; no size is set.
    ~PixmapFigure() override;

    QPixmap getPixmap() const; ///< Null when there is none.
    /// Revalidates and repaints. For a second pixmap see above.
    void setPixmap(const QPixmap &pixmap);

protected:
    QSize calculateContentSize() override;
    /// The pixmap, stretched to option.rect.
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    QPixmap m_pixmap;
};

} // namespace Velmora::Figura
