#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

// The papers against the tree: what they quote is compiled, and what they link to is there.
class tst_Guide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void aQuoteIsFoundWhateverItsIndent_data();
    void aQuoteIsFoundWhateverItsIndent();
    void everyPieceOfCodeIsQuotedFromACompiledFile_data() { addPapers(); }
    void everyPieceOfCodeIsQuotedFromACompiledFile();
    void everyLinkLeadsToAFileOrAHeading_data() { addPapers(); }
    void everyLinkLeadsToAFileOrAHeading();
    void everyChapterHasAPictureAndIsLinkedFromTheIndex_data();
    void everyChapterHasAPictureAndIsLinkedFromTheIndex();

private:
    static void addPapers();
};

namespace {

QString pathOf(const QString &file)
{
    return QStringLiteral(FIGURA_SOURCE_DIR "/") + file;
}

QString contentOf(const QString &file)
{
    QFile source(pathOf(file));
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList papersIn(const QString &folder)
{
    QStringList papers;
    const QStringList names = QDir(pathOf(folder)).entryList({QStringLiteral("*.md")});
    for (const QString &name : names)
        papers.append(QDir::cleanPath(folder + QLatin1Char('/') + name));
    return papers;
}

struct Quote
{
    QString file; // named in a comment right above the code; empty when there is none
    QString code;
};

QList<Quote> quotesOf(const QString &text)
{
    static const QRegularExpression block(
        QStringLiteral("(?:^<!-- from (\\S+) -->\\n)?^```cpp\\n(.*?)^```$"),
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    QList<Quote> quotes;
    for (auto found = block.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        quotes.append({match.captured(1), match.captured(2)});
    }
    return quotes;
}

// Indented as a whole by this much.
QString indented(const QString &code, int columns)
{
    QStringList lines = code.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (!line.isEmpty())
            line.prepend(QString(columns, QLatin1Char(' ')));
    }
    return lines.join(QLatin1Char('\n'));
}

bool isQuotedFrom(const QString &source, const QString &code)
{
    const QString lines = QLatin1Char('\n') + source;
    for (const int columns : {0, 4, 8}) {
        if (lines.contains(QLatin1Char('\n') + indented(code, columns)))
            return true;
    }
    return false;
}

bool isCompiled(const QString &file)
{
    static const QStringList sources = QStringLiteral(FIGURA_QUOTED_SOURCES).split(u',');
    return sources.contains(file);
}

QStringList linksOf(const QString &text)
{
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    QStringList links;
    for (auto found = link.globalMatch(text); found.hasNext();)
        links.append(found.next().captured(1));
    return links;
}

// As the name of a heading is made into an anchor.
QString anchorOf(const QString &heading)
{
    QString anchor = heading.toLower();
    anchor.remove(QRegularExpression(QStringLiteral("[^\\w\\- ]")));
    return anchor.replace(QLatin1Char(' '), QLatin1Char('-'));
}

bool hasHeading(const QString &text, const QString &anchor)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        static const QRegularExpression marks(QStringLiteral("^#+ "));
        if (line.contains(marks) && anchorOf(QString(line).remove(marks)) == anchor)
            return true;
    }
    return false;
}

bool isReachable(const QString &paper, const QString &link)
{
    const QString target = link.section(QLatin1Char('#'), 0, 0);
    const QString anchor = link.section(QLatin1Char('#'), 1);
    const QString folder = QFileInfo(paper).path();
    const QString file =
        target.isEmpty() ? paper : QDir::cleanPath(folder + QLatin1Char('/') + target);
    if (!QFile::exists(pathOf(file)))
        return false;
    return anchor.isEmpty() || hasHeading(contentOf(file), anchor);
}

} // namespace

void tst_Guide::addPapers()
{
    QTest::addColumn<QString>("paper");
    for (const char *folder : {".", "docs", "docs/guide"}) {
        const QStringList papers = papersIn(QLatin1String(folder));
        for (const QString &paper : papers)
            QTest::newRow(qPrintable(paper)) << paper;
    }
}

void tst_Guide::aQuoteIsFoundWhateverItsIndent_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("found");
    QTest::newRow("as it is") << QStringLiteral("a();\n\n    b();\n") << true;
    QTest::newRow("in a function") << QStringLiteral("{\n    a();\n\n        b();\n}\n") << true;
    QTest::newRow("not from the start of a line") << QStringLiteral("aa();\n\n    b();\n") << false;
    QTest::newRow("another line between") << QStringLiteral("a();\nc();\n    b();\n") << false;
    QTest::newRow("bent") << QStringLiteral("    a();\n\n    b();\n") << false;
}

void tst_Guide::aQuoteIsFoundWhateverItsIndent()
{
    QFETCH(QString, source);
    QFETCH(bool, found);

    QCOMPARE(isQuotedFrom(source, QStringLiteral("a();\n\n    b();\n")), found);
}

void tst_Guide::everyPieceOfCodeIsQuotedFromACompiledFile()
{
    QFETCH(QString, paper);
    const QString text = contentOf(paper);
    QVERIFY(!text.isEmpty());

    const QList<Quote> quotes = quotesOf(text);

    QCOMPARE(quotes.size(), text.count(QStringLiteral("```cpp")));
    for (const Quote &quote : quotes) {
        QVERIFY2(isCompiled(quote.file),
                 qPrintable(QStringLiteral("from \"%1\", which is not compiled:\n%2")
                                .arg(quote.file, quote.code)));
        QVERIFY2(isQuotedFrom(contentOf(quote.file), quote.code),
                 qPrintable(quote.file + QStringLiteral(" does not hold\n") + quote.code));
    }
}

void tst_Guide::everyLinkLeadsToAFileOrAHeading()
{
    QFETCH(QString, paper);

    const QStringList links = linksOf(contentOf(paper));

    for (const QString &link : links)
        QVERIFY2(isReachable(paper, link), qPrintable(link));
}

void tst_Guide::everyChapterHasAPictureAndIsLinkedFromTheIndex_data()
{
    QTest::addColumn<QString>("chapter");
    const QStringList papers = papersIn(QStringLiteral("docs/guide"));
    for (const QString &paper : papers) {
        if (!paper.endsWith(QStringLiteral("/index.md")))
            QTest::newRow(qPrintable(paper)) << paper;
    }
}

void tst_Guide::everyChapterHasAPictureAndIsLinkedFromTheIndex()
{
    QFETCH(QString, chapter);

    const QStringList pictures = linksOf(contentOf(chapter)).filter(QStringLiteral(".png"));
    const QStringList index = linksOf(contentOf(QStringLiteral("docs/guide/index.md")));

    QVERIFY(!pictures.isEmpty());
    QVERIFY(index.contains(QFileInfo(chapter).fileName()));
}

QTEST_GUILESS_MAIN(tst_Guide)
#include "tst_guide.moc"
