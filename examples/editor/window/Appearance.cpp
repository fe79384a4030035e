#include "window/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace Editor {
namespace {

struct Colors
{
    QRgb window;
    QRgb base;
    QRgb button;
    QRgb text;
    QRgb faint; // disabled
    QRgb accent;
    QRgb onAccent;
};

constexpr Colors light{.window = 0xf1f3f5,
                       .base = 0xffffff,
                       .button = 0xe7eaee,
                       .text = 0x17222b,
                       .faint = 0x9aa5b1,
                       .accent = 0x1a73e8,
                       .onAccent = 0xffffff};
constexpr Colors dark{.window = 0x32383f,
                      .base = 0x1a1d21,
                      .button = 0x414850,
                      .text = 0xe6edf3,
                      .faint = 0x6f7a85,
                      .accent = 0x3d84d6,
                      .onAccent = 0xffffff};

QPalette paletteOf(const Colors &colors)
{
    QPalette palette(QColor(colors.button), QColor(colors.window));
    palette.setColor(QPalette::Base, QColor(colors.base));
    palette.setColor(QPalette::AlternateBase, QColor(colors.window));
    palette.setColor(QPalette::Highlight, QColor(colors.accent));
    palette.setColor(QPalette::HighlightedText, QColor(colors.onAccent));
    palette.setColor(QPalette::ToolTipBase, QColor(colors.base));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(colors.text));
        palette.setColor(QPalette::Disabled, role, QColor(colors.faint));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(colors.faint));
    return palette;
}

} // namespace

void Appearance::apply(bool isDark)
{
    if (QApplication::style()->name() != QLatin1String("fusion"))
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QApplication::setPalette(paletteOf(isDark ? dark : light));
}

} // namespace Editor
