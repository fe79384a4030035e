#include "editorfixtures.h"
#include "files/DocumentFile.h"
#include "files/Pictures.h"
#include "files/RecentFiles.h"
#include "files/Recovery.h"
#include "model/Document.h"

#include <fulldisk.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Editor;
using namespace Editor::EditorFixtures;
using Velmora::Figura::Test::FullDisk;

class tst_EditorFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anyDocumentIsReadAsItWasWritten_data();
    void anyDocumentIsReadAsItWasWritten();
    void aDocumentIsSavedAndLoaded();
    void aFailedSaveLeavesTheFormerFile();
    void aFullDiskLeavesTheFormerFile();
    void aFileThatCannotBeReadIsOneLine_data();
    void aFileThatCannotBeReadIsOneLine();
    void aFolderIsNoDocument();
    void damagedFilesAreRefusedOrHoldTogether_data();
    void damagedFilesAreRefusedOrHoldTogether();
    void aPictureFileIsLoaded();
    void aFileThatIsNoPictureIsRefused();
    void recentFilesAreTheLatestFirst();
    void aCopyOfUnsavedWorkIsFoundWhenTheSessionIsGone();
    void noCopyIsLeftOfSettledWork();
    void theCopyOfALivingSessionIsNotFound();
    void aDamagedCopyIsLeftOut();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QByteArray json(const QString &inner)
{
    return QStringLiteral("{\"format\":\"figura-diagram\",\"version\":1,%1}")
        .arg(inner)
        .replace(QLatin1Char('\''), QLatin1Char('"'))
        .toUtf8();
}

QByteArray nodeJson(const QString &more)
{
    return json(QStringLiteral("'nodes':[{'id':1,'kind':'text','rect':[0,0,50,50]%1}]").arg(more));
}

QByteArray edgeJson(const QString &more)
{
    return json(QStringLiteral("'nodes':[{'id':1,'kind':'text','rect':[0,0,50,50]}],"
                               "'edges':[{'id':2,%1}]")
                    .arg(more));
}

QByteArray truncated(QByteArray bytes, QRandomGenerator &random)
{
    bytes.truncate(random.bounded(bytes.size()));
    return bytes;
}

QByteArray flipped(QByteArray bytes, QRandomGenerator &random)
{
    for (int i = 1 + random.bounded(4); i > 0; --i) {
        char &byte = bytes[random.bounded(bytes.size())];
        byte = static_cast<char>(byte ^ (1 << random.bounded(8)));
    }
    return bytes;
}

// Puts \a value in the place of a random number of the text.
QByteArray withNumber(const QByteArray &bytes, const QByteArray &value, QRandomGenerator &random)
{
    static const QRegularExpression number(QStringLiteral("-?\\d+(?=[,\\s\\]}])"));
    QString text = QString::fromUtf8(bytes);
    QList<QRegularExpressionMatch> matches;
    for (auto it = number.globalMatch(text); it.hasNext();)
        matches << it.next();
    const QRegularExpressionMatch match = matches.at(random.bounded(matches.size()));
    text.replace(match.capturedStart(), match.capturedLength(), QString::fromLatin1(value));
    return text.toUtf8();
}

QByteArray wrongType(const QByteArray &bytes, QRandomGenerator &random)
{
    static const QList<QByteArray> values = {"null", "true",      "\"text\"", "[]",
                                             "{}",   "[[1,2,3]]", "0.5",      "{\"id\":[]}"};
    return withNumber(bytes, values.at(random.bounded(values.size())), random);
}

QByteArray hugeNumber(const QByteArray &bytes, QRandomGenerator &random)
{
    static const QList<QByteArray> values = {
        "2147483647", "-2147483648",          "2147483648", "1e308",      "-1e308",
        "1e-300",     "99999999999999999999", "-0",         "1000000000", "200000"};
    return withNumber(bytes, values.at(random.bounded(values.size())), random);
}

QByteArray nested(const QByteArray &bytes, QRandomGenerator &random)
{
    const int depth = 1 + random.bounded(5000);
    return withNumber(bytes, QByteArray(depth, '[') + QByteArray(depth, ']'), random);
}

using Damage = QByteArray (*)(QByteArray, QRandomGenerator &);

} // namespace

