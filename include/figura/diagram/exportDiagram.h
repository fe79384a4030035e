#pragma once

#include <figura/diagram/export.h>

#include <QColor>
#include <QList>
#include <QPageLayout>
#include <QRect>
#include <QString>

class QClipboard;
class QIODevice;
class QMimeData;
class QPrinter;

namespace Velmora::Figura {

class Diagram;
class Figure;

/// What exportDiagram() writes.
struct FIGURA_DIAGRAM_EXPORT DiagramExport
{
    /// The kinds of files.
    enum class Format {
        Auto, ///< By the suffix of the file name.
        Svg,
        Pdf,
        Png,
    };

    /// What to write.
    Format format = Format::Auto;
    /// Only these figures and the connections between them; all when empty.
    QList<Figure *> figures;
    QRect area;      ///< In content coordinates; all that is exported when invalid.
    int margin = 10; ///< Around the area, in content units; a negative value counts as 0.
    QColor background = Qt::white; ///< Nothing is painted behind the figures when it is not valid.
    QString title;                 ///< For the properties of the file.
    double devicePixelRatio = 1.0; ///< PNG: pixels for one content unit.

    /// PDF and paper. The area fills one page unless it is tiled; it is never magnified for that.
    QPageLayout pageLayout{QPageSize(QPageSize::A4), QPageLayout::Portrait,
                           QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter};
    bool tiled = false;     ///< As many pages as it takes at tileScale, row by row.
    double tileScale = 1.0; ///< 1 prints a content unit as a 96th of an inch.
};

/// Writes a diagram to a file, which is replaced as a whole or not at all. The figures are painted
/// by their own operations, without feedback and grid; lines stay lines in SVG and PDF.
/// Returns false, and says why in \a error if that is given, when there is nothing to export, the
/// format is unknown, a picture would be too large, or the file cannot be written.
FIGURA_DIAGRAM_EXPORT bool exportDiagram(Diagram *diagram, const QString &path,
                                         const DiagramExport &options = {},
                                         QString *error = nullptr);

/// The same to an open device. The format must be named: Format::Auto is refused.
FIGURA_DIAGRAM_EXPORT bool exportDiagram(Diagram *diagram, QIODevice *device,
                                         const DiagramExport &options, QString *error = nullptr);

/// Adds SVG, PDF and a picture to \a mimeData, for a clipboard or a drag; the format is of no
/// account. What is there in other formats stays.
FIGURA_DIAGRAM_EXPORT bool exportDiagram(Diagram *diagram, QMimeData *mimeData,
                                         const DiagramExport &options = {},
                                         QString *error = nullptr);

/// Makes the same the content of \a clipboard.
FIGURA_DIAGRAM_EXPORT bool exportDiagram(Diagram *diagram, QClipboard *clipboard,
                                         const DiagramExport &options = {},
                                         QString *error = nullptr);

/// Prints on the pages of \a printer, whose page layout counts instead of the one in \a options.
/// The printer's resolution is changed.
FIGURA_DIAGRAM_EXPORT bool exportDiagram(Diagram *diagram, QPrinter *printer,
                                         const DiagramExport &options = {},
                                         QString *error = nullptr);

} // namespace Velmora::Figura
