#pragma once

#include "ElementFigure.h"

#include <QHash>

namespace GraphViewer {

/// An edge: its lines and arrow heads are parts. Lights up in a colour of its own, because a frame
/// around a long line says little.
class EdgeFigure : public ElementFigure
{
    Q_OBJECT

public:
    EdgeFigure(const QString &title, const QRect &box, QObject *parent);

    void setHot(bool hot) override;

private:
    struct Colors
    {
        QColor line;
        QColor fill;
    };
    QHash<Velmora::Figura::Shape *, Colors> m_ownColors; // empty unless it is lit up
};

} // namespace GraphViewer
