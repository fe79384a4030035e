#pragma once

#include "model/Node.h"

#include <QListWidget>

namespace Editor {

struct Theme;

/// The figures that can be made: click one and then the canvas, or drag it there.
class PalettePanel : public QListWidget
{
    Q_OBJECT

public:
    explicit PalettePanel(QWidget *parent = nullptr);

    static const QString mimeType; ///< Of a dragged entry: the name of its kind.

    void setTheme(const Theme &theme); ///< Draws the pictures anew.
    void clearChoice();

Q_SIGNALS:
    void kindChosen(Editor::NodeKind kind);

protected:
    QMimeData *mimeData(const QList<QListWidgetItem *> &items) const override;

private:
    NodeKind kindOf(const QListWidgetItem *item) const;
};

} // namespace Editor
