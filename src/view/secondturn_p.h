#pragma once

#include <QList>
#include <QPointer>

namespace Velmora::Figura {

class Figure;
class FreeformWidget;

/// Lets figures that became invalid during an update pass, which has dropped them, revalidate once
/// on a later turn of the event loop.
///
/// Each has one such turn for every pass that somebody else caused, so layouts that invalidate
/// themselves or each other come to rest.
class SecondTurn
{
public:
    explicit SecondTurn(FreeformWidget *widget);

    /// After every pass, with the figures that called for validation too late for it.
    void examine(const QList<QPointer<Figure>> &late);

private:
    void run();

    FreeformWidget *const m_widget;
    QList<QPointer<Figure>> m_waiting;
    QList<QPointer<Figure>> m_served; // since the last pass that was not ours
    bool m_isRunning = false;
};

} // namespace Velmora::Figura
