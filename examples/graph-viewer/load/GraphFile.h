#pragma once

#include <QByteArray>
#include <QString>

namespace GraphViewer {

/// The text of a graph file, or one line that says why there is none.
struct FileText
{
    QByteArray text;
    QString error;
};

/// Reads graph files, also those compressed with gzip.
namespace GraphFile {

/// What a file may hold, unpacked. The largest real graphs that the layout engines cope with are
/// well below a tenth of it.
inline constexpr qint64 MaximumSize = 16 * 1024 * 1024;

FileText read(const QString &path, qint64 maximumSize = MaximumSize);

} // namespace GraphFile

} // namespace GraphViewer
