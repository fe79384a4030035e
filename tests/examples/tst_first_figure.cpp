#include <golden.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;

class tst_FirstFigure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void programShowsItsFigures();
    void readmeQuotesTheProgramWordForWord();
};

namespace {

QString source(const QString &path)
{
    QFile file(QStringLiteral(FIGURA_SOURCE_DIR "/") + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

void tst_FirstFigure::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_FirstFigure::programShowsItsFigures()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("window.png"));
    QProcess process;

    process.start(QStringLiteral(FIGURA_FIRST_FIGURE), {path});

    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
    FIGURA_COMPARE_GOLDEN(QImage(path), QStringLiteral("first_figure"), 8);
}

void tst_FirstFigure::readmeQuotesTheProgramWordForWord()
{
    const QString program = source(QStringLiteral("examples/01-first-figure/main.cpp"));
    QVERIFY(!program.isEmpty());

    const QString readme = source(QStringLiteral("README.md"));

    QVERIFY2(readme.contains(QStringLiteral("```cpp\n%1```").arg(program)),
             "README.md does not hold examples/01-first-figure/main.cpp as it is");
}

QTEST_GUILESS_MAIN(tst_FirstFigure)
#include "tst_first_figure.moc"
