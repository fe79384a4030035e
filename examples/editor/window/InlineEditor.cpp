#include "window/InlineEditor.h"

#include "commands/ChangeText.h"
#include "edit/Workbench.h"
#include "scene/LaneFigure.h"
#include "scene/TextBlock.h"
#include "scene/Way.h"

#include <figura/diagram/DiagramView.h>

#include <QKeyEvent>
#include <QTextDocument>

using Velmora::Figura::DiagramView;

namespace Editor {
namespace {

constexpr QSize smallest{80, 28};

bool hasText(const Node &node)
{
    return node.kind != NodeKind::Picture;
}

} // namespace

InlineEditor::InlineEditor(Workbench &bench)
    : QPlainTextEdit(bench.view()->viewport())
    , m_bench(bench)
{
    setObjectName(QStringLiteral("inlineEditor"));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hide();
    connect(bench.view(), &DiagramView::viewChanged, this, &InlineEditor::place);
    connect(this, &QPlainTextEdit::textChanged, this, &InlineEditor::centre);
    connect(&bench, &Workbench::documentChanged, this, [this] {
        if (isEditing())
            finish(false); // undone meanwhile, or replaced
    });
}

void InlineEditor::edit(int id)
{
    const Node *node = m_bench.document().node(id);
    const Edge *edge = m_bench.document().edge(id);
    if (!edge && (!node || !hasText(*node)))
        return;
    m_id = id;
    m_bench.selection().set({id});
    setPlainText(node ? node->text : edge->label);
    document()->setDefaultTextOption(QTextOption(Qt::AlignHCenter));
    selectAll();
    place();
    show();
    raise();
    setFocus();
}

QRect InlineEditor::textRect() const
{
    const Scene &scene = m_bench.scene();
    if (m_bench.document().edge(m_id)) {
        if (const QRect label = scene.labelRect(m_id); label.isValid())
            return label;
        const Edge &edge = *m_bench.document().edge(m_id);
        return {Way::pointAt(scene.points(m_id), edge.labelPercent), QSize(1, 1)};
    }
    QRect rect = scene.rect(m_id);
    if (scene.lane(m_id))
        rect.setHeight(LaneFigure::titleHeight);
    if (m_bench.document().node(m_id)->kind == NodeKind::Specimen)
        rect.setTop(rect.bottom() - smallest.height());
    return rect;
}

QFont InlineEditor::textFont() const
{
    const Node *node = m_bench.document().node(m_id);
    QFont font = TextBlock::fontOf(node ? node->style : m_bench.document().edge(m_id)->style);
    constexpr double readable = 8;
    font.setPixelSize(
        static_cast<int>(qMax(readable, font.pixelSize() * m_bench.view()->getScale())));
    return font;
}

void InlineEditor::place()
{
    if (!isEditing())
        return;
    const QRect rect = m_bench.view()->fromContent(textRect());
    QRect place(QPoint(), rect.size().expandedTo(smallest));
    place.moveCenter(rect.center());
    setGeometry(place);
    setFont(textFont());
    centre();
}

// The text stays where the figure shows it.
void InlineEditor::centre()
{
    const int lines = qMax(1, document()->blockCount());
    const double frame = 2 * (frameWidth() + document()->documentMargin());
    const double free = height() - frame - lines * fontMetrics().lineSpacing();
    setViewportMargins(0, qMax(0, static_cast<int>(free / 2)), 0, 0);
}

// The id goes first: hiding takes the focus away, which would finish once more.
void InlineEditor::finish(bool keep)
{
    const int id = m_id;
    m_id = 0;
    const bool hadFocus = hasFocus();
    hide();
    if (hadFocus)
        m_bench.view()->setFocus();
    if (keep && (m_bench.document().node(id) || m_bench.document().edge(id)))
        m_bench.push(new ChangeText(m_bench.document(), id, toPlainText()));
}

void InlineEditor::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        finish(false);
    else if (isReturn && !event->modifiers().testFlag(Qt::ShiftModifier))
        finish(true);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void InlineEditor::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (isEditing() && event->reason() != Qt::PopupFocusReason)
        finish(true);
}

} // namespace Editor
