#include "subject.h"

#include <figura/figure/FocusBorder.h>
#include <figura/figure/ScaledBorder.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/TextFigure.h>

namespace Velmora::Figura::Test {
namespace {

QPixmap chequered()
{
    QImage image(23, 17, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, (x + y) % 3 ? QColor(40, 80, 160) : QColor(255, 255, 255));
    }
    return QPixmap::fromImage(image);
}

void place(Subject &subject, Figure *figure, const QRect &constraint)
{
    subject.stage.stage.add(figure, constraint);
    subject.figure = figure;
}

void addAllSteps(Subject &subject)
{
    addBoundsSteps(subject);
    addFigureSteps(subject);
    addProbeSteps(subject);
}

void buildPlain(Subject &subject)
{
    auto *figure = new Figure(&subject.stage.stage, QColor(190, 255, 190));
    place(subject, figure, subject.stage.units(40, 35, 61, 47));
    addAllSteps(subject);
}

// Letters that lean out of their box, in a size that fits any scale.
void buildText(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *text = new TextFigure(QStringLiteral("jf\u00c5\u1ea4y/"), &stage.stage);
    QFont font;
    font.setItalic(true);
    font.setPixelSize(stage.units(18) + 4);
    text->setFont(font);
    text->setBackgroundColor(Qt::transparent);
    const QPoint corner = stage.units(40, 35, 1, 1).topLeft();
    place(subject, text, QRect(corner, QSize(-1, -1)));

    subject.then("has another text", [=] { text->setText(QStringLiteral("f\u0301gJ")); });
    subject.then("has another colour", [=] { text->setTextColor(Qt::darkRed); });
    subject.then("is fitted", [=] { text->setBounds(QRect(corner, text->getPreferredSize())); });
    subject.then("is aligned", [=] { text->setAlignment(Qt::AlignRight | Qt::AlignBottom); });
    subject.then("is indented", [=] { text->setIndent(3); });
    addAllSteps(subject);
}

void buildPixmap(Subject &subject)
{
    auto *figure = new PixmapFigure(chequered(), &subject.stage.stage);
    place(subject, figure, subject.stage.units(40, 35, 61, 47));
    subject.then("has another pixmap", [=] { figure->setPixmap(chequered().scaled(9, 30)); });
    addAllSteps(subject);
}

void buildLabel(Subject &subject)
{
    PixelStage &stage = subject.stage;
    auto *label = new LabelFigure(QStringLiteral("Wf"), chequered(), Qt::Horizontal, &stage.stage,
                                  QColor(235, 235, 255));
    const QPoint corner = stage.units(40, 35, 1, 1).topLeft();
    place(subject, label, QRect(corner, QSize(-1, -1)));
    subject.then("has another text", [=] { label->setText(QStringLiteral("longer text")); });
    subject.then("has another pixmap", [=] { label->setPixmap(chequered().scaled(30, 9)); });
    addAllSteps(subject);
}

template<class BorderType>
BorderType *bordered(Subject &subject, BorderType *border)
{
    buildPlain(subject);
    border->setParent(subject.figure);
    border->setColor(QColor(160, 60, 0));
    subject.figure->setBorder(border);
    subject.figure->repaint();
    return border;
}

// The setters of borders only store: the application repaints.
void addBorderSteps(Subject &subject, Border *border)
{
    Figure *figure = subject.figure;
    const auto change = [&](const QByteArray &name, auto act) {
        subject.then(name, [=] {
            act();
            figure->repaint();
        });
    };
    change("has its border again", [=] { figure->setBorder(border); });
    change("has a wide border", [=] { border->setInsets(Insets(9, 9, 9, 9)); });
    subject.then("moves", [=] { figure->setBounds(figure->getBounds().translated(3, 2)); });
    change("has a dashed border", [=] { border->setPenStyle(Qt::DashLine); });
    change("has an uneven border", [=] { border->setInsets(Insets(1, 7, 4, 2)); });
    change("has a thin border", [=] { border->setInsets(Insets(1, 1, 1, 1)); });
    subject.then("moves back", [=] { figure->setBounds(figure->getBounds().translated(-3, -2)); });
    addProbeSteps(subject);
}

void buildSimpleBorder(Subject &subject)
{
    addBorderSteps(subject, bordered(subject, new SimpleBorder(nullptr, subject.lineWidth)));
}

void buildScaledBorder(Subject &subject)
{
    ScaledBorder *border = bordered(subject, new ScaledBorder(nullptr, subject.lineWidth));
    border->setInnerMarginBorder(subject.lineWidth % 2 ? 4 : 0);
    addBorderSteps(subject, border);
}

void buildFocusBorder(Subject &subject)
{
    addBorderSteps(subject, bordered(subject, new FocusBorder(nullptr)));
}

} // namespace

QList<Kind> contentKinds()
{
    return {{"plain figure", buildPlain},
            {"text", buildText},
            {"pixmap", buildPixmap},
            {"label", buildLabel},
            {"simple border", buildSimpleBorder},
            {"scaled border", buildScaledBorder},
            {"focus border", buildFocusBorder}};
}

} // namespace Velmora::Figura::Test
