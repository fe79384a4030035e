#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QTest>

namespace {

const QString ROOT = QStringLiteral(FIGURA_SOURCE_DIR);

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The cells of the rows that have as many as the tables of the document, without their headings.
QList<QStringList> rowsOfTheDocument()
{
    QList<QStringList> rows;
    const QStringList lines =
        contentOf(ROOT + QStringLiteral("/docs/lifetimes.md")).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList cells = line.split(QLatin1Char('|'));
        if (cells.size() == 7 && cells.at(1).contains(QLatin1Char('`')))
            rows.append(cells.mid(1, 5));
    }
    return rows;
}

QStringList codeIn(const QString &cell)
{
    static const QRegularExpression code(QStringLiteral("`([^`]+)`"));
    QStringList found;
    for (const QRegularExpressionMatch &match : code.globalMatch(cell))
        found.append(match.captured(1));
    return found;
}

QStringList filesBelow(const QString &directory, const QString &pattern)
{
    QStringList found;
    QDirIterator files(ROOT + directory, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    return found;
}

QString testSource(const QString &name)
{
    return contentOf(filesBelow(QStringLiteral("/tests"), name + QStringLiteral(".cpp")).value(0));
}

/// Reads the members of the classes in a header, line by line.
class HeaderReader
{
public:
    QStringList pointers; ///< As Class::m_member.

    void read(const QString &header)
    {
        for (const QString &line : header.split(QLatin1Char('\n')))
            readLine(line);
    }

private:
    void readLine(const QString &line)
    {
        static const QRegularExpression opening(QStringLiteral(
            "^\\s*(?:class|struct)\\s+(?:FIGURA(?:_DIAGRAM)?_EXPORT\\s+)?(\\w+)(?:\\s*:[^;]*)?$"));
        static const QRegularExpression closing(QStringLiteral("^\\s*\\};"));
        if (const auto match = opening.match(line); match.hasMatch())
            m_classes.append(match.captured(1));
        else if (closing.match(line).hasMatch() && !m_classes.isEmpty())
            m_classes.removeLast();
        else if (!m_classes.isEmpty())
            readMember(line);
    }

    void readMember(const QString &line)
    {
        static const QRegularExpression member(
            QStringLiteral("^\\s+[^/(]*(?:\\*|Pointer<|unique_ptr<)[^/(]*?\\b(m_\\w+)[^(]*;"));
        const auto match = member.match(line);
        if (match.hasMatch() && !line.contains(QLatin1String("char *")))
            pointers.append(m_classes.constLast() + QLatin1String("::") + match.captured(1));
    }

    QStringList m_classes; // the innermost last
};

} // namespace

// docs/lifetimes.md says what happens to each pointer, and which test shows it.
class tst_LifetimeTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void everyRowNamesATestThatExists_data();
    void everyRowNamesATestThatExists();
    void everyPointerHasARow_data();
    void everyPointerHasARow();
};

void tst_LifetimeTable::everyRowNamesATestThatExists_data()
{
    QTest::addColumn<QString>("proof");
    for (const QStringList &row : rowsOfTheDocument()) {
        QTest::newRow(qPrintable(codeIn(row.first()).join(QLatin1Char(' '))))
            << codeIn(row.last()).value(0);
    }
}

void tst_LifetimeTable::everyRowNamesATestThatExists()
{
    QFETCH(QString, proof);
    const QStringList parts = proof.split(QStringLiteral("::"));

    QCOMPARE(parts.size(), 2);
    const QString source = testSource(parts.first());
    QVERIFY2(source.contains(QStringLiteral("::%1()").arg(parts.last())), qPrintable(proof));
}

void tst_LifetimeTable::everyPointerHasARow_data()
{
    QTest::addColumn<QString>("pointer");
    HeaderReader reader;
    for (const char *directory : {"/include", "/src"}) {
        for (const QString &header : filesBelow(QLatin1String(directory), QStringLiteral("*.h")))
            reader.read(contentOf(header));
    }
    for (const QString &pointer : std::as_const(reader.pointers))
        QTest::newRow(qPrintable(pointer)) << pointer;
}

// A pointer that is added has to be thought about, too.
void tst_LifetimeTable::everyPointerHasARow()
{
    QFETCH(QString, pointer);
    static const QStringList known = [] {
        QStringList names;
        for (const QStringList &row : rowsOfTheDocument())
            names += codeIn(row.first());
        return names;
    }();

    QVERIFY2(known.contains(pointer), qPrintable(pointer));
}

QTEST_MAIN(tst_LifetimeTable)
#include "tst_lifetime_table.moc"
