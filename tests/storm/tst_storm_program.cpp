#include <script.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura::Storm;

// The program as a whole: what fails in a child of it is boiled down, a crash too.

namespace {

struct Result
{
    int exitCode;
    QByteArray output;
};

Result runStorm(const QString &directory, const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(directory);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(FIGURA_STORM), arguments);
    process.waitForFinished(120000);
    return {process.exitCode(), process.readAll()};
}

QByteArray writtenList(const QString &directory)
{
    QFile file(directory + QStringLiteral("/storm-fault.storm"));
    const std::optional<Script> script =
        file.open(QIODevice::ReadOnly) ? fromText(file.readAll()) : std::nullopt;
    return script ? toText(*script) : QByteArray();
}

} // namespace

class tst_StormProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void failingListIsBoiledDown_data();
    void failingListIsBoiledDown();
    void goodListIsGood();
    void seedsAreRunOneAfterTheOther();
    void unreadableListIsAFault();
};

void tst_StormProgram::failingListIsBoiledDown_data()
{
    QTest::addColumn<QByteArray>("flaw");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("a fault") << QByteArray("complain\n") << QByteArray("complaint: 0");
    QTest::newRow("a crash") << QByteArray("crash\n") << QByteArray("crash: ");
}

void tst_StormProgram::failingListIsBoiledDown()
{
    QFETCH(QByteArray, flaw);
    QFETCH(QByteArray, said);
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("list.storm")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray harmless = "addPlain 1 2 3 4\naddShape 5\nmoveFigure 1\nsettle\n";
    file.write(harmless + flaw + harmless);
    file.close();

    const Result result = runStorm(directory.path(), {QStringLiteral("--replay"), file.fileName()});

    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.output.contains('\n' + said), result.output.constData());
    QCOMPARE(writtenList(directory.path()), flaw);
}

void tst_StormProgram::goodListIsGood()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("list.storm")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("addPlain 1 2 3 4\ncheck\n");
    file.close();

    const Result result = runStorm(directory.path(), {QStringLiteral("--replay"), file.fileName()});

    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitCode, 0);
}

void tst_StormProgram::seedsAreRunOneAfterTheOther()
{
    const QTemporaryDir directory;

    const Result result =
        runStorm(directory.path(), {QStringLiteral("--seed"), QStringLiteral("901-902"),
                                    QStringLiteral("--operations"), QStringLiteral("500")});

    QCOMPARE(result.output, QByteArray("seed 901: 500 operations\nseed 902: 500 operations\n"));
    QCOMPARE(result.exitCode, 0);
}

void tst_StormProgram::unreadableListIsAFault()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("list.storm")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("submerge\n");
    file.close();

    const Result result = runStorm(directory.path(), {QStringLiteral("--play"), file.fileName()});

    QVERIFY2(result.output.startsWith("fault list: cannot read"), result.output.constData());
    QCOMPARE(result.exitCode, 1);
}

QTEST_GUILESS_MAIN(tst_StormProgram)
#include "tst_storm_program.moc"
