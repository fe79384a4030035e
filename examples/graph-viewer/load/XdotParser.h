#pragma once

#include "Drawing.h"

#include <QTransform>

namespace GraphViewer {

class XdotScanner;

/// Turns the drawing operations that the layout engine attaches to nodes, edges and graphs into
/// outlines, texts and pictures.
class XdotParser
{
public:
    /// \a toScene maps the engine's coordinates, where y grows upwards, to ours.
    explicit XdotParser(const QTransform &toScene);

    /// Adds what \a text draws. Each call begins with a thin black pen. False when the text breaks
    /// off or is not understood; what came before that is kept.
    bool parse(const QByteArray &text, Drawing *drawing);

private:
    bool parseOperation(XdotScanner &scanner, Drawing *drawing);
    bool parsePen(char operation, XdotScanner &scanner);
    void addEllipse(XdotScanner &scanner, Drawing *drawing, bool filled) const;
    void addPolygon(XdotScanner &scanner, Drawing *drawing, bool filled) const;
    void addPolyline(XdotScanner &scanner, Drawing *drawing) const;
    void addBezier(XdotScanner &scanner, Drawing *drawing, bool filled) const;
    void addText(XdotScanner &scanner, Drawing *drawing) const;
    void addPicture(XdotScanner &scanner, Drawing *drawing) const;
    void addStroke(Drawing *drawing, const QPainterPath &path, bool filled) const;
    void setStyle(const QByteArray &style);

    QTransform m_toScene;
    QPen m_pen;
    QBrush m_brush;
    TextStyle m_text;
};

} // namespace GraphViewer