void tst_EditorFiles::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QString tst_EditorFiles::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                : QString();
}

void tst_EditorFiles::anyDocumentIsReadAsItWasWritten_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 100; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_EditorFiles::anyDocumentIsReadAsItWasWritten()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const Content content = randomContent(random, random.bounded(40), random.bounded(60));

    const ReadResult result = DocumentReader::read(DocumentWriter::write(content));

    QCOMPARE(result.problem, QString());
    QCOMPARE(result.content, content);
}

void tst_EditorFiles::aDocumentIsSavedAndLoaded()
{
    const QString file = path(QStringLiteral("a.figura"));

    QCOMPARE(DocumentFile::save(file, smallContent()), QString());

    QCOMPARE(DocumentFile::load(file).content, smallContent());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.figura"});
}

void tst_EditorFiles::aFailedSaveLeavesTheFormerFile()
{
    const QString nowhere = path(QStringLiteral("no/such/folder/a.figura"));

    QCOMPARE(DocumentFile::save(nowhere, smallContent()),
             nowhere + QStringLiteral(": No such file or directory"));
    const QString problem = DocumentFile::save(m_folder->path(), smallContent());

    QVERIFY2(problem.startsWith(m_folder->path() + QStringLiteral(": ")), qPrintable(problem));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_EditorFiles::aFullDiskLeavesTheFormerFile()
{
    const QString file = path(QStringLiteral("a.figura"));
    QCOMPARE(DocumentFile::save(file, smallContent()), QString());
    Content more = smallContent();
    more.nodes.first().text = QStringLiteral("more");
    QString problem;
    {
        const FullDisk disk(100);
        problem = DocumentFile::save(file, more);
    }

    QVERIFY2(problem.startsWith(file + QStringLiteral(": ")), qPrintable(problem));
    QCOMPARE(DocumentFile::load(file).content, smallContent());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.figura"});
}

void tst_EditorFiles::aFileThatCannotBeReadIsOneLine_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << "the file is empty";
    QTest::newRow("another kind") << QByteArray("\x89PNG\r\n")
                                  << "damaged, or no diagram: illegal value at byte 1";
    QTest::newRow("broken off") << QByteArray("{\"format\":[]")
                                << "damaged, or no diagram: unterminated object at byte 12";
    QTest::newRow("a list") << QByteArray("[1]") << "this is no diagram of this editor";
    QTest::newRow("another format") << QByteArray("{\"format\":\"other\",\"version\":1}")
                                    << "format: this is no diagram of this editor";
    QTest::newRow("no format") << QByteArray("{\"a\":1}")
                               << "format: this is no diagram of this editor";
    QTest::newRow("no version") << QByteArray("{\"format\":\"figura-diagram\"}")
                                << "version: missing";
    QTest::newRow("from the future")
        << QByteArray("{\"format\":\"figura-diagram\",\"version\":2,\"new\":[]}")
        << "version: 2 is newer than this editor, which reads 1";
    QTest::newRow("unknown member") << json("'nodes':[],'colour':1") << "colour: unknown";
    QTest::newRow("node is no object") << json("'nodes':[3]") << "nodes[0]: not an object";
    QTest::newRow("nodes are no list") << json("'nodes':{}") << "nodes: not a list";
    QTest::newRow("no id") << json("'nodes':[{'kind':'text','rect':[0,0,50,50]}]")
                           << "nodes[0].id: missing";
    QTest::newRow("id is a text") << json("'nodes':[{'id':'1','kind':'text','rect':[0,0,50,50]}]")
                                  << "nodes[0].id: not a whole number";
    QTest::newRow("unknown kind") << json("'nodes':[{'id':1,'kind':'blob','rect':[0,0,50,50]}]")
                                  << "nodes[0].kind: 'blob' is unknown";
    QTest::newRow("flat") << json("'nodes':[{'id':1,'kind':'text','rect':[0,0,50,0]}]")
                          << "nodes[0].rect: too large, too small or too far out";
    QTest::newRow("rect of three") << json("'nodes':[{'id':1,'kind':'text','rect':[0,0,50]}]")
                                   << "nodes[0].rect: not four whole numbers";
    QTest::newRow("broken number") << json("'nodes':[{'id':1,'kind':'text','rect':[0,0,50,5.5]}]")
                                   << "nodes[0].rect: not four whole numbers";
    QTest::newRow("style") << nodeJson(",'style':{'lineWidth':21}")
                           << "nodes[0].style.lineWidth: 21 is not between 1 and 20";
    QTest::newRow("style is a number") << nodeJson(",'style':1") << "nodes[0].style: not an object";
    QTest::newRow("colour") << nodeJson(",'style':{'fill':'#12345'}")
                            << "nodes[0].style.fill: not a colour";
    QTest::newRow("bold") << nodeJson(",'style':{'bold':1}")
                          << "nodes[0].style.bold: neither true nor false";
    QTest::newRow("long text") << nodeJson(",'text':'" + QString(10'001, 'x') + '\'')
                               << "nodes[0].text: longer than 10000 characters";
    QTest::newRow("no picture") << nodeJson(",'picture':'QUJD'")
                                << "nodes[0].picture: not a picture";
    QTest::newRow("no base64") << nodeJson(",'picture':'$$$'") << "nodes[0].picture: damaged";
    QTest::newRow("no lane") << nodeJson(",'lane':7") << "nodes[0].lane: there is no lane 7";
    QTest::newRow("in itself") << nodeJson(",'lane':1") << "nodes[0].lane: there is no lane 1";
    QTest::newRow("no target") << edgeJson("'source':1") << "edges[0].target: missing";
    QTest::newRow("to nowhere") << edgeJson("'source':1,'target':3")
                                << "edges[0].target: there is no node 3";
    QTest::newRow("bends") << edgeJson("'source':1,'target':1,'bends':[[1,2],[3]]")
                           << "edges[0].bends: not pairs of whole numbers";
    QTest::newRow("far bends") << edgeJson("'source':1,'target':1,'bends':[[1,200000]]")
                               << "edges[0].bends: too far out";
    QTest::newRow("twice") << json("'nodes':[{'id':1,'kind':'text','rect':[0,0,50,50]},"
                                   "{'id':1,'kind':'text','rect':[0,0,50,50]}]")
                           << "nodes[1].id: 1 is there twice";
}

void tst_EditorFiles::aFileThatCannotBeReadIsOneLine()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    const QString file = write(QStringLiteral("x.figura"), bytes);

    const ReadResult result = DocumentFile::load(file);

    QCOMPARE(result.problem, file + QStringLiteral(": ") + problem);
    QVERIFY(result.content.isEmpty());
}

