#include <golden.h>

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;

class tst_Examples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void eachProgramShowsWhatItsPictureShows_data();
    void eachProgramShowsWhatItsPictureShows();
    void aSceneThatDoesNotExistIsRefused();
    void thePrintedPageIsThatOfThePicture();

private:
    QString renderTo(const QString &program, const QStringList &arguments, const QString &file);

    QTemporaryDir m_folder;
};

namespace {

const QString guideSamples = QStringLiteral(FIGURA_BINARY_DIR "/docs/guide/samples/guide-samples");

// The program of 02-layouts is called layouts.
QString programOf(const QString &example)
{
    return QStringLiteral(FIGURA_BINARY_DIR "/examples/%1/%2").arg(example, example.mid(3));
}

QString storedPicture(const QString &name)
{
    return QStringLiteral(FIGURA_SOURCE_DIR "/docs/images/%1.png").arg(name);
}

void addExample(const char *folder)
{
    const QString example = QLatin1String(folder);
    QTest::newRow(folder) << programOf(example) << QStringList() << example.mid(3);
}

void addGraphViewer()
{
    const QString sample =
        QStringLiteral(FIGURA_SOURCE_DIR "/examples/graph-viewer/samples/build-pipeline.gv");
    QTest::newRow("graph-viewer") << QStringLiteral(FIGURA_BINARY_DIR
                                                    "/examples/graph-viewer/graph-viewer")
                                  << QStringList({sample, QStringLiteral("--render")})
                                  << QStringLiteral("graph-viewer");
}

void addScene(const char *scene)
{
    const QString name = QLatin1String(scene);
    QTest::newRow(scene) << guideSamples << QStringList(name) << name;
}

} // namespace

// Runs the program; empty when it has written the file and said nothing.
QString tst_Examples::renderTo(const QString &program, const QStringList &arguments,
                               const QString &file)
{
    QProcess process;
    process.start(program, arguments + QStringList(file));
    if (!process.waitForFinished())
        return process.errorString();
    if (process.exitCode() != 0)
        return QStringLiteral("exit code %1").arg(process.exitCode());
    QString said = QString::fromLocal8Bit(process.readAllStandardError());
    // What Qt's offscreen platform says of every window that limits its size.
    return said.remove(QStringLiteral("This plugin does not support propagateSizeHints()\n"));
}

void tst_Examples::eachProgramShowsWhatItsPictureShows_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("picture");
    addExample("01-first-figure");
    addExample("02-layouts");
    addExample("03-connections");
    addExample("04-custom-figure");
    addExample("05-custom-router");
    addExample("06-layers-and-zoom");
    addExample("07-printing-and-export");
    addGraphViewer();
    addScene("circle-layout");
    addScene("coordinates");
    addScene("damage");
    addScene("diagrams");
    addScene("diamonds");
    addScene("many-figures");
    addScene("routers");
    addScene("survivors");
    addScene("zoomed-at-mouse");
}

void tst_Examples::eachProgramShowsWhatItsPictureShows()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QString, picture);
    const QString file = m_folder.filePath(picture + QStringLiteral(".png"));

    QCOMPARE(renderTo(program, arguments, file), QString());

    const QString reason = compareWithFile(QImage(file), storedPicture(picture), 8);
    QVERIFY2(reason.isEmpty(), qPrintable(reason));
}

void tst_Examples::aSceneThatDoesNotExistIsRefused()
{
    const QString file = m_folder.filePath(QStringLiteral("nothing.png"));

    QCOMPARE(renderTo(guideSamples, {QStringLiteral("nothing")}, file),
             QStringLiteral("exit code 2"));

    QVERIFY(!QFile::exists(file));
}

void tst_Examples::thePrintedPageIsThatOfThePicture()
{
    const QString pdftoppm = QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
    QVERIFY2(!pdftoppm.isEmpty(), "Debian's package poppler-utils is not installed");
    const QString pdf = m_folder.filePath(QStringLiteral("page.pdf"));

    QCOMPARE(renderTo(programOf(QStringLiteral("07-printing-and-export")), {}, pdf), QString());

    const QString page = m_folder.filePath(QStringLiteral("printed-page"));
    const QStringList options{QStringLiteral("-png"), QStringLiteral("-singlefile"),
                              QStringLiteral("-r"), QStringLiteral("60"), pdf};
    QCOMPARE(renderTo(pdftoppm, options, page), QString());
    const QString reason = compareWithFile(QImage(page + QStringLiteral(".png")),
                                           storedPicture(QStringLiteral("printed-page")), 8);
    QVERIFY2(reason.isEmpty(), qPrintable(reason));
}

QTEST_GUILESS_MAIN(tst_Examples)
#include "tst_examples.moc"
