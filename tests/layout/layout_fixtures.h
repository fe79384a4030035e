#pragma once

#include <figura/figure/Figure.h>
#include <figura/layout/ILayoutListener.h>
#include <figura/layout/Layout.h>

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QRect>
#include <QStringList>
#include <QVariant>

#include <functional>

namespace Velmora::Figura::Test {

/// Shows a test what otherwise only subclasses of a layout see.
template<class Base>
class Opened : public Base
{
public:
    using Base::Base;

    using Base::applyConstraint;
    using Base::calculateMinimumSize;
    using Base::calculatePreferredSize;
    using Base::getHelper;
    using Base::getHTotalStretch;
    using Base::getVTotalStretch;
    using Base::isClipping;
    using Base::isLaidOut;
    using Base::performLayout;
    using Base::setLaidOut;
};

/// A figure with a layout manager of the type under test. The layout dies first.
template<class Base>
struct Scene
{
    Scene() { figure.setLayoutManager(&layout); }
    explicit Scene(const QRect &bounds)
        : Scene()
    {
        figure.setBounds(bounds);
    }

    /// The size the layout is asked for, whatever it cached before.
    QSize freshMinimum()
    {
        layout.invalidate();
        return layout.getMinimumSize();
    }
    QSize freshPreferred()
    {
        layout.invalidate();
        return layout.getPreferredSize();
    }

    Figure figure;
    Opened<Base> layout;
};

/// A layout that leaves its children alone, gives the answers it was set to, and counts.
class ProbeLayout : public Opened<Layout>
{
public:
    QSize preferredSize{100, 50};
    QSize minimumSize{10, 5};
    bool performs = true;
    bool clips = true;
    bool relative = true;
    std::function<void()> whilePerforming;

    int preferredCalls = 0;
    int minimumCalls = 0;
    QList<QRect> clientAreas; ///< What performLayout() was called with.

    bool isRelativeLayout() const override { return relative; }
    bool isClipping() const override { return clips; }
    QSize calculatePreferredSize() override
    {
        ++preferredCalls;
        return preferredSize;
    }
    QSize calculateMinimumSize() override
    {
        ++minimumCalls;
        return minimumSize;
    }
    bool performLayout(const QRect &clientArea) override
    {
        clientAreas.append(clientArea);
        if (whilePerforming)
            whilePerforming();
        return performs;
    }
};

/// A figure whose preferred and minimum size are just what was set, whatever their relation.
class SizedFigure : public Figure
{
public:
    explicit SizedFigure(const QSize &preferredSize = QSize(10, 10),
                         const QSize &minimumSize = QSize(0, 0))
        : preferred(preferredSize)
        , minimum(minimumSize)
    {
    }

    QSize preferred;
    QSize minimum;

    QSize getPreferredSize() override { return preferred; }
    QSize getMinimumSize() override { return minimum; }
};

/// A listener, and no QObject, that writes down what it is told.
class ListenerProbe : public ILayoutListener
{
public:
    bool takesOver = false;
    std::function<void(const QString &)> onCall; ///< Is told the name of the operation.

    QStringList calls;
    QList<Figure *> containers;
    QList<QVariant> constraints;

    void invalidate(Figure *container) override { note(QStringLiteral("invalidate"), container); }
    bool layout(Figure *container) override
    {
        note(QStringLiteral("layout"), container);
        return takesOver;
    }
    void postLayout(Figure *container) override { note(QStringLiteral("postLayout"), container); }
    void remove(Figure *container) override { note(QStringLiteral("remove"), container); }
    void setConstraint(Figure *container, const QVariant &constraint) override
    {
        constraints.append(constraint);
        note(QStringLiteral("setConstraint"), container);
    }

private:
    void note(const QString &call, Figure *container)
    {
        calls.append(call);
        containers.append(container);
        if (onCall)
            onCall(call);
    }
};

/// Carries out what deleteLater() has put off.
inline void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace Velmora::Figura::Test
