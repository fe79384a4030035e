#pragma once

#include <QObject>

class QMimeData;

namespace Editor {

class Workbench;

/// Takes what is dropped on the canvas: entries of the palette, image files, and documents.
class DropTarget : public QObject
{
    Q_OBJECT

public:
    explicit DropTarget(Workbench &bench);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void pictureWanted(const QPoint &content); ///< The palette's entry says not which one.
    void documentDropped(const QString &path);
    void failed(const QString &problem);

private:
    bool accepts(const QMimeData *data) const;
    void drop(const QMimeData *data, const QPoint &content);
    void dropKind(const QString &kind, const QPoint &content);
    void dropFile(const QString &path, const QPoint &content);

    Workbench &m_bench;
};

} // namespace Editor