void tst_EditorFiles::aFolderIsNoDocument()
{
    QCOMPARE(DocumentFile::load(m_folder->path()).problem,
             m_folder->path() + QStringLiteral(": is a folder"));
    const QString missing = path(QStringLiteral("missing"));
    QCOMPARE(DocumentFile::load(missing).problem,
             missing + QStringLiteral(": No such file or directory"));
}

void tst_EditorFiles::damagedFilesAreRefusedOrHoldTogether_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("truncated") << 0;
    QTest::newRow("bits flipped") << 1;
    QTest::newRow("wrong types") << 2;
    QTest::newRow("huge numbers") << 3;
    QTest::newRow("deep nesting") << 4;
}

// Some damage is none: a flipped bit in a text gives another text.
void tst_EditorFiles::damagedFilesAreRefusedOrHoldTogether()
{
    QFETCH(int, kind);
    const auto damage = [kind](const QByteArray &bytes, QRandomGenerator &random) {
        switch (kind) {
        case 0:
            return truncated(bytes, random);
        case 1:
            return flipped(bytes, random);
        case 2:
            return wrongType(bytes, random);
        case 3:
            return hugeNumber(bytes, random);
        default:
            return nested(bytes, random);
        }
    };
    int refused = 0;
    for (quint32 seed = 1; seed <= 200; ++seed) {
        QRandomGenerator random(seed);
        const QByteArray good = DocumentWriter::write(randomContent(random, 10, 10));

        const ReadResult result = DocumentReader::read(damage(good, random));

        refused += !result.ok();
        QVERIFY(!result.problem.contains(QLatin1Char('\n')));
        QCOMPARE(problemOf(result.content), QString());
        QVERIFY(result.ok() || result.content.isEmpty());
    }
    QVERIFY2(refused > 100, qPrintable(QString::number(refused)));
}

