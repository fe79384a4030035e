#pragma once

#include "world.h"

#include <QScopedValueRollback>

namespace Velmora::Figura::Storm {

/// Told apart from the parts that the library makes for itself.
class Probe
{
public:
    virtual ~Probe() = default;
};

/// A figure of class \a Base that tells the world when it is painted and invalidated.
template<class Base>
class Probed : public Base, public Probe
{
public:
    template<class... Arguments>
    explicit Probed(World &world, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , m_world(world)
    {
    }

    using Base::setFlag;

    void invalidate() override
    {
        m_world.noteInvalidated(this);
        Base::invalidate();
    }

    void validate() override
    {
        m_world.noteValidating(this);
        const QScopedValueRollback<int> within(m_world.validations, m_world.validations + 1);
        Base::validate();
    }

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        const QPointer<QObject> alive(const_cast<Probed *>(this));
        m_world.happens(Moment::Draw);
        if (alive)
            Base::drawFigure(painter, option);
    }

private:
    World &m_world;
};

/// A layout of class \a Base that tells the world when it arranges its children.
template<class Base>
class ProbedLayout : public Base
{
public:
    template<class... Arguments>
    explicit ProbedLayout(World &world, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , m_world(world)
    {
    }

protected:
    bool performLayout(const QRect &clientArea) override
    {
        const QPointer<QObject> alive(this);
        m_world.happens(Moment::Arrange);
        return alive && Base::performLayout(clientArea);
    }

private:
    World &m_world;
};

} // namespace Velmora::Figura::Storm
