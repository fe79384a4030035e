#include "editorfixtures.h"
#include "files/DocumentFile.h"
#include "scene/Theme.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Editor;
using namespace Editor::EditorFixtures;

class tst_EditorProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void theWindowIsRendered_data();
    void theWindowIsRendered();
    void aSavedDiagramIsExported_data();
    void aSavedDiagramIsExported();
    void whatCannotBeDoneIsOneLineAndExitCodeOne_data();
    void whatCannotBeDoneIsOneLineAndExitCodeOne();
    void helpTellsWhatThereIs();
    void withoutADisplayItSaysSo();

private:
    struct Outcome
    {
        int exitCode = -1;
        QString output;
        QString errors;
    };

    Outcome run(const QStringList &arguments, bool display = true) const;
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

namespace {

// The messages of the program itself: Qt's offscreen platform has some of its own.
QString withoutQtsOwn(const QString &errors)
{
    QStringList lines = errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) {
        return line.contains(QLatin1String("propagateSizeHints")) ||
               line.startsWith(QLatin1String("QStandardPaths:"));
    });
    return lines.join(QLatin1Char('\n'));
}

} // namespace

tst_EditorProgram::Outcome tst_EditorProgram::run(const QStringList &arguments, bool display) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder.path());
    if (!display) {
        for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QLatin1String(name));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder.path());
    process.start(QStringLiteral(DIAGRAM_EDITOR), arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            withoutQtsOwn(QString::fromUtf8(process.readAllStandardError()))};
}

void tst_EditorProgram::theWindowIsRendered_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("scale");
    QTest::newRow("gallery") << "gallery" << QStringList() << 1;
    QTest::newRow("dark") << "network-plan" << QStringList{"--dark"} << 1;
    QTest::newRow("twice as large") << "state-machine" << QStringList{"--scale", "2"} << 2;
}

void tst_EditorProgram::theWindowIsRendered()
{
    QFETCH(QString, sample);
    QFETCH(QStringList, options);
    QFETCH(int, scale);
    const QString picture = path(sample + QStringLiteral(".png"));

    const Outcome outcome = run(
        QStringList{"--sample", sample, "--size", "900x600", "--render", picture} + options, false);

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    const QImage image(picture);
    QCOMPARE(image.size(), QSize(900, 600) * scale);
    const bool isDark = options.contains(QStringLiteral("--dark"));
    QCOMPARE(image.pixelColor(image.width() / 2, 2).lightness() < 128, isDark);
}

void tst_EditorProgram::aSavedDiagramIsExported_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("begin");
    QTest::newRow("svg") << "svg" << QByteArray("<?xml");
    QTest::newRow("pdf") << "pdf" << QByteArray("%PDF");
    QTest::newRow("png") << "png" << QByteArray("\x89PNG");
}

void tst_EditorProgram::aSavedDiagramIsExported()
{
    QFETCH(QString, suffix);
    QFETCH(QByteArray, begin);
    const QString file = path(QStringLiteral("a.figura"));
    QCOMPARE(DocumentFile::save(file, smallContent()), QString());
    const QString exported = path(QStringLiteral("out.") + suffix);

    const Outcome outcome = run({QStringLiteral("--export"), exported, file}, false);

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QString problem;
    QVERIFY(DocumentFile::readAll(exported, &problem).startsWith(begin));
}

void tst_EditorProgram::whatCannotBeDoneIsOneLineAndExitCodeOne_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("option") << QStringList{"--nosuch"}
                            << "Unknown option 'nosuch'. (--help tells what there is)";
    QTest::newRow("two files") << QStringList{"a", "b"}
                               << "more than one file (--help tells what there is)";
    QTest::newRow("size") << QStringList{"--size", "big"}
                          << "'big' is not a size (--help tells what there is)";
    QTest::newRow("nothing to export")
        << QStringList{"--export", "a.svg"} << "no file to export (--help tells what there is)";
    QTest::newRow("missing") << QStringList{"--render", "a.png", "missing.figura"}
                             << "missing.figura: No such file or directory";
    QTest::newRow("sample") << QStringList{"--render", "a.png", "--sample", "nosuch"}
                            << ":/samples/nosuch.figura: No such file or directory";
    QTest::newRow("no folder for the picture")
        << QStringList{"--sample", "gallery", "--render", "no/folder/a.png"}
        << "no/folder/a.png: Cannot open device for writing: No such file or directory";
}

void tst_EditorProgram::whatCannotBeDoneIsOneLineAndExitCodeOne()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);

    const Outcome outcome = run(arguments);

    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.errors, QStringLiteral("diagram-editor: ") + error);
}

void tst_EditorProgram::helpTellsWhatThereIs()
{
    const Outcome outcome = run({QStringLiteral("--help")});

    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.errors, QString());
    for (const char *word : {"--render", "--export", "--sample", "--dark", "gallery", "[file]"})
        QVERIFY2(outcome.output.contains(QLatin1String(word)), word);
}

void tst_EditorProgram::withoutADisplayItSaysSo()
{
    const Outcome outcome = run({}, false);

    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(
        outcome.errors,
        QStringLiteral("diagram-editor: there is no display; --render and --export need none"));
}

QTEST_GUILESS_MAIN(tst_EditorProgram)
#include "tst_editor_program.moc"
