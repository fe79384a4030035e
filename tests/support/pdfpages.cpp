#include "pdfpages.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace Velmora::Figura::Test {

QList<QImage> pdfPages(const QString &path, int dpi)
{
    const QTemporaryDir folder;
    QProcess process;
    process.start(QStringLiteral("pdftoppm"),
                  {QStringLiteral("-r"), QString::number(dpi), QStringLiteral("-png"), path,
                   folder.filePath(QStringLiteral("page"))});
    if (!process.waitForFinished())
        qWarning("pdftoppm, of Debian's package poppler-utils: %s",
                 qPrintable(process.errorString()));
    QList<QImage> pages;
    const QStringList names = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    for (const QString &name : names)
        pages << QImage(folder.filePath(name)).convertToFormat(QImage::Format_RGB32);
    return pages;
}

} // namespace Velmora::Figura::Test
