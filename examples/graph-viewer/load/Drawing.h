#pragma once

#include <QBrush>
#include <QColor>
#include <QList>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>

namespace GraphViewer {

/// One outline with its pen and its fill.
struct Stroke
{
    QPainterPath path;
    QPen pen;
    QBrush brush;
};

/// How a text looks. The face is named as in the graph file: often a PostScript name.
struct TextStyle
{
    /// The values of the layout engine's output, so that they need no table between them and us.
    enum Trait {
        Bold = 1,
        Italic = 2,
        Underline = 4,
        Superscript = 8,
        Subscript = 16,
        StrikeThrough = 32,
        Overline = 64
    };

    QString face = QStringLiteral("Times-Roman");
    double size = 14; ///< In points, which are our units.
    int traits = 0;
    QColor color = Qt::black;
};

/// One run of text on one line.
struct TextSpan
{
    QString text;
    TextStyle style;
    QPointF left;     ///< The left end of the baseline.
    double width = 0; ///< What the layout engine has reserved for the text.
};

/// An image file, fitted into a rectangle.
struct Picture
{
    QRectF box;
    QString file;
};

/// What one element of a graph looks like, in points, y downwards.
struct Drawing
{
    QList<Stroke> strokes;
    QList<TextSpan> texts;
    QList<Picture> pictures;

    bool isEmpty() const { return strokes.isEmpty() && texts.isEmpty() && pictures.isEmpty(); }
};

} // namespace GraphViewer
