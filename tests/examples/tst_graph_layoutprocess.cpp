#include "graphfixtures.h"

#include "load/LayoutProcess.h"

#include <QRegularExpression>
#include <QSignalSpy>

using namespace GraphViewer;
using GraphFixtures::Folder;

Q_DECLARE_METATYPE(GraphViewer::LoadReply)

namespace {

// A program that stands in for the graph viewer.
QString script(const Folder &folder, const QByteArray &commands)
{
    const QString path = folder.write(QStringLiteral("program"), "#!/bin/sh\n" + commands + "\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return path;
}

LoadReply ended(const QSignalSpy &spy)
{
    return spy.value(0).value(0).value<LoadReply>();
}

} // namespace

class tst_GraphLayoutProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void aGraphComesBackLaidOut();
    void aFileThatIsNoGraphIsRefused_data();
    void aFileThatIsNoGraphIsRefused();
    void aCrashIsOneMessage();
    void anExitOfTheEngineIsOneMessage();
    void aProgramThatCannotBeStartedIsOneMessage();
    void aLayoutThatNeverEndsIsGivenUp();
    void aCancelledLayoutSaysNothing();
    void aSecondStartReplacesTheFirst();
};

void tst_GraphLayoutProcess::aGraphComesBackLaidOut()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(QStringLiteral(GRAPH_VIEWER));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(folder.write(QStringLiteral("ä b.gv"), "digraph { a -> b }"),
                  QStringLiteral("circo"));
    QVERIFY(process.isRunning());
    QTRY_COMPARE(spy.size(), 1);

    QVERIFY(!process.isRunning());
    QCOMPARE(ended(spy).error, QString());
    QCOMPARE(ended(spy).graph.engine, QStringLiteral("circo"));
    QCOMPARE(ended(spy).graph.nodes.size(), 2);
}

void tst_GraphLayoutProcess::aFileThatIsNoGraphIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("breaks off") << QByteArray("digraph {\n a -> b\n")
                                << QStringLiteral("syntax error in line 3");
    QTest::newRow("string without an end")
        << QByteArray("digraph { \"a }")
        << QStringLiteral("syntax error in line 1 scanning a quoted string (missing endquote? "
                          "longer than 16384?) String starting:\"a }");
    QTest::newRow("comment without an end")
        << QByteArray("graph { /* a }")
        << QStringLiteral("syntax error in line 1 scanning a /*...*/ comment (missing '*/? longer "
                          "than 16384?)");
    QTest::newRow("arrow in an undirected graph")
        << QByteArray("graph { a -> b }") << QStringLiteral("syntax error in line 1 near '->'");
    QTest::newRow("bad nesting in HTML")
        << QByteArray("graph {\n\n a [label=<x] }")
        << QStringLiteral("syntax error in line 3 scanning a HTML string (missing '>'? bad "
                          "nesting? longer than 16384?) String starting:<x] }");
    QTest::newRow("only a comment")
        << QByteArray("/* nothing */\n") << QStringLiteral("the file holds no complete graph");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("the file is empty");
    QTest::newRow("binary") << QByteArray("\0\1\2", 3) << QStringLiteral("is not a text file");
}

void tst_GraphLayoutProcess::aFileThatIsNoGraphIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    const Folder folder;
    const QString path = folder.write(QStringLiteral("bad.gv"), text);
    LayoutProcess process;
    process.setProgram(QStringLiteral(GRAPH_VIEWER));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(path, QString());
    QTRY_COMPARE(spy.size(), 1);

    QCOMPARE(ended(spy).error, path + QStringLiteral(": ") + error);
}

void tst_GraphLayoutProcess::aCrashIsOneMessage()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(script(folder, "kill -SEGV $$"));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(QStringLiteral("x.gv"), QString());
    QTRY_COMPARE(spy.size(), 1);

    QCOMPARE(ended(spy).error,
             QStringLiteral("x.gv: the layout engine crashed on this graph; another engine may do "
                            "better"));
}

void tst_GraphLayoutProcess::anExitOfTheEngineIsOneMessage()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(script(folder, "echo 'out of memory'; exit 1"));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(QStringLiteral("x.gv"), QString());
    QTRY_COMPARE(spy.size(), 1);

    QCOMPARE(ended(spy).error,
             QStringLiteral("x.gv: the layout engine gave up without a result; another engine may "
                            "do better"));
}

void tst_GraphLayoutProcess::aProgramThatCannotBeStartedIsOneMessage()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(folder.path(QStringLiteral("none")));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(QStringLiteral("x.gv"), QString());
    QTRY_COMPARE(spy.size(), 1);

    QVERIFY2(ended(spy).error.startsWith(QStringLiteral("x.gv: the layout could not be started: ")),
             qPrintable(ended(spy).error));
}

void tst_GraphLayoutProcess::aLayoutThatNeverEndsIsGivenUp()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(script(folder, "exec sleep 1000"));
    process.setTimeLimit(std::chrono::seconds(1));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(QStringLiteral("x.gv"), QString());
    QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60'000);

    QCOMPARE(ended(spy).error,
             QStringLiteral("x.gv: no layout after 1 s; another engine may be faster"));
    QVERIFY(!process.isRunning());
}

void tst_GraphLayoutProcess::aCancelledLayoutSaysNothing()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(script(folder, "exec sleep 1000"));
    const QSignalSpy spy(&process, &LayoutProcess::finished);
    process.start(QStringLiteral("x.gv"), QString());

    process.cancel();
    QTest::qWait(50);

    QVERIFY(!process.isRunning());
    QCOMPARE(spy.size(), 0);
}

void tst_GraphLayoutProcess::aSecondStartReplacesTheFirst()
{
    const Folder folder;
    LayoutProcess process;
    process.setProgram(QStringLiteral(GRAPH_VIEWER));
    const QSignalSpy spy(&process, &LayoutProcess::finished);

    process.start(folder.write(QStringLiteral("1.gv"), "graph one { a }"), QString());
    process.start(folder.write(QStringLiteral("2.gv"), "graph two { a }"), QString());
    QTRY_COMPARE(spy.size(), 1);
    QTest::qWait(50);

    QCOMPARE(spy.size(), 1);
    QCOMPARE(ended(spy).graph.name, QStringLiteral("two"));
}

QTEST_GUILESS_MAIN(tst_GraphLayoutProcess)
#include "tst_graph_layoutprocess.moc"
