#pragma once

#include <figura/export.h>

#include <QObject>
#include <QRectF>

class QPainter;

namespace Velmora::Figura {

/// Describes a printed page: where the content goes, and what is drawn around it.
class FIGURA_EXPORT PageLayout : public QObject
{
    Q_OBJECT

public:
    /// \a parent owns the page layout as a QObject.
    explicit PageLayout(QObject *parent = nullptr);
    ~PageLayout() override;

    /// The page less 20 mm on every side, in device pixels; empty for a null painter.
    /// The vertical resolution counts for all four sides.
    virtual QRectF getContentRect(QPainter *painter);

    /// Called after each page with its painter, in device pixels: headers, footers, page numbers.
    /// \a data is not used yet and invalid.
    virtual void decoratePage(QPainter *painter, const QVariant &data) = 0;
};

} // namespace Velmora::Figura
