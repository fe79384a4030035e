#pragma once

#include <figura/layout/ILocator.h>

#include <QObject>
#include <QPoint>

namespace Velmora::Figura {
class PolylineConnection;
}

namespace Editor {

/// Keeps a label at its place along a connection, whichever way that takes.
class LabelLocator : public QObject, public Velmora::Figura::ILocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)

public:
    explicit LabelLocator(Velmora::Figura::PolylineConnection *connection);

    /// See Edge.
    void setPlace(int percent, const QPoint &offset);

    void relocate(Velmora::Figura::Figure *target) override;

private:
    Velmora::Figura::PolylineConnection *m_connection;
    int m_percent = 50;
    QPoint m_offset;
};

} // namespace Editor
