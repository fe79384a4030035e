#include <golden.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;

class tst_TenLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void programShowsItsDiagram();
    void bodyHasNoMoreThanTenLines();
    void readmeQuotesTheProgramWordForWord();
    void readmeShowsItsPicture();
};

namespace {

QByteArray source(const QString &path)
{
    QFile file(QStringLiteral(FIGURA_SOURCE_DIR "/") + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString text(const QString &path)
{
    return QString::fromUtf8(source(path));
}

const QString PROGRAM = QStringLiteral("examples/00-ten-lines/main.cpp");
const QString PICTURE = QStringLiteral("docs/images/ten-lines.png");

} // namespace

void tst_TenLines::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_TenLines::programShowsItsDiagram()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("diagram.png"));
    QProcess process;

    process.start(QStringLiteral(FIGURA_TEN_LINES), {path});

    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
    FIGURA_COMPARE_GOLDEN(QImage(path), QStringLiteral("ten_lines"), 8);
}

// Between the braces of main(): the first line makes the application, as every program does.
void tst_TenLines::bodyHasNoMoreThanTenLines()
{
    const QString program = text(PROGRAM);
    const qsizetype begin = program.indexOf(QStringLiteral("app(argc, argv);\n"));
    const qsizetype end = program.lastIndexOf(QLatin1Char('}'));
    QVERIFY(begin >= 0 && end > begin);

    const QString body = program.mid(begin, end - begin);

    QVERIFY(body.count(QLatin1Char('\n')) - 1 <= 10);
}

void tst_TenLines::readmeQuotesTheProgramWordForWord()
{
    const QString program = text(PROGRAM);
    QVERIFY(!program.isEmpty());

    const QString readme = text(QStringLiteral("README.md"));

    QVERIFY2(readme.contains(QStringLiteral("```cpp\n%1```").arg(program)),
             "README.md does not hold examples/00-ten-lines/main.cpp as it is");
}

// The picture that the program makes, and not one of a former one. Byte for byte, because storing
// new pictures must not take that of the README for one.
void tst_TenLines::readmeShowsItsPicture()
{
    QVERIFY(text(QStringLiteral("README.md")).contains(QStringLiteral("(%1)").arg(PICTURE)));

    const QByteArray picture = source(PICTURE);

    QVERIFY(!picture.isEmpty());
    QVERIFY2(picture == source(QStringLiteral("tests/golden/ten_lines.png")),
             "copy tests/golden/ten_lines.png to docs/images/ten-lines.png");
}

QTEST_GUILESS_MAIN(tst_TenLines)
#include "tst_ten_lines.moc"
