#include "window/EditActions.h"

#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "window/InlineEditor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace Editor {

EditActions::EditActions(Workbench &bench, InlineEditor &editor, QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_editor(editor)
    , m_window(window)
{
    createHistory();
    createClipboard();
    createOrder();
    createAlignment();
    connect(&bench, &Workbench::documentChanged, this, &EditActions::refresh);
    connect(&bench.selection(), &Selection::changed, this, &EditActions::refresh);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &EditActions::refresh);
    refresh();
}

template<class Do>
QAction *EditActions::create(const QString &text, const QKeySequence &keys, const Do &action)
{
    auto *result = new QAction(text, m_window);
    result->setShortcut(keys);
    connect(result, &QAction::triggered, this, action);
    m_window->addAction(result);
    return result;
}

void EditActions::createHistory()
{
    undo = m_bench.history().createUndoAction(m_window, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    undo->setIcon(QIcon::fromTheme(QStringLiteral("edit-undo")));
    redo = m_bench.history().createRedoAction(m_window, tr("&Redo"));
    redo->setShortcuts({QKeySequence::Redo, QKeySequence(tr("Ctrl+Y"))});
    redo->setIcon(QIcon::fromTheme(QStringLiteral("edit-redo")));
    // In the tool bar without what it is that comes back: all else would jump aside at each step.
    undo->setIconText(tr("Undo"));
    redo->setIconText(tr("Redo"));
    m_window->addActions({undo, redo});
}

void EditActions::createClipboard()
{
    cut = create(tr("Cu&t"), QKeySequence::Cut, [this] { Operations::cut(m_bench); });
    copy = create(tr("&Copy"), QKeySequence::Copy, [this] { Operations::copy(m_bench); });
    paste = create(tr("&Paste"), QKeySequence::Paste,
                   [this] { Operations::paste(m_bench, QApplication::clipboard()->mimeData()); });
    duplicate = create(tr("&Duplicate"), QKeySequence(tr("Ctrl+D")),
                       [this] { Operations::duplicate(m_bench); });
    remove = create(tr("De&lete"), QKeySequence::Delete,
                    [this] { Operations::removeSelected(m_bench); });
    selectAll = create(tr("Select &all"), QKeySequence::SelectAll,
                       [this] { m_bench.selection().selectAll(); });
    editText = create(tr("&Edit text"), QKeySequence(tr("F2")),
                      [this] { m_editor.edit(m_bench.selection().ids().first()); });
}

void EditActions::createOrder()
{
    using Step = ReorderNodes::Step;
    const auto add = [this](const QString &text, const char *keys, Step step) {
        m_order << create(text, QKeySequence(QLatin1String(keys)),
                          [this, step] { Operations::reorder(m_bench, step); });
    };
    add(tr("To &front"), "Ctrl+Shift+]", Step::ToFront);
    add(tr("For&ward"), "Ctrl+]", Step::Forward);
    add(tr("Back&ward"), "Ctrl+[", Step::Backward);
    add(tr("To &back"), "Ctrl+Shift+[", Step::ToBack);
}

void EditActions::createAlignment()
{
    const auto addSide = [this](const QString &text, Side side) {
        m_align << create(text, {}, [this, side] { Operations::align(m_bench, side); });
    };
    addSide(tr("Align &left"), Side::Left);
    addSide(tr("Align &centres"), Side::Centre);
    addSide(tr("Align &right"), Side::Right);
    addSide(tr("Align &top"), Side::Top);
    addSide(tr("Align &middles"), Side::Middle);
    addSide(tr("Align b&ottom"), Side::Bottom);
    const auto addWay = [this](const QString &text, Qt::Orientation way) {
        m_distribute << create(text, {}, [this, way] { Operations::distribute(m_bench, way); });
    };
    addWay(tr("Distribute &horizontally"), Qt::Horizontal);
    addWay(tr("Distribute &vertically"), Qt::Vertical);
}

void EditActions::fillEditMenu(QMenu *menu) const
{
    menu->addActions({undo, redo});
    menu->addSeparator();
    menu->addActions({cut, copy, paste, duplicate, remove});
    menu->addSeparator();
    menu->addActions({selectAll, editText});
}

void EditActions::fillArrangeMenu(QMenu *menu) const
{
    menu->addActions(m_order);
    menu->addSeparator();
    menu->addActions(m_align);
    menu->addSeparator();
    menu->addActions(m_distribute);
}

void EditActions::refresh()
{
    const qsizetype nodes = m_bench.selection().nodes().size();
    for (QAction *action : {cut, copy, duplicate})
        action->setEnabled(nodes > 0);
    remove->setEnabled(!m_bench.selection().isEmpty());
    paste->setEnabled(Operations::canPaste(QApplication::clipboard()->mimeData()));
    editText->setEnabled(m_bench.selection().ids().size() == 1);
    for (QAction *action : std::as_const(m_order))
        action->setEnabled(nodes > 0);
    for (QAction *action : std::as_const(m_align))
        action->setEnabled(nodes > 1);
    for (QAction *action : std::as_const(m_distribute))
        action->setEnabled(nodes > 2);
}

} // namespace Editor
