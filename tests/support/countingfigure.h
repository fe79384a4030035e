#pragma once

#include <figura/figure/Figure.h>

#include <QList>

namespace Velmora::Figura::Test {

/// A figure that counts the calls of its virtual operations, and otherwise behaves as any figure.
class CountingFigure : public Figure
{
    Q_OBJECT

public:
    struct Calls
    {
        int drawBackground = 0;
        int drawFigure = 0;
        int drawBorder = 0;
        int drawChildren = 0;
        int layout = 0;
        int primTranslate = 0;
        int translate = 0;
        int addNotify = 0;
        int removeNotify = 0;
        int render = 0;
        int invalidate = 0;
        int validate = 0;
        int revalidate = 0;
        int erase = 0;
        int repaint = 0; ///< With a rectangle; the other forms lead there.
    };

    using Figure::Figure;
    using Figure::repaint;

    const Calls &calls() const;
    const QList<QRect> &repaintedRects() const; ///< What repaint() was called with.
    void resetCalls();

    void addNotify() override;
    void removeNotify() override;
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
    void invalidate() override;
    void validate() override;
    void translate(int dx, int dy) override;
    void erase() override;
    void revalidate() override;
    void repaint(const QRect &rect) override;

protected:
    void layout() override;
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                    const Border *border) const override;
    void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void primTranslate(int dx, int dy) override;

private:
    mutable Calls m_calls;
    QList<QRect> m_repaintedRects;
};

} // namespace Velmora::Figura::Test
