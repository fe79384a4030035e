#include "panels/ColorButton.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>

namespace Editor {
namespace {

struct Swatch
{
    const char *name;
    QRgb color;
};

constexpr Swatch swatches[] = {
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "White"), 0xffffff},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Grey"), 0x9aa5b1},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Black"), 0x17222b},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Red"), 0xe5534b},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Orange"), 0xf2994a},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Yellow"), 0xf7d154},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Green"), 0x57ab5a},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Blue"), 0x539bf5},
    {QT_TRANSLATE_NOOP("Editor::ColorButton", "Violet"), 0xb083f0},
};

QIcon iconOf(const QColor &color)
{
    QPixmap pixmap(32, 32);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(color.isValid() ? color : Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);
    painter.drawRect(QRectF(0.5, 0.5, 15, 15));
    if (!color.isValid())
        painter.drawLine(QPointF(1, 15), QPointF(15, 1));
    return pixmap;
}

} // namespace

ColorButton::ColorButton(QWidget *parent)
    : QToolButton(parent)
{
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setMenu(new QMenu(this));
    addColor(tr("Automatic"), QColor());
    addColor(tr("None"), QColor(0, 0, 0, 0));
    for (const Swatch &swatch : swatches)
        addColor(tr(swatch.name), QColor(swatch.color));
    menu()->addSeparator();
    menu()->addAction(tr("Other..."), this, &ColorButton::pickOther);
    setColor({});
}

void ColorButton::addColor(const QString &name, const QColor &color)
{
    menu()->addAction(iconOf(color), name, this, [this, color] { Q_EMIT picked(color); });
}

void ColorButton::setColor(const QColor &color)
{
    m_color = color;
    setIcon(iconOf(color));
    setText(color.isValid() ? color.name() : tr("automatic"));
}

void ColorButton::pickOther()
{
    const QColor color =
        QColorDialog::getColor(m_color, this, QString(), QColorDialog::ShowAlphaChannel);
    if (color.isValid())
        Q_EMIT picked(color);
}

} // namespace Editor
