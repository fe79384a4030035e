#include "tools/BandDrag.h"

#include "edit/Workbench.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

namespace Editor {

BandDrag::BandDrag(Workbench &bench, const Pointer &start)
    : Drag(bench, start)
    , m_before(bench.selection().ids())
{
}

BandDrag::~BandDrag()
{
    setBand(QRect());
}

void BandDrag::moveTo(const Pointer &pointer)
{
    const QRect band = QRect(start(), pointer.at).normalized();
    setBand(band);
    const QList<int> inside = bench().scene().elementsIn(band);
    if (!pointer.modifiers.testFlag(Qt::ShiftModifier)) {
        bench().selection().set(inside);
        return;
    }
    QList<int> ids = m_before;
    for (const int id : inside) {
        if (!m_before.contains(id))
            ids << id;
    }
    bench().selection().set(ids);
}

void BandDrag::cancel()
{
    bench().selection().set(m_before);
}

// The band is no figure: whoever changes it has to ask for the paint.
void BandDrag::setBand(const QRect &band)
{
    bench().view()->elasticBand() = band;
    bench().view()->getCanvas()->update();
}

} // namespace Editor
