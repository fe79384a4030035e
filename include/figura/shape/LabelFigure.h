#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h>

#include <QPixmap>

namespace Velmora::Figura {

class PixmapFigure;
class TextFigure;

/// A pixmap and a text, side by side or, with Qt::Vertical, one above the other; the pixmap first.
class FIGURA_EXPORT LabelFigure : public Figure
{
    Q_OBJECT

public:
    /// Makes and owns both parts, which are there even when they show nothing.
    explicit LabelFigure(const QString &text = QString(), const QPixmap &pixmap = QPixmap(),
                         Qt::Orientations orientation = Qt::Horizontal, QObject *parent = nullptr,
                         const QColor &backgroundColor = Qt::white);
    ~LabelFigure() override;

    QString getText() const;               ///< Empty when the text figure was destroyed.
    void setText(const QString &text);     ///< See TextFigure::setText().
    QPixmap getPixmap() const;             ///< Null when there is none.
    void setPixmap(const QPixmap &pixmap); ///< See PixmapFigure for a second pixmap.

    Qt::Orientations getOrientation() const; ///< As given to the constructor or set last.
    /// Installs a new box layout. The parts stay with the former one, on purpose: a label that is
    /// turned later on is empty.
    void setOrientation(Qt::Orientations orientation);

    void setExpandingDirections(Qt::Orientations directions) override; ///< Reaches the layout too.

private:
    Qt::Orientations m_orientation;
    QPointer<PixmapFigure> m_pixmap;
    QPointer<TextFigure> m_text;
};

} // namespace Velmora::Figura
