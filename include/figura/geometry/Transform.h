#pragma once

#include <figura/export.h>

#include <QObject>

class QPoint;

namespace Velmora::Figura {

/// Maps integer points: scales first, then rotates about (0, 0), then translates.
class FIGURA_EXPORT Transform : public QObject
{
    Q_OBJECT

public:
    explicit Transform(QObject *parent = nullptr); ///< The identity.
    ~Transform() override;

    void setScale(double scale);                  ///< The same factor in both directions.
    void setScale(double sx, double sy);          ///< One factor for each direction.
    void setTranslation(double dx, double dy);    ///< Replaces the translation.
    void setRotation(double radians);             ///< Replaces the rotation, from x toward y.
    QPoint getTransformed(const QPoint &p) const; ///< \a p mapped; halves round away from zero.

private:
    double m_scaleX = 1.0;
    double m_scaleY = 1.0;
    double m_dx = 0.0;
    double m_dy = 0.0;
    double m_cos = 1.0;
    double m_sin = 0.0;
};

} // namespace Velmora::Figura
