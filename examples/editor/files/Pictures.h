#pragma once

#include <QByteArray>
#include <QString>

class QImage;
class QSize;

namespace Editor {

/// The bytes of image files, as nodes hold them.
namespace Pictures {

/// Why they cannot be shown; empty for a picture that can be. Looks at the beginning alone.
QString problemOf(const QByteArray &bytes);

QSize sizeOf(const QByteArray &bytes);   ///< In pixels; invalid when it cannot be told.
QImage decoded(const QByteArray &bytes); ///< Null when it is damaged.

/// The bytes of the file at \a path; empty with a \a problem when it holds no picture.
QByteArray load(const QString &path, QString *problem);

} // namespace Pictures

} // namespace Editor
