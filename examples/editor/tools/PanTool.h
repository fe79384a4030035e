#pragma once

#include "tools/Tool.h"

namespace Editor {

/// Drags the paper.
class PanTool : public Tool
{
    Q_OBJECT

public:
    explicit PanTool(Workbench &bench);

    Qt::CursorShape cursor() const override;
    void press(const Pointer &pointer) override;
    void move(const Pointer &pointer) override;
    void release(const Pointer &pointer) override;
    void cancel() override;

private:
    QPoint m_last; // on the screen: the content moves along with the mouse
    bool m_isHeld = false;
};

} // namespace Editor