void tst_EditorFiles::aPictureFileIsLoaded()
{
    const QByteArray bytes = picture({30, 20}, Qt::red);
    QString problem;

    const QByteArray loaded = Pictures::load(write(QStringLiteral("a.png"), bytes), &problem);

    QCOMPARE(problem, QString());
    QCOMPARE(loaded, bytes);
    QCOMPARE(Pictures::sizeOf(loaded), QSize(30, 20));
    QCOMPARE(Pictures::decoded(loaded).pixelColor(3, 3), QColor(Qt::red));
}

void tst_EditorFiles::aFileThatIsNoPictureIsRefused()
{
    const QString file = write(QStringLiteral("a.png"), "no picture");
    QString problem;

    QVERIFY(Pictures::load(file, &problem).isEmpty());

    QCOMPARE(problem, file + QStringLiteral(": not a picture"));
    QVERIFY(Pictures::decoded("no picture").isNull());
}

void tst_EditorFiles::recentFilesAreTheLatestFirst()
{
    QSettings settings(path(QStringLiteral("settings.ini")), QSettings::IniFormat);
    RecentFiles recent(settings);
    QStringList files;
    for (int i = 0; i < 10; ++i)
        files.prepend(write(QString::number(i), "x"));

    for (auto file = files.crbegin(); file != files.crend(); ++file)
        recent.add(*file);
    recent.add(files.at(3));
    QFile::remove(files.at(1));

    QCOMPARE(recent.paths(), (QStringList{files.at(3), files.at(0), files.at(2), files.at(4),
                                          files.at(5), files.at(6), files.at(7)}));
    recent.clear();
    QCOMPARE(recent.paths(), QStringList());
}

void tst_EditorFiles::aCopyOfUnsavedWorkIsFoundWhenTheSessionIsGone()
{
    Document document;
    document.setContent(smallContent());
    {
        Recovery session(document, path(QStringLiteral("recovery")));
        session.setDelay(std::chrono::milliseconds(1));
        session.noteChange(QStringLiteral("/home/a.figura"));
        QTRY_COMPARE(
            QDir(path(QStringLiteral("recovery"))).entryList({QStringLiteral("*.recovery")}).size(),
            1);
    }

    const QList<Recovery::Found> found = Recovery::abandoned(path(QStringLiteral("recovery")));

    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().origin, QStringLiteral("/home/a.figura"));
    QCOMPARE(found.first().content, smallContent());
    Recovery::discard(found.first());
    QVERIFY(Recovery::abandoned(path(QStringLiteral("recovery"))).isEmpty());
}

void tst_EditorFiles::noCopyIsLeftOfSettledWork()
{
    Document document;
    const QDir folder(path(QStringLiteral("recovery")));
    {
        Recovery session(document, folder.path());
        session.setDelay(std::chrono::milliseconds(1));
        session.noteChange({});
        QTRY_COMPARE(folder.entryList({QStringLiteral("*.recovery")}).size(), 1);
        session.noteChange({});

        session.settle();

        QTest::qWait(20); // a copy that was due must not come any more
    }
    QVERIFY(Recovery::abandoned(folder.path()).isEmpty());
}

void tst_EditorFiles::theCopyOfALivingSessionIsNotFound()
{
    Document document;
    const QDir folder(path(QStringLiteral("recovery")));
    Recovery session(document, folder.path());
    session.setDelay(std::chrono::milliseconds(1));
    session.noteChange({});
    QTRY_COMPARE(folder.entryList({QStringLiteral("*.recovery")}).size(), 1);

    QVERIFY(Recovery::abandoned(folder.path()).isEmpty());
}

void tst_EditorFiles::aDamagedCopyIsLeftOut()
{
    write(QStringLiteral("a.recovery"), "{\"origin\":\"\",\"document\":{}}");
    write(QStringLiteral("b.recovery"), "");

    QVERIFY(Recovery::abandoned(m_folder->path()).isEmpty());
}

QTEST_MAIN(tst_EditorFiles)
#include "tst_editor_files.moc"
