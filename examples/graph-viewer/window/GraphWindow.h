#pragma once

#include "load/LayoutProcess.h"
#include "scene/EdgeRouting.h"

#include <QMainWindow>

#include <memory>

class QLabel;

namespace GraphViewer {

class GraphScene;
class GraphView;
class HoverTracker;
class PictureExport;
class WindowActions;

/// The main window: shows one graph file at a time.
class GraphWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit GraphWindow(QWidget *parent = nullptr);
    ~GraphWindow() override;

    LayoutProcess &layoutProcess() { return m_layout; }
    GraphView *view() const { return m_view; }
    WindowActions *commands() const { return m_actions; }

    /// Ends in opened() or failed(). The graph shown so far stays until then.
    void openFile(const QString &path);
    void setEngine(const QString &engine);  ///< For the next file; empty means what the file says.
    void setRouting(Routing routing);       ///< Of the graph that is shown, and of the next.
    QString exportPdf(const QString &path); ///< One line that says what went wrong, or nothing.
    void copyPicture();

Q_SIGNALS:
    void opened();
    void failed(const QString &message); ///< One line. A visible window has shown it already.

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void connectActions();
    void createStatusBar();
    void layOut();
    void stopLayingOut();
    void handleLayout(const LoadReply &reply);
    void returnToShown();
    void showGraph(const GraphModel &graph);
    void describe(const GraphModel &graph);
    void setBusy(bool busy);
    void showGrid(bool on);
    void complain(const QString &message);
    void askForFile();
    void askForPdf();
    void askForPrinter();
    PictureExport pictureExport();
    QString caption() const;

    struct Request
    {
        QString path;
        QString engine; ///< Empty: what the file says.
    };

    LayoutProcess m_layout;
    Request m_wanted;
    Request m_shown;
    QString m_shownEngine;
    Routing m_routing = Routing::Engine;
    std::unique_ptr<GraphScene> m_scene;
    GraphView *m_view;
    HoverTracker *m_hover;
    WindowActions *m_actions;
    QLabel *m_summary = nullptr;
    QLabel *m_scale = nullptr;
};

} // namespace GraphViewer
