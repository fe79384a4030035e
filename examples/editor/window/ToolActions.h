#pragma once

#include "model/Node.h"

#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QToolBar;
class QWidget;

namespace Editor {

class PalettePanel;
class ToolBox;
class Workbench;

/// Which tool is chosen, in the tool bar and in the palette.
class ToolActions : public QObject
{
    Q_OBJECT

public:
    ToolActions(Workbench &bench, ToolBox &tools, PalettePanel &palette, QWidget *window);

    QAction *select;
    QAction *connectNodes;
    QAction *pan;

    void fill(QMenu *menu) const;
    void fill(QToolBar *bar) const;

    /// Asks for an image file and lets the user place it, or puts it at \a content when that is
    /// given.
    void askForPicture(const QPoint *content = nullptr);

Q_SIGNALS:
    void failed(const QString &problem);

private:
    void createTools();
    void createRoutings();
    void beginCreating(NodeKind kind);
    void showTool();

    Workbench &m_bench;
    ToolBox &m_tools;
    PalettePanel &m_palette;
    QWidget *m_window;
    QActionGroup *m_routings;
};

} // namespace Editor
