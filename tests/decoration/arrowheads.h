#pragma once

#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>

#include <QStringList>

#include <memory>

namespace Velmora::Figura::Test {

/// An arrow head of either class, so that a rule which both follow is tested once.
class AnyArrowHead
{
public:
    virtual ~AnyArrowHead() = default;

    virtual Polyline &figure() = 0;
    virtual IRotatableDecoration &rotatable() = 0;
    virtual void setRotation(double radians) = 0;
    virtual void setScale(double x, double y) = 0;
    virtual void setTemplate(const QList<QPoint> &points) = 0;
};

template<typename Decoration>
class ArrowHeadOf : public AnyArrowHead
{
public:
    Polyline &figure() override { return m_decoration; }
    IRotatableDecoration &rotatable() override { return m_decoration; }
    void setRotation(double radians) override { m_decoration.setRotation(radians); }
    void setScale(double x, double y) override { m_decoration.setScale(x, y); }
    void setTemplate(const QList<QPoint> &points) override { m_decoration.setTemplate(points); }

private:
    Decoration m_decoration;
};

inline const QStringList arrowHeadClasses{QStringLiteral("PolygonDecoration"),
                                          QStringLiteral("PolylineDecoration")};

inline std::unique_ptr<AnyArrowHead> makeArrowHead(const QString &className)
{
    if (className == arrowHeadClasses[0])
        return std::make_unique<ArrowHeadOf<PolygonDecoration>>();
    return std::make_unique<ArrowHeadOf<PolylineDecoration>>();
}

} // namespace Velmora::Figura::Test
