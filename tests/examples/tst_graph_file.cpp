#include "graphfixtures.h"

#include "load/GraphFile.h"

#include <QRegularExpression>

#include <sys/stat.h>
#include <zlib.h>

using namespace GraphViewer;
using GraphFixtures::Folder;

namespace {

QByteArray packed(const QByteArray &text)
{
    z_stream stream = {};
    if (deflateInit2(&stream, 9, Z_DEFLATED, 16 + MAX_WBITS, 9, Z_DEFAULT_STRATEGY) != Z_OK)
        qFatal("zlib refuses to pack");
    QByteArray result(static_cast<qsizetype>(deflateBound(&stream, text.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(text.constData()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef *>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.chop(stream.avail_out);
    deflateEnd(&stream);
    return result;
}

} // namespace

class tst_GraphFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void aTextIsReadAsItIs();
    void aPackedTextIsUnpacked();
    void whatIsNoTextIsRefused_data();
    void whatIsNoTextIsRefused();
    void aMissingFileIsRefused();
    void aFolderIsRefused();
    void aPipeIsRefusedWithoutWaitingForIt();
    void theLimitItselfIsNotTooLarge();
    void aLargeFileIsRefused();
    void aSmallFileThatUnpacksToALargeOneIsRefused();
};

void tst_GraphFile::aTextIsReadAsItIs()
{
    const Folder folder;
    const QString path = folder.write(QStringLiteral("a.gv"), "graph {\r\n a }\n");

    const FileText file = GraphFile::read(path);

    QCOMPARE(file.error, QString());
    QCOMPARE(file.text, QByteArray("graph {\r\n a }\n"));
}

void tst_GraphFile::aPackedTextIsUnpacked()
{
    const Folder folder;
    const QByteArray text = "graph { " + QByteArray(300'000, 'a') + " }";
    const QString path = folder.write(QStringLiteral("a.gv.gz"), packed(text));

    const FileText file = GraphFile::read(path);

    QCOMPARE(file.error, QString());
    QCOMPARE(file.text, text);
}

void tst_GraphFile::whatIsNoTextIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    const QString empty = QStringLiteral("the file is empty");
    const QString binary = QStringLiteral("is not a text file");
    const QString damaged = QStringLiteral("the compressed data is damaged");
    QTest::newRow("empty") << QByteArray() << empty;
    QTest::newRow("blanks") << QByteArray(" \n\t\n") << empty;
    QTest::newRow("packed nothing") << packed({}) << empty;
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\0\0\1",
                                          7)
                            << binary;
    QTest::newRow("sixteen bits a letter") << QByteArray("g\0r\0a\0p\0h\0", 10) << binary;
    QTest::newRow("packed binary") << packed(QByteArray(10, '\0')) << binary;
    QTest::newRow("cut off") << packed("graph { a b c d e f }").chopped(12) << damaged;
    QTest::newRow("only the first bytes") << QByteArray("\x1f\x8b") << damaged;
    QTest::newRow("spoilt") << packed("graph { a }").replace(12, 4, "spoi") << damaged;
}

void tst_GraphFile::whatIsNoTextIsRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const Folder folder;

    const FileText file = GraphFile::read(folder.write(QStringLiteral("file"), content));

    QCOMPARE(file.error, error);
}

void tst_GraphFile::aMissingFileIsRefused()
{
    const Folder folder;

    QCOMPARE(GraphFile::read(folder.path(QStringLiteral("none.gv"))).error,
             QStringLiteral("no such file"));
}

void tst_GraphFile::aFolderIsRefused()
{
    const Folder folder;

    QCOMPARE(GraphFile::read(folder.path(QString())).error, QStringLiteral("is a directory"));
}

void tst_GraphFile::aPipeIsRefusedWithoutWaitingForIt()
{
    const Folder folder;
    const QString path = folder.path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);

    QCOMPARE(GraphFile::read(path).error, QStringLiteral("is not a regular file"));
}

void tst_GraphFile::theLimitItselfIsNotTooLarge()
{
    const Folder folder;
    const QString path = folder.write(QStringLiteral("a.gv"), QByteArray(1000, 'x'));

    QCOMPARE(GraphFile::read(path, 1000).error, QString());
}

void tst_GraphFile::aLargeFileIsRefused()
{
    const Folder folder;
    const QString path = folder.write(QStringLiteral("a.gv"), "graph {");
    QVERIFY(QFile::resize(path, GraphFile::MaximumSize + 1));

    QCOMPARE(GraphFile::read(path).error,
             QStringLiteral("the file is too large (the limit is 16.0 MB)"));
}

void tst_GraphFile::aSmallFileThatUnpacksToALargeOneIsRefused()
{
    const Folder folder;
    const QByteArray bomb = packed(QByteArray(2'000'000, ' '));
    QVERIFY(bomb.size() < 5'000);
    const QString path = folder.write(QStringLiteral("bomb.gv.gz"), bomb);

    QCOMPARE(GraphFile::read(path, 1'048'576).error,
             QStringLiteral("the file is too large (the limit is 1.0 MB)"));
}

QTEST_GUILESS_MAIN(tst_GraphFile)
#include "tst_graph_file.moc"
