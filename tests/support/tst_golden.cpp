#include <golden.h>

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Velmora::Figura;

class tst_Golden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void samePictureGivesNoReason();
    void differenceInOnePixelIsCountedAndShown();
    void differenceWithinToleranceIsAccepted();
    void differentSizeNamesBothSizes();
    void missingFileIsNotAMatch();
    void cleanup();

private:
    QTemporaryDir *m_dir = nullptr;
    QString m_former;
    QImage m_stored;
    QString m_path;
};

// Every test works in a folder of its own, as that is where the pictures are left.
void tst_Golden::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_dir = new QTemporaryDir;
    m_former = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir->path()));

    m_stored = QImage(3, 2, QImage::Format_ARGB32);
    m_stored.fill(QColor(10, 20, 30));
    m_path = m_dir->filePath(QStringLiteral("stored.png"));
    QVERIFY(m_stored.save(m_path));
}

void tst_Golden::cleanup()
{
    QDir::setCurrent(m_former);
    delete m_dir;
}

void tst_Golden::samePictureGivesNoReason()
{
    QCOMPARE(compareWithFile(m_stored, m_path), QString());
    QVERIFY(!QFileInfo::exists(QStringLiteral("stored.actual.png")));
}

void tst_Golden::differenceInOnePixelIsCountedAndShown()
{
    QImage actual = m_stored;
    actual.setPixelColor(2, 1, QColor(10, 25, 30));

    const QString reason = compareWithFile(actual, m_path);

    QVERIFY2(reason.startsWith(QStringLiteral("stored differs in 1 pixels by up to 5;")),
             qPrintable(reason));
    QCOMPARE(QImage(QStringLiteral("stored.actual.png")).pixelColor(2, 1), QColor(10, 25, 30));
    const QImage difference(QStringLiteral("stored.difference.png"));
    QCOMPARE(difference.pixelColor(2, 1), QColor(Qt::red));
    QCOMPARE(difference.pixelColor(0, 0), QColor(Qt::white));
}

void tst_Golden::differenceWithinToleranceIsAccepted()
{
    QImage actual = m_stored;
    actual.setPixelColor(0, 0, QColor(13, 17, 30));

    QVERIFY(!compareWithFile(actual, m_path, 2).isEmpty());
    QCOMPARE(compareWithFile(actual, m_path, 3), QString());
}

void tst_Golden::differentSizeNamesBothSizes()
{
    const QString reason = compareWithFile(QImage(4, 4, QImage::Format_ARGB32), m_path);

    QVERIFY2(reason.startsWith(QStringLiteral("stored is 4 x 4, expected 3 x 2;")),
             qPrintable(reason));
}

void tst_Golden::missingFileIsNotAMatch()
{
    const QString reason = compareWithFile(m_stored, QStringLiteral("/nowhere/other.png"));

    QVERIFY2(reason.startsWith(QStringLiteral("/nowhere/other.png cannot be read;")),
             qPrintable(reason));
    QVERIFY(QFileInfo::exists(QStringLiteral("other.actual.png")));
}

QTEST_MAIN(tst_Golden)
#include "tst_golden.moc"
