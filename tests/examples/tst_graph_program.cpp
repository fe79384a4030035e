#include "graphfixtures.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>

using GraphFixtures::Folder;

namespace {

struct Outcome
{
    int exitCode = -1;
    QString output;
    QString errors;
};

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

Outcome run(const QStringList &arguments,
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(GRAPH_VIEWER), arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            withoutQtsOwn(QString::fromUtf8(process.readAllStandardError()))};
}

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QLatin1String(name));
    return environment;
}

bool has(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

class tst_GraphProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void theWindowIsRendered();
    void theWindowIsRenderedWithoutADisplay();
    void aDisplayThatIsGoneDoesNotMatterForRendering();
    void theNamedEngineIsTaken();
    void everySampleIsRendered_data();
    void everySampleIsRendered();
    void aFileThatCannotBeShownIsOneLineAndExitCodeOne_data();
    void aFileThatCannotBeShownIsOneLineAndExitCodeOne();
    void aFileIsRefusedWithoutAPictureToo();
    void aPictureThatCannotBeWrittenIsOneLine_data();
    void aPictureThatCannotBeWrittenIsOneLine();
    void whatMakesNoSenseIsOneLine_data();
    void whatMakesNoSenseIsOneLine();
    void helpTellsWhatThereIs();
    void withoutADisplayItSaysSo();
};

void tst_GraphProgram::theWindowIsRendered()
{
    const Folder folder;
    const QString picture = folder.path(QStringLiteral("out.png"));
    const QString file =
        folder.write(QStringLiteral("x.gv"), "graph { a [style=filled, fillcolor=\"#12ab34\"] }");

    const Outcome outcome = run({file, QStringLiteral("--render"), picture});

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.exitCode, 0);
    const QImage image(picture);
    QCOMPARE(image.size(), QSize(640, 480));
    QVERIFY(has(image, QColor(0x12, 0xab, 0x34)));
}

void tst_GraphProgram::theWindowIsRenderedWithoutADisplay()
{
    const Folder folder;
    const QString picture = folder.path(QStringLiteral("out.png"));
    const QString file = folder.write(QStringLiteral("x.gv"), "graph { a }");

    const Outcome outcome = run({QStringLiteral("--render=") + picture, file}, withoutDisplay());

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(!QImage(picture).isNull());
}

void tst_GraphProgram::aDisplayThatIsGoneDoesNotMatterForRendering()
{
    const Folder folder;
    const QString picture = folder.path(QStringLiteral("out.png"));
    QProcessEnvironment environment = withoutDisplay();
    environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":98765"));

    const Outcome outcome = run(
        {QStringLiteral("--render"), picture, folder.write(QStringLiteral("x.gv"), "graph { a }")},
        environment);

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(!QImage(picture).isNull());
}

void tst_GraphProgram::theNamedEngineIsTaken()
{
    const Folder folder;
    const QString file =
        folder.write(QStringLiteral("x.gv"), "graph { a -- b -- c -- d -- e -- a }");
    const auto picture = [&](const QString &engine) {
        const QString path = folder.path(engine + QStringLiteral(".png"));
        const Outcome outcome =
            run({QStringLiteral("--engine"), engine, QStringLiteral("--render"), path, file});
        return outcome.exitCode == 0 ? QImage(path) : QImage();
    };

    const QImage dot = picture(QStringLiteral("dot"));
    const QImage circo = picture(QStringLiteral("circo"));

    QVERIFY(!dot.isNull());
    QVERIFY(!circo.isNull());
    QVERIFY(dot != circo);
}

void tst_GraphProgram::everySampleIsRendered_data()
{
    QTest::addColumn<QString>("path");
    const QDir samples(QStringLiteral(GRAPH_VIEWER_SAMPLES));
    const QFileInfoList files = samples.entryInfoList({QStringLiteral("*.gv")});
    QVERIFY(files.size() >= 3);
    for (const QFileInfo &file : files)
        QTest::newRow(qPrintable(file.fileName())) << file.filePath();
}

void tst_GraphProgram::everySampleIsRendered()
{
    QFETCH(QString, path);
    const Folder folder;
    const QString picture = folder.path(QStringLiteral("out.png"));
    const GraphViewer::LoadReply reply = GraphViewer::GraphLoader().load(path);

    const Outcome outcome = run({QStringLiteral("--render"), picture, path});

    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(!QImage(picture).isNull());
    QCOMPARE(reply.graph.remarks, QStringList());
}

