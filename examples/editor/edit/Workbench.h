#pragma once

#include "edit/Selection.h"
#include "model/Document.h"
#include "scene/Scene.h"

#include <figura/diagram/Diagram.h>

#include <QUndoStack>

#include <memory>

namespace Velmora::Figura {
class DiagramView;
}

namespace Editor {

class ChangeElements;
class Feedback;

/// What tools, panels and menus work on: one document with its history, its selection and the view
/// that shows it.
class Workbench : public QObject
{
    Q_OBJECT

public:
    /// How tools work; no part of a document.
    struct Options
    {
        bool snapToGrid = true;
        bool snapToOthers = true;
        int gridStep = 10;
        Routing routing = Routing::Straight; ///< Of new edges.
    };

    /// \a view is not owned; it has to outlive this.
    explicit Workbench(Velmora::Figura::DiagramView *view, QObject *parent = nullptr);
    ~Workbench() override;

    Document &document() { return m_document; }
    QUndoStack &history() { return m_history; }
    Velmora::Figura::Diagram &diagram() { return m_diagram; }
    Scene &scene() { return m_scene; }
    Selection &selection() { return m_selection; }
    Feedback &feedback() { return *m_feedback; }
    Velmora::Figura::DiagramView *view() const { return m_view; }

    Options options;

    /// Takes ownership. A change that changes nothing leaves no step behind.
    void push(QUndoCommand *command);
    void push(ChangeElements *command);

    /// Replaces the document; there is no way back.
    void open(const Content &content);

    /// Between these, routes may depend on how they came about: a drag is quicker without.
    void beginDrag();
    void endDrag();
    bool isDragging() const { return m_dragging; }

    /// So many pixels, in content units at the present scale; at least 1.
    int units(double pixels) const;

Q_SIGNALS:
    void documentChanged(); ///< After each step, and when another document was opened.

private:
    void handleStep();

    Velmora::Figura::DiagramView *m_view;
    Document m_document;
    Velmora::Figura::Diagram m_diagram;
    Scene m_scene;
    QUndoStack m_history;
    Selection m_selection;
    std::unique_ptr<Feedback> m_feedback;
    bool m_dragging = false;
};

} // namespace Editor
