#pragma once

#include <figura/shape/Shape.h>

#include <QStringList>

#include <functional>

namespace Velmora::Figura::Test {

/// A figure of class Base that writes down, in order, what it reports as damaged or invalid.
template<typename Base>
class FigureProbe : public Base
{
public:
    using Base::Base;
    using Base::calculateContentSize;
    using Base::drawFigure;
    using Base::repaint;

    QStringList log;
    std::function<QString()> detail; ///< When set, what it says is added to every entry.

    void note(const QString &entry)
    {
        log.append(detail ? entry + QLatin1Char(' ') + detail() : entry);
    }

    void erase() override
    {
        note(QStringLiteral("erase"));
        Base::erase();
    }

    void revalidate() override
    {
        note(QStringLiteral("revalidate"));
        Base::revalidate();
    }

    void repaint() override
    {
        note(QStringLiteral("repaint"));
        Base::repaint();
    }
};

/// The same for sizes: also writes down which limits are set, in order.
template<typename Base>
class SizeProbe : public FigureProbe<Base>
{
public:
    using FigureProbe<Base>::FigureProbe;

    bool setMinimumSize(const QSize &size) override
    {
        noteSize(QStringLiteral("minimum"), size);
        return Base::setMinimumSize(size);
    }

    bool setMaximumSize(const QSize &size) override
    {
        noteSize(QStringLiteral("maximum"), size);
        return Base::setMaximumSize(size);
    }

    bool setPreferredSize(const QSize &size) override
    {
        noteSize(QStringLiteral("preferred"), size);
        return Base::setPreferredSize(size);
    }

private:
    void noteSize(const QString &limit, const QSize &size)
    {
        this->note(QStringLiteral("%1 %2x%3").arg(limit).arg(size.width()).arg(size.height()));
    }
};

/// The same for shapes: also writes down when the path is due, and when it is rebuilt.
template<typename Base>
class ShapeProbe : public FigureProbe<Base>
{
public:
    using Base::absolutePath;
    using Base::clipToPath;
    using Base::drawShape;
    using Base::getPainterPath;
    using Base::painterPath;

    QList<QRectF> announcedRects;   ///< What pathChanged() said.
    QList<QRectF> regeneratedRects; ///< What regeneratePath() was called with.

    explicit ShapeProbe(QObject *parent = nullptr)
        : FigureProbe<Base>(parent)
    {
        QObject::connect(this, &Shape::pathChanged, this, [this](const QRectF &rect) {
            announcedRects.append(rect);
            this->note(QStringLiteral("pathChanged"));
        });
        QObject::connect(this, &Figure::figureMoved, this,
                         [this] { this->note(QStringLiteral("figureMoved")); });
    }

    void regeneratePath(const QRectF &rect) override
    {
        regeneratedRects.append(rect);
        this->note(QStringLiteral("regeneratePath"));
        Base::regeneratePath(rect);
    }
};

} // namespace Velmora::Figura::Test
