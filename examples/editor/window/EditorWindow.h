#pragma once

#include "edit/Workbench.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QSettings;

namespace Velmora::Figura {
class DiagramView;
}

namespace Editor {

class DropTarget;
class EditActions;
class FileActions;
class InlineEditor;
class Keeper;
class PalettePanel;
class ToolActions;
class ToolBox;
class ViewActions;

/// The main window: one document, its tools around it.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \a settings has to outlive the window.
    EditorWindow(QSettings &settings, const QString &recoveryFolder, QWidget *parent = nullptr);
    ~EditorWindow() override;

    Workbench &bench() { return *m_bench; }
    Keeper &keeper() { return *m_keeper; }
    ToolBox &tools() { return *m_tools; }
    FileActions &files() { return *m_files; }
    ViewActions &viewActions() { return *m_viewActions; }
    InlineEditor &inlineEditor() { return *m_inlineEditor; }

    void setDark(bool dark);
    void complain(const QString &problem); ///< In a box, when the window can be seen.

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void createDocks();
    QDockWidget *addDock(const QString &title, QWidget *content, Qt::DockWidgetArea area);
    void createMenus();
    void createToolBar();
    void createStatusBar();
    void connectParts();
    void showTitle();
    void showPointer(const QPoint &content);

    QSettings &m_settings;
    Velmora::Figura::DiagramView *m_view;
    std::unique_ptr<Workbench> m_bench;
    std::unique_ptr<ToolBox> m_tools;
    std::unique_ptr<DropTarget> m_drops;
    PalettePanel *m_palette;
    InlineEditor *m_inlineEditor;
    Keeper *m_keeper;
    EditActions *m_edit;
    FileActions *m_files;
    ViewActions *m_viewActions;
    ToolActions *m_toolActions;
    QLabel *m_place = nullptr;
    QLabel *m_scale = nullptr;
};

} // namespace Editor
