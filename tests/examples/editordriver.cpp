#include "editordriver.h"

#include "model/Content.h"
#include "model/Names.h"
#include "panels/PalettePanel.h"
#include "window/EditorWindow.h"

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

using Velmora::Figura::FreeformWidget;

namespace Editor {

EditorDriver::EditorDriver()
    : m_settings(path(QStringLiteral("settings.ini")), QSettings::IniFormat)
    , m_window(std::make_unique<EditorWindow>(m_settings, recoveryFolder()))
{
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the window does not show");
    m_window->activateWindow();
    m_window->bench().view()->setFocus();
}

EditorDriver::~EditorDriver() = default;

FreeformWidget *EditorDriver::canvas()
{
    return m_window->bench().view()->getCanvas();
}

void EditorDriver::open(const Content &content)
{
    m_window->bench().open(content);
    m_window->bench().view()->scaleToNormal();
    m_window->bench().view()->reveal(QRect(0, 0, 500, 400));
    QApplication::processEvents();
}

void EditorDriver::send(QEvent::Type type, const QPoint &point, Qt::MouseButton button,
                        Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    const QPointF position = canvas()->fromLogical(QPointF(point));
    QMouseEvent event(type, position, canvas()->mapToGlobal(position), button, buttons, modifiers);
    QApplication::sendEvent(canvas(), &event);
}

void EditorDriver::press(const QPoint &point, Qt::KeyboardModifiers modifiers)
{
    hover(point);
    send(QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton, modifiers);
}

void EditorDriver::moveTo(const QPoint &point, Qt::KeyboardModifiers modifiers)
{
    send(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton, modifiers);
}

void EditorDriver::release(const QPoint &point, Qt::KeyboardModifiers modifiers)
{
    send(QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton, modifiers);
    QApplication::processEvents();
}

void EditorDriver::hover(const QPoint &point)
{
    send(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
}

void EditorDriver::click(const QPoint &point, Qt::KeyboardModifiers modifiers)
{
    press(point, modifiers);
    release(point, modifiers);
}

void EditorDriver::doubleClick(const QPoint &point)
{
    click(point);
    send(QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    release(point);
}

void EditorDriver::drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers)
{
    press(from, modifiers);
    constexpr int steps = 5;
    for (int i = 1; i <= steps; ++i) {
        moveTo(from + (to - from) * i / steps, modifiers);
        QApplication::processEvents();
    }
    release(to, modifiers);
}

void EditorDriver::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->bench().view(), key, modifiers);
    QApplication::processEvents();
}

void EditorDriver::trigger(const QString &text)
{
    const QList<QAction *> actions = m_window->findChildren<QAction *>();
    for (QAction *action : actions) {
        if (action->text().remove(QLatin1Char('&')) != text)
            continue;
        if (!action->isEnabled())
            qFatal("the action '%s' is disabled", qPrintable(text));
        action->trigger();
        QApplication::processEvents();
        return;
    }
    qFatal("there is no action '%s'", qPrintable(text));
}

void EditorDriver::choose(NodeKind kind)
{
    auto *palette = m_window->findChild<PalettePanel *>();
    for (int row = 0; row < palette->count(); ++row) {
        if (palette->item(row)->data(Qt::UserRole).toString() != Names::of(kind))
            continue;
        QTest::mouseClick(palette->viewport(), Qt::LeftButton, Qt::NoModifier,
                          palette->visualItemRect(palette->item(row)).center());
    }
}

void EditorDriver::whenAsked(const QString &button)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, button] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer->deleteLater();
        timer->stop();
        const QList<QAbstractButton *> buttons = box->buttons();
        for (QAbstractButton *each : buttons) {
            if (each->text().remove(QLatin1Char('&')) == button)
                each->click();
        }
    });
    timer->start(10);
}

} // namespace Editor
