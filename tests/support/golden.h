#pragma once

#include <QString>

class QImage;

namespace Velmora::Figura {

/// Empty when the picture equals tests/golden/NAME.png, else why it does not.
///
/// On a difference NAME.actual.png and, for equal sizes, NAME.difference.png (differing pixels in
/// red) are left in the working directory. A channel may be off by up to tolerance. With the
/// environment variable FIGURA_UPDATE_GOLDEN=1 the picture is stored as the one to compare with.
QString compareWithGolden(const QImage &actual, const QString &name, int tolerance = 0);

/// The same against a given file, whose base name then names the files left behind.
QString compareWithFile(const QImage &actual, const QString &path, int tolerance = 0);

} // namespace Velmora::Figura

/// Fails the running test with the reason when the picture is not the stored one.
#define FIGURA_COMPARE_GOLDEN(...)                                                                 \
    do {                                                                                           \
        const QString goldenReason = Velmora::Figura::compareWithGolden(__VA_ARGS__);              \
        QVERIFY2(goldenReason.isEmpty(), qPrintable(goldenReason));                                \
    } while (false)
