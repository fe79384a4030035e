#include "FontResolver.h"

#include <QStringList>

namespace GraphViewer {
namespace {

bool hasAny(const QString &text, const QStringList &words)
{
    return std::any_of(words.cbegin(), words.cend(), [&text](const QString &word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

bool isTraits(const QString &suffix)
{
    static const QStringList words = {
        QStringLiteral("Roman"),  QStringLiteral("Regular"), QStringLiteral("Book"),
        QStringLiteral("Light"),  QStringLiteral("Medium"),  QStringLiteral("Demi"),
        QStringLiteral("Bold"),   QStringLiteral("Italic"),  QStringLiteral("Oblique"),
        QStringLiteral("Narrow"), QStringLiteral("Outline")};
    return hasAny(suffix, words);
}

// Which of Qt's fallbacks comes closest where the family is not installed.
QFont::StyleHint hintFor(const QString &family)
{
    static const QStringList serifs = {QStringLiteral("Times"), QStringLiteral("Palatino"),
                                       QStringLiteral("Bookman"), QStringLiteral("Century"),
                                       QStringLiteral("Serif")};
    static const QStringList fixed = {QStringLiteral("Courier"), QStringLiteral("Mono")};
    if (hasAny(family, fixed))
        return QFont::Monospace;
    const bool sans = family.contains(QLatin1String("Sans"), Qt::CaseInsensitive);
    return !sans && hasAny(family, serifs) ? QFont::Serif : QFont::SansSerif;
}

void applyPostScriptTraits(QFont *font, const QString &traits)
{
    if (hasAny(traits, {QStringLiteral("Bold"), QStringLiteral("Demi")}))
        font->setBold(true);
    if (hasAny(traits, {QStringLiteral("Italic"), QStringLiteral("Oblique")}))
        font->setItalic(true);
    if (hasAny(traits, {QStringLiteral("Narrow")}))
        font->setStretch(QFont::SemiCondensed);
}

void applyLabelTraits(QFont *font, int traits)
{
    if (traits & TextStyle::Bold)
        font->setBold(true);
    if (traits & TextStyle::Italic)
        font->setItalic(true);
    font->setUnderline(traits & TextStyle::Underline);
    font->setOverline(traits & TextStyle::Overline);
    font->setStrikeOut(traits & TextStyle::StrikeThrough);
}

} // namespace

QFont FontResolver::font(const TextStyle &style)
{
    const QString traits = style.face.section(QLatin1Char('-'), 1);
    const bool postScript = isTraits(traits);
    const QString family = postScript ? style.face.section(QLatin1Char('-'), 0, 0) : style.face;

    QFont font(family);
    font.setStyleHint(hintFor(family));
    font.setPixelSize(qMax(1, qRound(style.size)));
    // Text is scaled with the picture, so glyphs must not snap to the pixels of scale 1.
    font.setHintingPreference(QFont::PreferNoHinting);
    if (postScript)
        applyPostScriptTraits(&font, traits);
    applyLabelTraits(&font, style.traits);
    return font;
}

} // namespace GraphViewer
