#pragma once

#include "ElementFigure.h"

#include <memory>

namespace Velmora::Figura {
class ILocator;
}

namespace GraphViewer {

class EdgeConnection;

/// A text beside an edge: where the layout engine has put it, or placed by a locator.
///
/// It is no child of its connection, because labels lie over all edges.
class EdgeLabel : public ElementFigure
{
    Q_OBJECT

public:
    enum class Place { Middle, Tail, Head };

    EdgeLabel(Place place, const QString &title, const QRect &box, EdgeConnection *edge,
              QObject *parent = nullptr);
    ~EdgeLabel() override;

    void followEdge(bool follow); ///< Otherwise it is at home.

    QSize getPreferredSize() override; ///< What the locator gives it.

protected:
    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void relocate();

    Place m_place;

    std::unique_ptr<Velmora::Figura::ILocator> m_locator;
    bool m_follows = false;
};

} // namespace GraphViewer
