#pragma once

#include "files/DocumentReader.h"

namespace Editor {

/// Documents on disk.
namespace DocumentFile {

/// The problem begins with \a path.
ReadResult load(const QString &path);

/// Writes all or nothing: a failure leaves the former file as it was. Returns one line that says
/// what went wrong, beginning with \a path; empty when nothing did.
QString save(const QString &path, const Content &content);

/// The two steps below the format, for files that contain a document among other things.
QByteArray readAll(const QString &path, QString *problem);
QString writeAll(const QString &path, const QByteArray &bytes);

} // namespace DocumentFile

} // namespace Editor
