#include <golden.h>

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace Velmora::Figura {
namespace {

int distance(const QColor &a, const QColor &b)
{
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
}

struct Difference
{
    QImage picture;
    int count = 0;
    int largest = 0;
};

Difference differ(const QImage &actual, const QImage &expected, int tolerance)
{
    Difference result{QImage(actual.size(), QImage::Format_RGB32)};
    result.picture.fill(Qt::white);
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const int off = distance(actual.pixelColor(x, y), expected.pixelColor(x, y));
            if (off <= tolerance)
                continue;
            result.picture.setPixelColor(x, y, Qt::red);
            result.largest = std::max(result.largest, off);
            ++result.count;
        }
    }
    return result;
}

QString keep(const QImage &picture, const QString &fileName)
{
    const QString path = QDir::current().absoluteFilePath(fileName);
    return picture.save(path) ? path : path + QStringLiteral(" (could not be written)");
}

QString store(const QImage &actual, const QString &path)
{
    const bool stored = QDir().mkpath(QFileInfo(path).path()) && actual.save(path);
    return stored ? QString() : QStringLiteral("%1 could not be written").arg(path);
}

QString sizeText(const QImage &image)
{
    return QStringLiteral("%1 x %2").arg(image.width()).arg(image.height());
}

QString explainSize(const QImage &actual, const QImage &expected, const QString &name)
{
    return QStringLiteral("%1 is %2, expected %3; see %4")
        .arg(name, sizeText(actual), sizeText(expected),
             keep(actual, name + QStringLiteral(".actual.png")));
}

QString explainPixels(const QImage &actual, const Difference &difference, const QString &name)
{
    return QStringLiteral("%1 differs in %2 pixels by up to %3; see %4 and %5")
        .arg(name)
        .arg(difference.count)
        .arg(difference.largest)
        .arg(keep(actual, name + QStringLiteral(".actual.png")),
             keep(difference.picture, name + QStringLiteral(".difference.png")));
}

} // namespace

QString compareWithFile(const QImage &actual, const QString &path, int tolerance)
{
    const QString name = QFileInfo(path).completeBaseName();
    const QImage expected(path);
    if (expected.isNull())
        return QStringLiteral("%1 cannot be read; see %2")
            .arg(path, keep(actual, name + QStringLiteral(".actual.png")));
    if (actual.size() != expected.size())
        return explainSize(actual, expected, name);

    const Difference difference = differ(actual, expected, tolerance);
    return difference.count == 0 ? QString() : explainPixels(actual, difference, name);
}

QString compareWithGolden(const QImage &actual, const QString &name, int tolerance)
{
    const QString path = QStringLiteral(FIGURA_GOLDEN_DIR "/%1.png").arg(name);
    if (qEnvironmentVariableIntValue("FIGURA_UPDATE_GOLDEN") == 1)
        return store(actual, path);
    return compareWithFile(actual, path, tolerance);
}

} // namespace Velmora::Figura
