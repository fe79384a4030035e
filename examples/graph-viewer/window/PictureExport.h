#pragma once

#include <QString>

class QMimeData;
class QPrinter;

namespace GraphViewer {

class GraphView;

/// Takes the diagram of a view to paper, to a file and to the clipboard.
class PictureExport
{
public:
    /// \a caption is printed below the diagram.
    PictureExport(GraphView *view, const QString &caption);

    void print(QPrinter *printer) const;

    // Each returns one line that says what went wrong; empty when nothing did.
    QString writePdf(const QString &path) const;
    QString copyTo(QMimeData *data) const;

private:
    GraphView *m_view;
    QString m_caption;
};

} // namespace GraphViewer
