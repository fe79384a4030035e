#pragma once

#include <QPlainTextEdit>

namespace Editor {

class Workbench;

/// Edits the text of a figure or the label of a connection where it is shown.
///
/// Return takes the text over, with Shift it begins a new line; Escape gives it up; going elsewhere
/// takes it over as well.
class InlineEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit InlineEditor(Workbench &bench);

    void edit(int id); ///< Of a node or an edge that has a text.
    bool isEditing() const { return m_id != 0; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void place();
    void centre();
    void finish(bool keep);
    QRect textRect() const;
    QFont textFont() const;

    Workbench &m_bench;
    int m_id = 0;
};

} // namespace Editor
