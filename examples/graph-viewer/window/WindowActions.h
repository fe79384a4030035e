#pragma once

#include "scene/EdgeRouting.h"

class QAction;
class QActionGroup;
class QMainWindow;

namespace GraphViewer {

/// The menus, the tool bar and the shortcuts of a window. What they do is connected by the window.
class WindowActions : public QObject
{
    Q_OBJECT

public:
    explicit WindowActions(QMainWindow *window);

    QAction *open = nullptr;
    QAction *reload = nullptr;
    QAction *exportPdf = nullptr;
    QAction *print = nullptr;
    QAction *copy = nullptr;
    QAction *quit = nullptr;
    QAction *zoomIn = nullptr;
    QAction *zoomOut = nullptr;
    QAction *fit = nullptr;
    QAction *normalSize = nullptr;
    QAction *grid = nullptr;
    QAction *cancel = nullptr;

    void setGraphPresent(bool present); ///< Without one there is nothing to print, copy or zoom.
    void setRouting(Routing routing);
    void setEngine(const QString &engine); ///< Checks its entry; none for an unknown one.

Q_SIGNALS:
    void engineChosen(const QString &engine);
    void routingChosen(Routing routing);

private:
    void createFileActions();
    void createViewActions();
    void createEngineActions();
    void createRoutingActions();
    void createMenus();
    void createToolBar();
    QAction *create(const QString &text, const QList<QKeySequence> &keys, const QString &icon = {});

    QMainWindow *m_window;
    QActionGroup *m_engines = nullptr;
    QActionGroup *m_routings = nullptr;
};

} // namespace GraphViewer
