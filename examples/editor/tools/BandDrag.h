#pragma once

#include "tools/Drag.h"

#include <QRect>

namespace Editor {

/// Selects what lies in the viewer's elastic band; with Shift in addition to what is selected.
class BandDrag : public Drag
{
public:
    BandDrag(Workbench &bench, const Pointer &start);
    ~BandDrag() override;

    void moveTo(const Pointer &pointer) override;
    void cancel() override;

private:
    void setBand(const QRect &band);

    QList<int> m_before;
};

} // namespace Editor
