#pragma once

#include "model/Content.h"

class QJsonObject;

namespace Editor {

/// What became of reading: a content, or the reason why there is none.
struct ReadResult
{
    Content content;
    QString problem; ///< One line; empty when all went well.

    bool ok() const { return problem.isEmpty(); }
};

/// The file format. It names itself and its version; what is unknown in it is a problem, because
/// saving would lose it.
namespace DocumentReader {

ReadResult read(const QByteArray &json);
ReadResult read(const QJsonObject &object);

} // namespace DocumentReader

namespace DocumentWriter {

QByteArray write(const Content &content);
QJsonObject toObject(const Content &content);

} // namespace DocumentWriter

/// Of the format above.
namespace Format {
inline const QString name = QStringLiteral("figura-diagram");
constexpr int version = 1;
} // namespace Format

} // namespace Editor
