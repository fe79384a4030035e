#pragma once

#include <QByteArray>

namespace GraphViewer {

namespace Gunzip {

enum class Result { Done, Damaged, TooLarge };

bool isPacked(const QByteArray &data);

/// Replaces \a data by what it unpacks to. A small file can unpack to gigabytes, so it stops at
/// \a maximumSize.
Result unpack(QByteArray *data, qint64 maximumSize);

} // namespace Gunzip

} // namespace GraphViewer
