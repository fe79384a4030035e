#pragma once

#include <QColor>
#include <QToolButton>

namespace Editor {

/// Shows a colour and offers others, among them none: that of the window's palette.
class ColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ColorButton(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color); ///< Invalid: automatic. Emits nothing.

Q_SIGNALS:
    void picked(const QColor &color);

private:
    void addColor(const QString &name, const QColor &color);
    void pickOther();

    QColor m_color;
};

} // namespace Editor
