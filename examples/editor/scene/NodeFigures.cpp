#include "scene/NodeFigures.h"

#include "model/Node.h"
#include "scene/DiamondFigure.h"
#include "scene/LaneFigure.h"
#include "scene/PictureFigure.h"
#include "scene/TextBlock.h"
#include "scene/Theme.h"
#include "specimens/SpecimenFigure.h"

#include <figura/layout/VBoxLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/RoundedRectangle.h>

using namespace Velmora::Figura;

namespace Editor {
namespace {

constexpr int textMargin = 4;

// In a box layout: unlike a stack it has coordinates of its own, so that the text does not move
// when the canvas grows to the left.
void addText(Figure *figure)
{
    auto *layout = new VBoxLayout(figure);
    layout->setExpandingDirections({}); // in a lane a node keeps its size
    figure->setMargin(textMargin);
    figure->setLayoutManager(layout);
    auto *text = new TextBlock(figure);
    text->setExpandingDirections(Qt::Horizontal | Qt::Vertical);
    figure->add(text, 1, 1, -1);
}

template<class Box>
Figure *createBox(QObject *parent)
{
    auto *box = new Box(parent);
    addText(box);
    return box;
}

// The title of a lane and the caption of a specimen are not upon the fill.
QColor inkOf(const Node &node, const Theme &theme)
{
    const bool isBeside = node.kind == NodeKind::Lane || node.kind == NodeKind::Specimen;
    const QColor usual = isBeside ? theme.text : theme.textOn(node.style.fill);
    return Theme::resolved(node.style.text, usual);
}

void updateText(TextBlock *text, const Node &node, const Theme &theme)
{
    text->setFont(TextBlock::fontOf(node.style));
    text->setColor(inkOf(node, theme));
    text->setText(node.text);
}

void updateShape(Shape *shape, const Style &style, const QColor &line, const QColor &fill)
{
    const bool widthChanged = shape->getLineWidth() != style.lineWidth;
    shape->setEnabledFGColor(Theme::resolved(style.line, line));
    shape->setEnabledBGColor(Theme::resolved(style.fill, fill));
    shape->setLineStyle(style.lineStyle);
    shape->setLineWidth(style.lineWidth);
    if (widthChanged)
        shape->rebuildPath(); // whose inset still is that of the former width
}

void updateLane(LaneFigure *lane, const Node &node, const Theme &theme)
{
    updateShape(lane, node.style, theme.line, theme.laneFill);
    lane->title()->setBackgroundColor(theme.laneTitle);
    lane->setFlow(node.flow);
}

void updateSpecimen(SpecimenFigure *specimen, const Node &node, const Theme &theme)
{
    updateShape(specimen, node.style, theme.laneTitle, theme.paper);
    specimen->setColors(theme);
}

} // namespace

Figure *NodeFigures::create(const Node &node, QObject *parent)
{
    switch (node.kind) {
    case NodeKind::Rectangle:
        return createBox<Rectangle>(parent);
    case NodeKind::Rounded:
        return createBox<RoundedRectangle>(parent);
    case NodeKind::Ellipse:
        return createBox<Ellipse>(parent);
    case NodeKind::Diamond:
        return createBox<DiamondFigure>(parent);
    case NodeKind::Text:
        return new TextBlock(parent);
    case NodeKind::Picture:
        return new PictureFigure(parent);
    case NodeKind::Lane:
        return new LaneFigure(parent);
    case NodeKind::Specimen:
        return new SpecimenFigure(node.specimen, parent);
    }
    return nullptr;
}

TextBlock *NodeFigures::textOf(Figure *figure)
{
    if (auto *text = qobject_cast<TextBlock *>(figure))
        return text;
    if (auto *lane = qobject_cast<LaneFigure *>(figure))
        return lane->title();
    if (auto *specimen = qobject_cast<SpecimenFigure *>(figure))
        return specimen->caption();
    return figure->findChild<TextBlock *>(QString(), Qt::FindDirectChildrenOnly);
}

void NodeFigures::update(Figure *figure, const Node &node, const Theme &theme)
{
    if (auto *lane = qobject_cast<LaneFigure *>(figure))
        updateLane(lane, node, theme);
    else if (auto *specimen = qobject_cast<SpecimenFigure *>(figure))
        updateSpecimen(specimen, node, theme);
    else if (auto *shape = qobject_cast<Shape *>(figure))
        updateShape(shape, node.style, theme.line, theme.fill);
    else if (auto *picture = qobject_cast<PictureFigure *>(figure))
        picture->setPicture(node.picture);
    else
        figure->setBackgroundColor(Theme::resolved(node.style.fill, Qt::transparent));
    if (TextBlock *text = textOf(figure))
        updateText(text, node, theme);
}

} // namespace Editor
