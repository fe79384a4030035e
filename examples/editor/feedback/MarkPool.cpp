#include "feedback/MarkPool.h"

#include "scene/Theme.h"

#include <figura/layout/Layout.h>
#include <figura/view/FreeformLayer.h>

using Velmora::Figura::FreeformLayer;

namespace Editor {

MarkPool::MarkPool(FreeformLayer *layer)
    : m_layer(layer)
{
}

MarkPool::~MarkPool()
{
    dropFrom(0);
}

void MarkPool::show(const QList<Mark> &marks, const Theme &theme)
{
    for (qsizetype i = 0; i < marks.size(); ++i) {
        const Mark &mark = marks.at(i);
        if (i < m_figures.size() && m_figures.at(i)->kind() != mark.kind)
            dropFrom(i);
        if (i == m_figures.size())
            m_figures << create(mark, theme);
        else if (mark != m_marks.at(i))
            place(m_figures.at(i), mark);
    }
    dropFrom(marks.size());
    m_marks = marks;
}

void MarkPool::reset()
{
    dropFrom(0);
    m_marks.clear();
}

// Both the constraint and the bounds: the layout takes bounds that are set for the former only once
// it has been laid out.
void MarkPool::place(MarkFigure *figure, const Mark &mark)
{
    figure->setRising(mark.rising);
    m_layer->getLayoutManager()->setConstraint(figure, mark.rect);
    figure->setBounds(mark.rect);
}

MarkFigure *MarkPool::create(const Mark &mark, const Theme &theme)
{
    auto *figure = new MarkFigure(mark.kind, theme.accent, theme.paper, m_layer);
    m_layer->add(figure, mark.rect);
    place(figure, mark);
    return figure;
}

void MarkPool::dropFrom(qsizetype first)
{
    while (m_figures.size() > first) {
        MarkFigure *figure = m_figures.takeLast();
        figure->erase();
        m_layer->remove(figure);
        delete figure;
    }
}

} // namespace Editor
