#pragma once

#include <QObject>

class QAction;
class QMenu;
class QToolBar;
class QWidget;

namespace Editor {

class Workbench;

/// Zoom, grid, snapping, and the colours of the window.
class ViewActions : public QObject
{
    Q_OBJECT

public:
    ViewActions(Workbench &bench, QWidget *window);

    QAction *grid;
    QAction *snapToGrid;
    QAction *snapToOthers;
    QAction *dark;

    void fill(QMenu *menu) const;
    void fill(QToolBar *bar) const;

Q_SIGNALS:
    void darkWanted(bool dark);

private:
    void createZoom();
    void createSwitches();
    void showGrid();

    template<class Do>
    QAction *create(const QString &text, const QKeySequence &keys, const QString &icon,
                    const Do &action);
    QAction *createSwitch(const QString &text, const QKeySequence &keys, bool on);

    Workbench &m_bench;
    QWidget *m_window;
    QList<QAction *> m_zoom;
};

} // namespace Editor
