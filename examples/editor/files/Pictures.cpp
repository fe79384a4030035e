#include "files/Pictures.h"

#include "model/Content.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>

namespace Editor {
namespace {

constexpr int longestSide = 10'000;

struct Source
{
    explicit Source(const QByteArray &content)
        : bytes(content)
    {
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        reader.setDevice(&buffer);
    }

    QByteArray bytes;
    QBuffer buffer;
    QImageReader reader;
};

bool isReasonable(const QSize &size)
{
    return !size.isEmpty() && size.width() <= longestSide && size.height() <= longestSide;
}

} // namespace

QString Pictures::problemOf(const QByteArray &bytes)
{
    if (bytes.size() > Limits::picture)
        return QStringLiteral("the picture is larger than %1 MB").arg(Limits::picture >> 20);
    Source source(bytes);
    if (!source.reader.canRead())
        return QStringLiteral("not a picture");
    if (!isReasonable(source.reader.size()))
        return QStringLiteral("the picture is too large");
    return {};
}

QSize Pictures::sizeOf(const QByteArray &bytes)
{
    return Source(bytes).reader.size();
}

QImage Pictures::decoded(const QByteArray &bytes)
{
    return problemOf(bytes).isEmpty() ? Source(bytes).reader.read() : QImage();
}

QByteArray Pictures::load(const QString &path, QString *problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = QStringLiteral("%1: %2").arg(path, file.errorString());
        return {};
    }
    const QByteArray bytes = file.read(Limits::picture + 1);
    const QString reason = problemOf(bytes);
    if (reason.isEmpty())
        return bytes;
    *problem = QStringLiteral("%1: %2").arg(path, reason);
    return {};
}

} // namespace Editor
