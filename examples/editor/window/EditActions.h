#pragma once

#include <QObject>

class QAction;
class QMenu;
class QWidget;

namespace Editor {

class InlineEditor;
class Workbench;

/// The actions that change the document; each is enabled while it has something to change.
class EditActions : public QObject
{
    Q_OBJECT

public:
    /// The actions belong to \a window, so that their keys work all over it.
    EditActions(Workbench &bench, InlineEditor &editor, QWidget *window);

    QAction *undo;
    QAction *redo;
    QAction *cut;
    QAction *copy;
    QAction *paste;
    QAction *duplicate;
    QAction *remove;
    QAction *selectAll;
    QAction *editText;

    void fillEditMenu(QMenu *menu) const;
    void fillArrangeMenu(QMenu *menu) const;

private:
    void createHistory();
    void createClipboard();
    void createOrder();
    void createAlignment();
    void refresh();

    template<class Do>
    QAction *create(const QString &text, const QKeySequence &keys, const Do &action);

    Workbench &m_bench;
    InlineEditor &m_editor;
    QWidget *m_window;
    QList<QAction *> m_order;
    QList<QAction *> m_align;      // of two figures and more
    QList<QAction *> m_distribute; // of three and more
};

} // namespace Editor
