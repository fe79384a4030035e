#include <countingfigure.h>

namespace Velmora::Figura::Test {

const CountingFigure::Calls &CountingFigure::calls() const
{
    return m_calls;
}

const QList<QRect> &CountingFigure::repaintedRects() const
{
    return m_repaintedRects;
}

void CountingFigure::resetCalls()
{
    m_calls = Calls();
    m_repaintedRects.clear();
}

void CountingFigure::addNotify()
{
    ++m_calls.addNotify;
    Figure::addNotify();
}

void CountingFigure::removeNotify()
{
    ++m_calls.removeNotify;
    Figure::removeNotify();
}

void CountingFigure::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    ++m_calls.render;
    Figure::render(painter, option);
}

void CountingFigure::invalidate()
{
    ++m_calls.invalidate;
    Figure::invalidate();
}

void CountingFigure::validate()
{
    ++m_calls.validate;
    Figure::validate();
}

void CountingFigure::translate(int dx, int dy)
{
    ++m_calls.translate;
    Figure::translate(dx, dy);
}

void CountingFigure::erase()
{
    ++m_calls.erase;
    Figure::erase();
}

void CountingFigure::revalidate()
{
    ++m_calls.revalidate;
    Figure::revalidate();
}

void CountingFigure::repaint(const QRect &rect)
{
    ++m_calls.repaint;
    m_repaintedRects.append(rect);
    Figure::repaint(rect);
}

void CountingFigure::layout()
{
    ++m_calls.layout;
    Figure::layout();
}

void CountingFigure::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    ++m_calls.drawBackground;
    Figure::drawBackground(painter, option);
}

void CountingFigure::drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const
{
    ++m_calls.drawFigure;
    Figure::drawFigure(painter, option);
}

void CountingFigure::drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                                const Border *border) const
{
    ++m_calls.drawBorder;
    Figure::drawBorder(painter, option, border);
}

void CountingFigure::drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const
{
    ++m_calls.drawChildren;
    Figure::drawChildren(painter, option);
}

void CountingFigure::primTranslate(int dx, int dy)
{
    ++m_calls.primTranslate;
    Figure::primTranslate(dx, dy);
}

} // namespace Velmora::Figura::Test
