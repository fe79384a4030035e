#include "scene/Theme.h"

namespace Editor {

const Theme &Theme::light()
{
    static const Theme theme{
        .paper = QColor(0xffffff),
        .line = QColor(0x37474f),
        .fill = QColor(0xe8f1fb),
        .text = QColor(0x17222b),
        .laneFill = QColor(0xf6f8fa),
        .laneTitle = QColor(0xdde5ec),
        .accent = QColor(0x1a73e8),
    };
    return theme;
}

const Theme &Theme::dark()
{
    static const Theme theme{
        .paper = QColor(0x1d2125),
        .line = QColor(0x9fb3c2),
        .fill = QColor(0x2c3a47),
        .text = QColor(0xe6edf3),
        .laneFill = QColor(0x23292f),
        .laneTitle = QColor(0x313b45),
        .accent = QColor(0x6cb0ff),
    };
    return theme;
}

QColor Theme::textOn(const QColor &chosen) const
{
    constexpr int hardlyThere = 128; // then the paper shows
    if (!chosen.isValid() || chosen.alpha() < hardlyThere)
        return text;
    constexpr int middle = 140;
    return qGray(chosen.rgb()) > middle ? light().text : dark().text;
}

} // namespace Editor
