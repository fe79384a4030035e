#pragma once

#include <figura/export.h>
#include <figura/geometry/Insets.h>

#include <QColor>
#include <QObject>
#include <QPen>
#include <QRect>

class QPainter;
class QStyleOptionViewItem;

namespace Velmora::Figura {

/// A frame inside a figure's bounds, and the space that it takes from the client area.
///
/// A border is not owned by its figures, and several may share one. Setters only store: the
/// application repaints.
class FIGURA_EXPORT Border : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Insets insets READ getInsets WRITE setInsets)
    Q_PROPERTY(QColor color READ getColor WRITE setColor)
    Q_PROPERTY(Qt::PenStyle penStyle READ getPenStyle WRITE setPenStyle)
    Q_PROPERTY(Qt::PenCapStyle penCapStyle READ getPenCapStyle WRITE setPenCapStyle)
    Q_PROPERTY(Qt::PenJoinStyle penJoinStyle READ getPenJoinStyle WRITE setPenJoinStyle)

public:
    explicit Border(QObject *parent = nullptr); ///< No insets; a solid black line.
    ~Border() override;

    virtual const Insets &getInsets() const;      ///< The space taken on each side.
    virtual void setInsets(const Insets &insets); ///< Only stores.

    /// Paints the frame of a figure whose absolute bounds are option.rect.
    virtual void render(QPainter *painter, const QStyleOptionViewItem &option) const = 0;

protected:
    virtual QPen createPen() const; ///< A pen of width 1 in the stored colour and styles.

    /// The rectangle on which a line as wide as the inset is centred inside \a rect; an invalid
    /// rectangle gives an invalid one.
    virtual QRect toBorderRect(const QRect &rect) const;

public:
    QColor getColor() const;                      ///< Black at first.
    void setColor(const QColor &color);           ///< Only stores.
    Qt::PenStyle getPenStyle() const;             ///< Qt::SolidLine at first.
    void setPenStyle(Qt::PenStyle style);         ///< Only stores.
    Qt::PenCapStyle getPenCapStyle() const;       ///< Qt::SquareCap at first.
    void setPenCapStyle(Qt::PenCapStyle style);   ///< Only stores.
    Qt::PenJoinStyle getPenJoinStyle() const;     ///< Qt::BevelJoin at first.
    void setPenJoinStyle(Qt::PenJoinStyle style); ///< Only stores.

private:
    Insets m_insets;
    Qt::PenStyle m_penStyle = Qt::SolidLine;
    Qt::PenCapStyle m_capStyle = Qt::SquareCap;
    Qt::PenJoinStyle m_joinStyle = Qt::BevelJoin;
    QColor m_color = Qt::black;
};

} // namespace Velmora::Figura
