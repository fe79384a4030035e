#pragma once

#include <figura/export.h>
#include <figura/figure/Figure.h>

#include <QPainterPath>

#include <memory>

class QPalette;
class QPen;

namespace Velmora::Figura {

class PathSource;
struct DisabledColors;

/// The base of every figure that is one outlined and optionally filled path.
///
/// The path is rebuilt when the bounds change while the figure is attached to a displayed tree, and
/// then only; rebuildPath() and rebuildPaths() serve trees that are built before they are shown.
/// Colours left invalid are taken from the palette at the first paint and kept.
class FIGURA_EXPORT Shape : public Figure
{
    Q_OBJECT
    Q_PROPERTY(int lineWidth READ getLineWidth WRITE setLineWidth)
    Q_PROPERTY(Qt::PenStyle lineStyle READ getLineStyle WRITE setLineStyle)
    Q_PROPERTY(Qt::PenCapStyle capStyle READ getCapStyle WRITE setCapStyle)
    Q_PROPERTY(Qt::PenJoinStyle joinStyle READ getJoinStyle WRITE setJoinStyle)
    Q_PROPERTY(QColor enabledFGColor READ getEnabledFGColor WRITE setEnabledFGColor)
    Q_PROPERTY(QColor enabledBGColor READ getEnabledBGColor WRITE setEnabledBGColor)
    Q_PROPERTY(QColor disabledFGColor READ getDisabledFGColor WRITE setDisabledFGColor)
    Q_PROPERTY(QColor disabledBGColor READ getDisabledBGColor WRITE setDisabledBGColor)
    Q_PROPERTY(bool fill READ getFill WRITE setFill)

public:
    explicit Shape(QObject *parent = nullptr); ///< With a transparent background.
    ~Shape() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

    /// In figure units. Repaints, but the path keeps its inset until the bounds change.
    virtual void setLineWidth(int width);

protected:
    /// Draws the path with the pen and brush that the painter carries; option.rect is the area less
    /// half the line width.
    virtual void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const;

Q_SIGNALS:
    void pathChanged(const QRectF &rect); ///< The path is due to be rebuilt for \a rect.

protected Q_SLOTS:
    /// Replaces the path by that for \a rect, in the coordinate system of the bounds.
    virtual void regeneratePath(const QRectF &rect) = 0;

public:
    int getLineWidth() const;                  ///< 1 at first.
    Qt::PenStyle getLineStyle() const;         ///< Qt::SolidLine at first.
    void setLineStyle(Qt::PenStyle style);     ///< Repaints.
    Qt::PenCapStyle getCapStyle() const;       ///< Qt::SquareCap at first.
    void setCapStyle(Qt::PenCapStyle style);   ///< Stored; painting keeps Qt's own default.
    Qt::PenJoinStyle getJoinStyle() const;     ///< Qt::MiterJoin at first.
    void setJoinStyle(Qt::PenJoinStyle style); ///< Stored; painting keeps Qt's own default.

    QColor getEnabledFGColor() const;             ///< Invalid until set or painted.
    void setEnabledFGColor(const QColor &color);  ///< The outline; repaints always, as all below.
    QColor getEnabledBGColor() const;             ///< Invalid until set or painted.
    void setEnabledBGColor(const QColor &color);  ///< The fill.
    QColor getDisabledFGColor() const;            ///< Invalid until set or painted.
    void setDisabledFGColor(const QColor &color); ///< Outline and fill while disabled.
    QColor getDisabledBGColor() const;            ///< The disabled foreground, on purpose.
    void setDisabledBGColor(const QColor &color); ///< Stored, but not painted with.
    bool getFill() const;                         ///< True at first, except for polylines.
    void setFill(bool fill); ///< Whether the path is filled as well as outlined.

    /// Builds the path for the current bounds, attached or not; repaints the old and the new area.
    /// Invalid bounds have no effect, except on polylines.
    void rebuildPath();

    void setBounds(const QRect &rect) override;
    bool contains(const QPoint &point) const override; ///< Whether the path contains \a point.
    void addNotify() override;
    void removeNotify() override;

protected:
    /// Sets pen and brush by the state of the figure and calls drawShape().
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

    /// The outline, for subclasses that build it. In the coordinate system of the bounds.
    QPainterPath &painterPath();
    const QPainterPath &getPainterPath() const; ///< The outline, empty until it was built.
    /// \a path in absolute coordinates while the figure is attached, else as it is.
    QPainterPath absolutePath(const QPainterPath &path) const;
    void clipToPath(QPainter *painter) const; ///< Narrows the clip, unless the path is empty.

private:
    friend class PathSource; // gives the path, and knows where it is
    friend class PaintReach; // measures the path

    struct Colors
    {
        QColor pen;
        QColor fill;
    };

    QRectF pathRect(const QRect &bounds) const;
    void adoptPaletteColor(QColor &color, const QColor &paletteColor) const;
    Colors enabledColors(const QPalette &palette) const;
    Colors disabledColors(const QPalette &palette) const;
    DisabledColors &ownDisabledColors() const;
    QPen createPen(const QPainter &painter, const QColor &color) const;

    void drawInside(QPainter *painter, const QStyleOptionViewItem &option) const;
    void buildPath() const;
    QPointF absoluteOrigin() const;

    mutable QPainterPath m_path;          // built when it is first needed
    std::unique_ptr<PathSource> m_source; // null when the path was made by other means
    int m_lineWidth = 1;
    // The enumerations take twice the room.
    quint16 m_lineStyle = Qt::SolidLine;
    quint16 m_capStyle = Qt::SquareCap;
    quint16 m_joinStyle = Qt::MiterJoin;
    mutable bool m_isBuilt = true;
    bool m_fill = true;
    mutable QColor m_enabledFGColor; // mutable: painting fills in what the palette says
    mutable QColor m_enabledBGColor;
};

/// Calls Shape::rebuildPath() on each shape of the tree below and including \a root; null is
/// ignored.
FIGURA_EXPORT void rebuildPaths(Figure *root);

} // namespace Velmora::Figura
