#include "commands/DeleteElements.h"
#include "commands/InsertElements.h"
#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "files/Clip.h"
#include "files/Pictures.h"

#include <figura/diagram/DiagramView.h>
#include <figura/diagram/exportDiagram.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

#include <memory>

using Velmora::Figura::DiagramExport;

namespace Editor {
namespace {

constexpr QPoint shift{20, 20};

Content selected(Workbench &bench)
{
    bench.scene().validate();
    return Clip::copied(bench.document(), bench.selection().nodes(),
                        bench.scene().rects(bench.document().nodeOrder()));
}

void insert(Workbench &bench, const QString &text, const Content &content)
{
    if (content.isEmpty())
        return;
    bench.push(new InsertElements(text, bench.document(), content));
    QList<int> ids;
    for (const Node &node : content.nodes) {
        if (node.lane == 0)
            ids << node.id;
    }
    bench.selection().set(ids);
}

// A second copy does not hide the first one.
QPoint freeOffset(const Content &content, const Document &document)
{
    QSet<QPoint> taken;
    for (const int id : document.nodeOrder())
        taken.insert(document.node(id)->rect.topLeft());
    QPoint offset = shift;
    while (taken.contains(content.nodes.first().rect.topLeft() + offset))
        offset += shift;
    return offset;
}

void pasteContent(Workbench &bench, const Content &content)
{
    if (content.isEmpty())
        return;
    const QPoint offset = freeOffset(content, bench.document());
    insert(bench, Workbench::tr("Paste"), Clip::renewed(content, bench.document(), offset));
}

QPoint viewCentre(Workbench &bench)
{
    return bench.view()->getViewRect().center();
}

void pastePicture(Workbench &bench, const QImage &image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    if (Pictures::problemOf(buffer.data()).isEmpty())
        Operations::create(bench, Operations::pictureNode(buffer.data(), viewCentre(bench)));
}

void pasteText(Workbench &bench, const QString &text)
{
    Node node;
    node.kind = NodeKind::Text;
    node.text = text.left(Limits::text);
    node.rect = QRect(0, 0, 200, 60);
    node.rect.moveCenter(viewCentre(bench));
    Operations::create(bench, node);
}

} // namespace

QMimeData *Operations::copied(Workbench &bench)
{
    const Content content = selected(bench);
    if (content.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    Clip::write(data.get(), content);
    DiagramExport options;
    options.figures = bench.scene().figuresOf(bench.selection().nodes());
    options.background = bench.scene().theme().paper;
    exportDiagram(&bench.diagram(), data.get(), options);
    return data.release();
}

void Operations::copy(Workbench &bench)
{
    if (QMimeData *data = copied(bench))
        QApplication::clipboard()->setMimeData(data);
}

void Operations::cut(Workbench &bench)
{
    copy(bench);
    if (!bench.selection().nodes().isEmpty())
        bench.push(
            new DeleteElements(bench.document(), bench.selection().ids(), Workbench::tr("Cut")));
}

bool Operations::canPaste(const QMimeData *data)
{
    return data && (Clip::isIn(data) || data->hasImage() || data->hasText());
}

void Operations::paste(Workbench &bench, const QMimeData *data)
{
    if (Clip::isIn(data))
        pasteContent(bench, Clip::read(data));
    else if (data && data->hasImage())
        pastePicture(bench, qvariant_cast<QImage>(data->imageData()));
    else if (data && data->hasText())
        pasteText(bench, data->text());
}

void Operations::duplicate(Workbench &bench)
{
    insert(bench, Workbench::tr("Duplicate"),
           Clip::renewed(selected(bench), bench.document(), shift));
}

Node Operations::pictureNode(const QByteArray &bytes, const QPoint &centre)
{
    constexpr QSize largest(480, 360);
    Node node;
    node.kind = NodeKind::Picture;
    node.picture = bytes;
    QSize size = Pictures::sizeOf(bytes);
    if (size.width() > largest.width() || size.height() > largest.height())
        size.scale(largest, Qt::KeepAspectRatio);
    const QPoint half(size.width() / 2, size.height() / 2);
    node.rect = QRect(centre - half, size);
    return node;
}

} // namespace Editor
