#pragma once

#include "model/Edge.h"

#include <figura/connection/PolylineConnection.h>

namespace Editor {

class LabelLocator;
struct Theme;
class TextBlock;

/// Shows an edge: the line, its arrow heads and its label.
class EdgeFigure : public Velmora::Figura::PolylineConnection
{
    Q_OBJECT

public:
    explicit EdgeFigure(QObject *parent = nullptr);

    void show(const Edge &edge, const Theme &theme); ///< All but ends and route.
    TextBlock *label() const { return m_label; }     ///< Null when there is none.

    QRect getBoundingRect() override; ///< With all of the line's width.
    void revalidate() override;

protected:
    void layout() override;
    void regeneratePath(const QRectF &rect) override;

private:
    void showArrows(const Edge &edge, const QColor &color, const QColor &paper);
    void showLabel(const Edge &edge, const Theme &theme);

    TextBlock *m_label = nullptr;
    LabelLocator *m_locator;
    double m_sourceTrim = 0; // how far the line ends before the tip of the arrow head
    double m_targetTrim = 0;
};

} // namespace Editor
