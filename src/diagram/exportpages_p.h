#pragma once

#include <figura/diagram/exportDiagram.h>

#include <QTransform>

#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace Velmora::Figura {

/// What is exported: a diagram, or a part of it, in its area.
struct ExportSubject
{
    Diagram *diagram = nullptr;
    QList<Figure *> figures;
    QRect area;
    QColor background;

    /// In content coordinates.
    void paint(QPainter *painter) const;
};

/// How a subject is spread over pages.
struct ExportPages
{
    /// \a paper is the size of a page in pixels, and \a unit that of a content unit that is not
    /// shrunk.
    ExportPages(const DiagramExport &options, const QRect &subject, const QSizeF &paper,
                double unit);

    int count() const { return columns * rows; }
    QTransform transform(int index) const; ///< From content coordinates to a page.

    QRect area;
    QSizeF page;
    double scale = 1.0;
    int columns = 1;
    int rows = 1;
};

/// Paints all pages; \a newPage is called between them. False when it or the painter fails.
bool paintPages(QPainter *painter, const ExportSubject &subject, const ExportPages &pages,
                const std::function<bool()> &newPage);

} // namespace Velmora::Figura
