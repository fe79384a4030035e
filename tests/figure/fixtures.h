#pragma once

#include <countingfigure.h>

#include <figura/layout/Layout.h>

#include <QSize>
#include <QStringList>

namespace Velmora::Figura::Test {

/// A layout that leaves its children where they are and counts what is asked of it.
class PlainLayout : public Layout
{
public:
    explicit PlainLayout(bool relative = true)
        : m_relative(relative)
    {
    }

    QSize preferredSize;
    QSize minimumSize;
    bool succeeds = true;  ///< What performLayout() answers.
    QList<QRect> laidOut;  ///< The areas that performLayout() was called with.
    int invalidations = 0; ///< Calls of invalidate().
    int renderings = 0;    ///< Calls of render().

    bool isRelativeLayout() const override { return m_relative; }

    void invalidate() override
    {
        ++invalidations;
        Layout::invalidate();
    }

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        ++renderings;
        Layout::render(painter, option);
    }

protected:
    QSize calculatePreferredSize() override { return preferredSize; }
    QSize calculateMinimumSize() override { return minimumSize; }

    bool performLayout(const QRect &clientArea) override
    {
        laidOut.append(clientArea);
        return succeeds;
    }

private:
    bool m_relative;
};

/// A figure whose protected operations can be called from outside.
class OpenFigure : public CountingFigure
{
public:
    using CountingFigure::CountingFigure;
    using CountingFigure::drawBackground;
    using CountingFigure::drawBorder;
    using CountingFigure::drawChildren;
    using CountingFigure::drawFigure;
    using CountingFigure::layout;
    using CountingFigure::primTranslate;
    using Figure::applyMargin;
    using Figure::calculateContentSize;
    using Figure::isValid;
    using Figure::isValidateRoot;
    using Figure::removeMargin;
    using Figure::setChildrenEnabled;
    using Figure::setFlag;
    using Figure::setValid;
};

/// A figure with a plain layout of its own, so that it can have children.
class ParentFigure : public OpenFigure
{
public:
    explicit ParentFigure(bool relative = true)
        : plain(new PlainLayout(relative))
    {
        plain->setParent(this);
        setLayoutManager(plain);
    }

    PlainLayout *plain;
};

/// A figure that writes down, in a list shared with others, what happens to it and in which order.
class LoggingFigure : public ParentFigure
{
public:
    explicit LoggingFigure(const QString &name, QStringList *log)
        : m_name(name)
        , m_log(log)
    {
        connect(this, &Figure::figureMoved, this, [this] { note("figureMoved"); });
    }

    using ParentFigure::repaint;

    void erase() override
    {
        note("erase");
        ParentFigure::erase();
    }

    void revalidate() override
    {
        note("revalidate");
        ParentFigure::revalidate();
    }

    void invalidate() override
    {
        note("invalidate");
        ParentFigure::invalidate();
    }

    void validate() override
    {
        note("validate");
        ParentFigure::validate();
    }

    void repaint() override
    {
        note("repaint");
        ParentFigure::repaint();
    }

    void translate(int dx, int dy) override
    {
        note("translate");
        ParentFigure::translate(dx, dy);
    }

    void setEnabled(bool enabled) override
    {
        note("setEnabled");
        ParentFigure::setEnabled(enabled);
    }

    void addNotify() override
    {
        note("addNotify");
        ParentFigure::addNotify();
    }

    void removeNotify() override
    {
        note("removeNotify");
        ParentFigure::removeNotify();
    }

    void primTranslate(int dx, int dy) override
    {
        note("primTranslate");
        ParentFigure::primTranslate(dx, dy);
    }

protected:
    void layout() override
    {
        note("layout");
        ParentFigure::layout();
    }

    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        note("background");
        ParentFigure::drawBackground(painter, option);
    }

    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        note("figure");
        ParentFigure::drawFigure(painter, option);
    }

    void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                    const Border *border) const override
    {
        note("border");
        ParentFigure::drawBorder(painter, option, border);
    }

private:
    void note(const char *event) const
    {
        if (m_log)
            m_log->append(m_name + QLatin1Char(' ') + QLatin1String(event));
    }

    QString m_name;
    QStringList *m_log;
};

} // namespace Velmora::Figura::Test
