#pragma once

#include "model/Node.h"

#include <QEvent>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace Velmora::Figura {
class FreeformWidget;
}

namespace Editor {

class EditorWindow;
struct Content;

/// A shown window of the editor, and hands that use its mouse and its keys.
class EditorDriver
{
public:
    EditorDriver();
    ~EditorDriver();

    EditorWindow &window() { return *m_window; }
    QSettings &settings() { return m_settings; }
    Velmora::Figura::FreeformWidget *canvas();
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString recoveryFolder() const { return path(QStringLiteral("recovery")); }

    void open(const Content &content); ///< At scale 1, its top left corner in view.

    // In content coordinates, with the left button.
    void press(const QPoint &point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void moveTo(const QPoint &point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void release(const QPoint &point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void hover(const QPoint &point);
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(const QPoint &point);
    void drag(const QPoint &from, const QPoint &to,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier); ///< To the canvas.
    void trigger(const QString &text); ///< The action of a menu, by its text without "&".
    void choose(NodeKind kind);        ///< An entry of the palette, by a click on it.

    /// What to do when the next dialog comes up.
    static void whenAsked(const QString &button);

private:
    void send(QEvent::Type type, const QPoint &point, Qt::MouseButton button,
              Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);

    QTemporaryDir m_folder;
    QSettings m_settings;
    std::unique_ptr<EditorWindow> m_window;
};

} // namespace Editor
