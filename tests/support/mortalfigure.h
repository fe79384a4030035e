#pragma once

#include "fate.h"

#include <figura/figure/Figure.h>

namespace Velmora::Figura::Test {

/// A figure of class Base that announces what is asked of it.
template<class Base>
class MortalFigure : public Mortal<Base>
{
public:
    using Mortal<Base>::Mortal;
    using Mortal<Base>::with;
    using Base::repaint;

    // Sizes and bounds.

    QRect resolveBounds(const QRect &rect) override
    {
        return with("resolveBounds", [&] { return Base::resolveBounds(rect); });
    }
    QSize getPreferredSize() override
    {
        return with("getPreferredSize", [&] { return Base::getPreferredSize(); });
    }
    QSize getMinimumSize() override
    {
        return with("getMinimumSize", [&] { return Base::getMinimumSize(); });
    }
    QSize calculateContentSize() override
    {
        return with("calculateContentSize", [&] { return Base::calculateContentSize(); });
    }
    void setBounds(const QRect &rect) override
    {
        with("setBounds", [&] { Base::setBounds(rect); });
    }
    void translate(int dx, int dy) override
    {
        with("translate", [&] { Base::translate(dx, dy); });
    }
    void primTranslate(int dx, int dy) override
    {
        with("primTranslate", [&] { Base::primTranslate(dx, dy); });
    }

    // Searches.

    bool contains(const QPoint &point) const override
    {
        return with("contains", [&] { return Base::contains(point); });
    }
    bool isContained(const QRect &rect) const override
    {
        return with("isContained", [&] { return Base::isContained(rect); });
    }
    bool isIntersecting(const QRect &rect) const override
    {
        return with("isIntersecting", [&] { return Base::isIntersecting(rect); });
    }

    // Painting and validation.

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        with("render", [&] { Base::render(painter, option); });
    }
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        with("drawBackground", [&] { Base::drawBackground(painter, option); });
    }
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        with("drawFigure", [&] { Base::drawFigure(painter, option); });
    }
    void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                    const Border *border) const override
    {
        with("drawBorder", [&] { Base::drawBorder(painter, option, border); });
    }
    void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        with("drawChildren", [&] { Base::drawChildren(painter, option); });
    }
    void invalidate() override
    {
        with("invalidate", [&] { Base::invalidate(); });
    }
    void validate() override
    {
        with("validate", [&] { Base::validate(); });
    }
    void layout() override
    {
        with("layout", [&] { Base::layout(); });
    }
    void erase() override
    {
        with("erase", [&] { Base::erase(); });
    }
    void revalidate() override
    {
        with("revalidate", [&] { Base::revalidate(); });
    }
    void repaint(const QRect &rect) override
    {
        with("repaint", [&] { Base::repaint(rect); });
    }

    // The tree.

    void setParentFigure(Figure *parent) override
    {
        with("setParentFigure", [&] { Base::setParentFigure(parent); });
    }
    void addNotify() override
    {
        with("addNotify", [&] { Base::addNotify(); });
    }
    void removeNotify() override
    {
        with("removeNotify", [&] { Base::removeNotify(); });
    }
};

} // namespace Velmora::Figura::Test
