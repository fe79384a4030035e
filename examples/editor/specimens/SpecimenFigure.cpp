#include "specimens/SpecimenFigure.h"

#include "scene/TextBlock.h"
#include "scene/Theme.h"
#include "specimens/Specimens.h"

#include <figura/decoration/PolygonDecoration.h>
#include <figura/figure/Border.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/TextFigure.h>

using namespace Velmora::Figura;

namespace Editor {
namespace {

constexpr int captionHeight = 22;
constexpr int stageMargin = 6;
constexpr int roundness = 6;

void color(Shape *shape, const Theme &theme)
{
    const bool solid = qobject_cast<PolygonDecoration *>(shape);
    shape->setEnabledFGColor(theme.line);
    shape->setEnabledBGColor(solid ? theme.line : theme.fill);
}

void colorTree(Figure *figure, const Theme &theme)
{
    if (auto *shape = qobject_cast<Shape *>(figure))
        color(shape, theme);
    if (auto *text = qobject_cast<TextFigure *>(figure)) {
        text->setBackgroundColor(Qt::transparent);
        text->setTextColor(theme.text);
    }
    if (Border *border = figure->getBorder())
        border->setColor(theme.line);
    const QList<Figure *> children = figure->childFigures();
    for (Figure *child : children)
        colorTree(child, theme);
}

/// As large as there is room, whatever is on it, so that all captions are at one height.
class Stage : public Figure
{
public:
    using Figure::Figure;

    QSize getMinimumSize() override { return {0, 0}; }
    QSize getPreferredSize() override { return {0, 0}; }
};

} // namespace

SpecimenFigure::SpecimenFigure(const QString &specimen, QObject *parent)
    : RoundedRectangle(parent)
    , m_stage(new Stage(this))
    , m_caption(new TextBlock(this))
{
    setXRnd(roundness);
    setYRnd(roundness);
    auto *layout = new VBoxLayout(this);
    layout->setSpacing(0);
    layout->setExpandingDirections({});
    setLayoutManager(layout);
    m_stage->setMargin(stageMargin);
    m_stage->setLayoutManager(new XYLayout(m_stage));
    add(m_stage, 1, 1, -1);
    m_caption->setExpandingDirections(Qt::Horizontal | Qt::Vertical);
    m_caption->setMinimumSize({0, captionHeight});
    add(m_caption);
    Specimens::build(specimen, m_stage);
}

void SpecimenFigure::setColors(const Theme &theme)
{
    colorTree(m_stage, theme);
    repaint();
}

} // namespace Editor
