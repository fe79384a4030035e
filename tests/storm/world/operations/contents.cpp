#include "../world.h"

#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/TextFigure.h>

// Texts, fonts and pixmaps.

namespace Velmora::Figura::Storm {
namespace {

QString text(Numbers &numbers)
{
    return QStringLiteral("a storm is coming").left(numbers.below(14));
}

QPixmap pixmap(Numbers &numbers)
{
    const int width = numbers.below(24);
    QPixmap made(width, numbers.between(1, 24));
    made.fill(QColor(140, 60, 30));
    return made;
}

void setText(World &world, Numbers &numbers)
{
    if (auto *figure = world.pick<TextFigure>(numbers))
        figure->setText(text(numbers));
}

void setFont(World &world, Numbers &numbers)
{
    auto *figure = world.pick<TextFigure>(numbers);
    if (!figure)
        return;
    QFont font = figure->getFont();
    font.setPixelSize(numbers.between(6, 20));
    font.setItalic(numbers.coin());
    figure->setFont(font);
}

void setIndent(World &world, Numbers &numbers)
{
    if (auto *figure = world.pick<TextFigure>(numbers))
        figure->setIndent(numbers.between(-1, 9));
}

void setTextLook(World &world, Numbers &numbers)
{
    const QPointer<TextFigure> figure = world.pick<TextFigure>(numbers);
    if (!figure)
        return;
    figure->setTextColor(numbers.color());
    if (figure)
        figure->setAlignment(numbers.oneOf<Qt::Alignment>(
            {Qt::AlignLeft, Qt::AlignCenter, Qt::AlignRight | Qt::AlignBottom}));
    if (figure)
        figure->setSnapToGrid(numbers.coin());
}

void setPixmap(World &world, Numbers &numbers)
{
    if (auto *figure = world.pick<PixmapFigure>(numbers))
        figure->setPixmap(pixmap(numbers));
}

void setLabel(World &world, Numbers &numbers)
{
    auto *label = world.pick<LabelFigure>(numbers);
    if (!label)
        return;
    if (numbers.coin())
        label->setText(text(numbers));
    else
        label->setPixmap(pixmap(numbers));
}

// The parts stay with the former layout, as documented.
void turnLabel(World &world, Numbers &numbers)
{
    const QPointer<LabelFigure> label = world.pick<LabelFigure>(numbers);
    if (!label)
        return;
    world.noteForgotten(label->childFigures());
    label->setOrientation(numbers.coin() ? Qt::Vertical : Qt::Horizontal);
    world.stage.askForFullRepaint();
}

} // namespace

QList<Entry> contentOperations()
{
    return {
        {"setText", 2, 12, Place::Anywhere, setText},
        {"setFont", 3, 6, Place::Anywhere, setFont},
        {"setIndent", 2, 4, Place::Anywhere, setIndent},
        {"setTextLook", 4, 5, Place::Anywhere, setTextLook},
        {"setPixmap", 3, 6, Place::Anywhere, setPixmap},
        {"setLabel", 4, 6, Place::Anywhere, setLabel},
        {"turnLabel", 2, 2, Place::Anywhere, turnLabel},
    };
}

} // namespace Velmora::Figura::Storm
