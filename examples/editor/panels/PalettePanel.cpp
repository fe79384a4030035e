#include "panels/PalettePanel.h"

#include "model/Names.h"
#include "scene/NodeFigures.h"
#include "scene/Theme.h"

#include <figura/diagram/Diagram.h>

#include <QMimeData>
#include <QPainter>

using Velmora::Figura::Diagram;

namespace Editor {
namespace {

constexpr QSize iconSize{48, 34};

struct Entry
{
    NodeKind kind;
    const char *label;
};

constexpr Entry entries[] = {
    {NodeKind::Rectangle, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Rectangle")},
    {NodeKind::Rounded, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Rounded")},
    {NodeKind::Ellipse, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Ellipse")},
    {NodeKind::Diamond, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Diamond")},
    {NodeKind::Text, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Text")},
    {NodeKind::Picture, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Picture")},
    {NodeKind::Lane, QT_TRANSLATE_NOOP("Editor::PalettePanel", "Swim lane")},
};

Node sample(NodeKind kind)
{
    Node node;
    node.kind = kind;
    node.rect = QRect(3, 3, iconSize.width() - 6, iconSize.height() - 6);
    if (kind == NodeKind::Text)
        node.text = QStringLiteral("Abc");
    return node;
}

void drawPicture(QPainter *painter, const Theme &theme)
{
    const QRectF frame(7.5, 4.5, 32, 24);
    painter->setPen(theme.line);
    painter->setBrush(theme.fill);
    painter->drawRect(frame);
    painter->setBrush(theme.line);
    painter->drawPolygon(QPolygonF(
        {QPointF(11, 26), QPointF(20, 13), QPointF(27, 21), QPointF(31, 17), QPointF(37, 26)}));
    painter->drawEllipse(QPointF(32, 11), 3, 3);
}

// With the figures themselves, so that the entry looks like what it makes.
QIcon iconFor(NodeKind kind, const Theme &theme)
{
    QPixmap pixmap(iconSize * 2);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    if (kind == NodeKind::Picture) {
        drawPicture(&painter, theme);
        return pixmap;
    }
    Diagram diagram;
    const Node node = sample(kind);
    Velmora::Figura::Figure *figure = NodeFigures::create(node, nullptr);
    diagram.add(figure, node.rect);
    NodeFigures::update(figure, node, theme);
    diagram.render(&painter, QRect(QPoint(), iconSize));
    return pixmap;
}

} // namespace

const QString PalettePanel::mimeType = QStringLiteral("application/x-figura-editor-kind");

PalettePanel::PalettePanel(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("palette"));
    setViewMode(QListView::IconMode);
    setIconSize(Editor::iconSize);
    setGridSize({76, 62});
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    for (const Entry &entry : entries) {
        auto *item = new QListWidgetItem(tr(entry.label), this);
        item->setData(Qt::UserRole, Names::of(entry.kind));
        item->setToolTip(tr("Click here and then the canvas, or drag it there"));
    }
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { Q_EMIT kindChosen(kindOf(item)); });
}

void PalettePanel::setTheme(const Theme &theme)
{
    for (int row = 0; row < count(); ++row)
        item(row)->setIcon(iconFor(kindOf(item(row)), theme));
}

void PalettePanel::clearChoice()
{
    clearSelection();
    setCurrentItem(nullptr);
}

NodeKind PalettePanel::kindOf(const QListWidgetItem *item) const
{
    return Names::find<NodeKind>(item->data(Qt::UserRole).toString()).value_or(NodeKind::Rectangle);
}

QMimeData *PalettePanel::mimeData(const QList<QListWidgetItem *> &items) const
{
    if (items.isEmpty())
        return nullptr;
    auto *dragged = new QMimeData;
    dragged->setData(mimeType, items.first()->data(Qt::UserRole).toString().toUtf8());
    return dragged;
}

} // namespace Editor
