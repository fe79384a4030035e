#include "scene/LaneFigure.h"

#include "scene/TextBlock.h"

#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>

#include <QStyleOptionViewItem>

using Velmora::Figura::Figure;
using Velmora::Figura::HBoxLayout;
using Velmora::Figura::Layout;
using Velmora::Figura::VBoxLayout;

namespace Editor {
namespace {

constexpr int padding = 10;
constexpr int spacing = 14;

constexpr Qt::Orientations bothWays = Qt::Horizontal | Qt::Vertical;

/// Has the figures of a lane.
class Body : public Figure
{
public:
    using Figure::Figure;

protected:
    // The first figure begins where the clip does: zoomed, it would lose its outline there.
    void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        QStyleOptionViewItem wider(option);
        wider.rect.adjust(-1, -1, 1, 1);
        Figure::drawChildren(painter, wider);
    }
};

} // namespace

LaneFigure::LaneFigure(QObject *parent)
    : Rectangle(parent)
    , m_title(new TextBlock(this))
    , m_body(new Body(this))
{
    auto *layout = new VBoxLayout(this);
    layout->setSpacing(0);
    setLayoutManager(layout);
    m_title->setExpandingDirections(bothWays);
    m_title->setMinimumSize({0, titleHeight});
    add(m_title);
    m_body->setMargin(padding);
    m_body->setLayoutManager(createLayout());
    add(m_body, 1, 1, -1);
}

Layout *LaneFigure::createLayout() const
{
    Layout *layout = m_flow == Qt::Vertical ? static_cast<Layout *>(new VBoxLayout(m_body))
                                            : new HBoxLayout(m_body);
    layout->setSpacing(spacing);
    layout->setAlignment(Qt::AlignCenter);
    return layout;
}

// A layout keeps its children when another one takes its place.
void LaneFigure::setFlow(Qt::Orientation flow)
{
    if (flow == m_flow)
        return;
    m_flow = flow;
    Layout *former = m_body->getLayoutManager();
    QList<QVariant> sizes;
    const QList<Figure *> all = figures();
    for (Figure *figure : all) {
        sizes << former->getConstraint(figure);
        m_body->remove(figure);
    }
    m_body->setLayoutManager(createLayout());
    delete former;
    for (qsizetype i = 0; i < all.size(); ++i)
        m_body->add(all.at(i), sizes.at(i));
    m_body->revalidate();
    repaint();
}

QSize LaneFigure::getMinimumSize()
{
    return {0, 0};
}

void LaneFigure::insert(Figure *figure, const QSize &size, int index)
{
    m_body->add(figure, size, index);
    m_body->revalidate();
}

void LaneFigure::take(Figure *figure)
{
    m_body->remove(figure);
    m_body->revalidate();
    repaint();
}

void LaneFigure::resize(Figure *figure, const QSize &size)
{
    m_body->getLayoutManager()->setConstraint(figure, size);
    m_body->revalidate();
    repaint();
}

QList<Figure *> LaneFigure::figures() const
{
    return m_body->childFigures();
}

QRect LaneFigure::absolute(Figure *figure) const
{
    QRect rect = figure->getBounds();
    return figure->translateToAbsolute(rect);
}

int LaneFigure::indexAt(const QPoint &point) const
{
    const auto isBefore = [&](Figure *figure) {
        const QPoint middle = absolute(figure).center();
        return m_flow == Qt::Vertical ? middle.y() < point.y() : middle.x() < point.x();
    };
    const QList<Figure *> all = figures();
    return static_cast<int>(std::count_if(all.cbegin(), all.cend(), isBefore));
}

QRect LaneFigure::gapAt(int index) const
{
    const QList<Figure *> all = figures();
    QRect body = absolute(m_body).adjusted(padding, padding, -padding, -padding);
    const bool isFirst = index <= 0 || all.isEmpty();
    const QRect neighbour =
        all.isEmpty() ? body : absolute(all.at(qBound(0, index - 1, int(all.size()) - 1)));
    constexpr int thickness = 3;
    if (m_flow == Qt::Vertical) {
        const int y = isFirst ? neighbour.top() - spacing / 2 : neighbour.bottom() + spacing / 2;
        return {body.left(), y - 1, body.width(), thickness};
    }
    const int x = isFirst ? neighbour.left() - spacing / 2 : neighbour.right() + spacing / 2;
    return {x - 1, body.top(), thickness, body.height()};
}

} // namespace Editor
