#include "files/DocumentFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace Editor {
namespace {

constexpr qint64 largestFile = 256LL * 1024 * 1024;

QString told(const QString &path, const QString &problem)
{
    return QStringLiteral("%1: %2").arg(path, problem);
}

} // namespace

QByteArray DocumentFile::readAll(const QString &path, QString *problem)
{
    QFile file(path);
    if (QFileInfo(path).isDir())
        *problem = told(path, QStringLiteral("is a folder"));
    else if (!file.open(QIODevice::ReadOnly))
        *problem = told(path, file.errorString());
    else if (file.size() > largestFile)
        *problem = told(path, QStringLiteral("larger than %1 MB").arg(largestFile >> 20));
    else
        return file.read(largestFile);
    return {};
}

QString DocumentFile::writeAll(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // What is still in its buffer when it commits, a full disk swallows without a word.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
        file.commit())
        return {};
    return told(path, file.errorString());
}

ReadResult DocumentFile::load(const QString &path)
{
    ReadResult result;
    const QByteArray bytes = readAll(path, &result.problem);
    if (!result.ok())
        return result;
    result = DocumentReader::read(bytes);
    if (!result.ok())
        result.problem = told(path, result.problem);
    return result;
}

QString DocumentFile::save(const QString &path, const Content &content)
{
    return writeAll(path, DocumentWriter::write(content));
}

} // namespace Editor
