#include "GraphFile.h"

#include "Gunzip.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace GraphViewer {
namespace {

QString megabytes(qint64 size)
{
    return QLocale::c().formattedDataSize(size, 1, QLocale::DataSizeTraditionalFormat);
}

QString tooLarge(qint64 maximumSize)
{
    return QStringLiteral("the file is too large (the limit is %1)").arg(megabytes(maximumSize));
}

// Reading a pipe or a device could block for ever or never end.
QString whyNotOpened(const QFileInfo &info)
{
    if (!info.exists())
        return QStringLiteral("no such file");
    if (info.isDir())
        return QStringLiteral("is a directory");
    if (!info.isFile())
        return QStringLiteral("is not a regular file");
    return {};
}

QString unpack(QByteArray *text, qint64 maximumSize)
{
    switch (Gunzip::unpack(text, maximumSize)) {
    case Gunzip::Result::Done:
        return {};
    case Gunzip::Result::TooLarge:
        return tooLarge(maximumSize);
    case Gunzip::Result::Damaged:
        break;
    }
    return QStringLiteral("the compressed data is damaged");
}

QString whyNotText(const QByteArray &text)
{
    if (text.trimmed().isEmpty())
        return QStringLiteral("the file is empty");
    if (text.contains('\0'))
        return QStringLiteral("is not a text file");
    return {};
}

QString readAll(const QString &path, qint64 maximumSize, QByteArray *text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot be read: %1").arg(file.errorString());

    *text = file.read(maximumSize + 1);
    if (file.error() != QFileDevice::NoError)
        return QStringLiteral("cannot be read: %1").arg(file.errorString());
    return text->size() > maximumSize ? tooLarge(maximumSize) : QString();
}

} // namespace

FileText GraphFile::read(const QString &path, qint64 maximumSize)
{
    FileText result;
    result.error = whyNotOpened(QFileInfo(path));
    if (result.error.isEmpty())
        result.error = readAll(path, maximumSize, &result.text);
    if (result.error.isEmpty() && Gunzip::isPacked(result.text))
        result.error = unpack(&result.text, maximumSize);
    if (result.error.isEmpty())
        result.error = whyNotText(result.text);
    return result;
}

} // namespace GraphViewer
