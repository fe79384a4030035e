#include "window/DropTarget.h"

#include "edit/Operations.h"
#include "edit/Workbench.h"
#include "files/Pictures.h"
#include "model/Names.h"
#include "panels/PalettePanel.h"
#include "tools/CreateTool.h"
#include "tools/Snapper.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace Editor {

DropTarget::DropTarget(Workbench &bench)
    : m_bench(bench)
{
    bench.view()->getCanvas()->setAcceptDrops(true);
    bench.view()->getCanvas()->installEventFilter(this);
}

bool DropTarget::accepts(const QMimeData *data) const
{
    const QList<QUrl> urls = data->urls();
    return data->hasFormat(PalettePanel::mimeType) ||
           (!urls.isEmpty() && urls.first().isLocalFile());
}

bool DropTarget::eventFilter(QObject * /*watched*/, QEvent *event)
{
    const bool comes = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!comes && event->type() != QEvent::Drop)
        return false;
    auto *dropEvent = static_cast<QDropEvent *>(event); // the base of the two others
    if (!accepts(dropEvent->mimeData())) {
        dropEvent->ignore();
        return true;
    }
    dropEvent->acceptProposedAction();
    if (!comes)
        drop(dropEvent->mimeData(),
             m_bench.view()->getCanvas()->toLogical(dropEvent->position()).toPoint());
    return true;
}

void DropTarget::drop(const QMimeData *data, const QPoint &content)
{
    if (data->hasFormat(PalettePanel::mimeType)) {
        dropKind(QString::fromUtf8(data->data(PalettePanel::mimeType)), content);
        return;
    }
    QPoint place = content;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        dropFile(url.toLocalFile(), place);
        place += QPoint(20, 20);
    }
}

void DropTarget::dropKind(const QString &name, const QPoint &content)
{
    const std::optional<NodeKind> kind = Names::find<NodeKind>(name);
    if (!kind)
        return;
    if (*kind == NodeKind::Picture) {
        Q_EMIT pictureWanted(content);
        return;
    }
    Node node = CreateTool::patternOf(*kind);
    node.rect.moveCenter(content);
    node.rect.moveTopLeft(Snapper::snapped(m_bench, node.rect.topLeft()));
    Operations::create(m_bench, node);
}

void DropTarget::dropFile(const QString &path, const QPoint &content)
{
    if (path.endsWith(QLatin1String(".figura"))) {
        Q_EMIT documentDropped(path);
        return;
    }
    QString problem;
    const QByteArray bytes = Pictures::load(path, &problem);
    if (bytes.isEmpty())
        Q_EMIT failed(problem);
    else
        Operations::create(m_bench, Operations::pictureNode(bytes, content));
}

} // namespace Editor
