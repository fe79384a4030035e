#pragma once

#include <figura/export.h>

#include <QObject>

class QRect;

namespace Velmora::Figura {

class Figure;

/// Collects what is stale in a displayed figure tree; UpdateManager documents each operation.
class FIGURA_EXPORT IUpdateManager
{
public:
    virtual ~IUpdateManager();

    virtual void addDirtyRegion(Figure *figure, const QRect &rect) = 0;
    virtual void addDirtyRegion(const QRect &rect) = 0;
    virtual void addInvalidFigure(Figure *figure) = 0;
    virtual void performUpdate() = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IUpdateManager, "IUpdateManager.Figura.Velmora.velmora.org")