void tst_GraphProgram::aFileThatCannotBeShownIsOneLineAndExitCodeOne_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("the file is empty");
    QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)
                            << QStringLiteral("is not a text file");
    QTest::newRow("no graph") << QByteArray("a,b,c\n1,2,3\n")
                              << QStringLiteral("syntax error in line 1 near 'a'");
    QTest::newRow("breaks off") << QByteArray("digraph { a -> b")
                                << QStringLiteral("syntax error in line 1");
    QTest::newRow("unknown engine") << QByteArray("graph { layout=nosuch; a }")
                                    << QStringLiteral("Layout type: \"nosuch\" not recognized. "
                                                      "Use one of: circo dot fdp neato nop nop1 "
                                                      "nop2 osage patchwork sfdp twopi");
}

void tst_GraphProgram::aFileThatCannotBeShownIsOneLineAndExitCodeOne()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const Folder folder;
    const QString path = folder.write(QStringLiteral("x.gv"), content);
    const QString picture = folder.path(QStringLiteral("out.png"));

    const Outcome outcome = run({QStringLiteral("--render"), picture, path});

    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.errors, QStringLiteral("graph-viewer: %1: %2").arg(path, error));
    QVERIFY(!QFile::exists(picture));
}

void tst_GraphProgram::aFileIsRefusedWithoutAPictureToo()
{
    const Folder folder;
    const QString missing = folder.path(QStringLiteral("missing.gv"));

    const Outcome none = run({missing});
    const Outcome directory = run({folder.path(QString())});

    QCOMPARE(none.exitCode, 1);
    QCOMPARE(none.errors, QStringLiteral("graph-viewer: %1: no such file").arg(missing));
    QCOMPARE(directory.exitCode, 1);
    QVERIFY2(directory.errors.endsWith(QStringLiteral(": is a directory")),
             qPrintable(directory.errors));
}

void tst_GraphProgram::aPictureThatCannotBeWrittenIsOneLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no folder") << "no/such/folder/out.png"
                               << "Cannot open device for writing: ";
    QTest::newRow("no format") << "out.nosuch"
                               << "Unsupported image format";
}

void tst_GraphProgram::aPictureThatCannotBeWrittenIsOneLine()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const Folder folder;
    const QString picture = folder.path(name);

    const Outcome outcome = run(
        {QStringLiteral("--render"), picture, folder.write(QStringLiteral("x.gv"), "graph { a }")});

    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.errors.startsWith(QStringLiteral("graph-viewer: %1: %2").arg(picture, reason)),
             qPrintable(outcome.errors));
}

void tst_GraphProgram::whatMakesNoSenseIsOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("option") << QStringList{"--nosuch"} << "Unknown option 'nosuch'.";
    QTest::newRow("engine") << QStringList{"--engine", "steam", "x.gv"} << "unknown engine 'steam'";
    QTest::newRow("routing") << QStringList{"--routing", "curly", "x.gv"}
                             << "unknown routing 'curly'";
    QTest::newRow("two files") << QStringList{"a.gv", "b.gv"} << "more than one file";
    QTest::newRow("nothing to render") << QStringList{"--render", "x.png"} << "no file to render";
    QTest::newRow("time") << QStringList{"--timeout", "soon", "x.gv"}
                          << "'soon' is not a number of seconds";
    QTest::newRow("negative time")
        << QStringList{"--timeout=-1", "x.gv"} << "'-1' is not a number of seconds";
}

void tst_GraphProgram::whatMakesNoSenseIsOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);

    const Outcome outcome = run(arguments);

    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.errors,
             QStringLiteral("graph-viewer: %1 (--help tells what there is)").arg(error));
}

void tst_GraphProgram::helpTellsWhatThereIs()
{
    const Outcome outcome = run({QStringLiteral("--help")});

    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.errors, QString());
    for (const char *word :
         {"--engine", "--routing", "manhattan", "--render", "--timeout", "twopi", "[file]"})
        QVERIFY2(outcome.output.contains(QLatin1String(word)), word);
}

void tst_GraphProgram::withoutADisplayItSaysSo()
{
    const Folder folder;

    const Outcome outcome =
        run({folder.write(QStringLiteral("x.gv"), "graph { a }")}, withoutDisplay());

    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.errors,
             QStringLiteral("graph-viewer: there is no display; --render OUT.png needs none"));
}

QTEST_GUILESS_MAIN(tst_GraphProgram)
#include "tst_graph_program.moc"
