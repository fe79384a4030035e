#pragma once

#include <figura/decoration/Decoration.h>
#include <figura/layout/ILocator.h>

#include <QList>
#include <QStringList>

namespace Velmora::Figura::Test {

/// A decoration that writes down what it asks for, and draws nothing.
class DecorationProbe : public Decoration
{
public:
    using Decoration::Decoration;
    using Decoration::isValid;
    using Decoration::repaint;
    using Decoration::setValid;

    QStringList log;

    void revalidate() override
    {
        log.append(QStringLiteral("revalidate"));
        Decoration::revalidate();
    }

    void repaint() override
    {
        log.append(QStringLiteral("repaint"));
        Decoration::repaint();
    }

protected:
    void regeneratePath(const QRectF &) override {}
};

/// Remembers whom it was asked to place, and places at a fixed rectangle. Not a QObject.
class PlainLocator : public ILocator
{
public:
    QRect bounds{1, 2, 30, 40};
    QList<Figure *> placed;

    void relocate(Figure *target) override
    {
        placed.append(target);
        target->setBounds(bounds);
    }
};

/// The same as a QObject.
class ObjectLocator : public QObject, public PlainLocator
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::ILocator)
};

} // namespace Velmora::Figura::Test
