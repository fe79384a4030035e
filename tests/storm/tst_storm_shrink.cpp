#include "shrink.h"

#include <catalogue.h>
#include <script.h>

#include <QTest>

using namespace Velmora::Figura::Storm;

namespace {

int count(const Script &script, const char *name)
{
    return int(std::count_if(script.begin(), script.end(), [name](const Operation &operation) {
        return operation.code == codeOf(name);
    }));
}

} // namespace

class tst_StormShrink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void sameSeedMakesTheSameOperations();
    void otherSeedOrEpisodeMakesOthers();
    void listSurvivesWritingAndReading();
    void commentsAndEmptyLinesAreSkipped();
    void unknownOperationMakesNoList();
    void listSurvivesBecomingBytes();
    void bytesNeverNameWhatIsOnlyWritten();
    void onlyWhatIsNeededIsLeft();
    void orderIsKept();
    void numbersBecomeSimple();
    void judgeIsNotAskedForEver();
};

void tst_StormShrink::sameSeedMakesTheSameOperations()
{
    const Script script = generate(7, 3, 200);

    QCOMPARE(script.size(), 200);
    QCOMPARE(generate(7, 3, 200), script);
}

void tst_StormShrink::otherSeedOrEpisodeMakesOthers()
{
    const Script script = generate(7, 3, 200);

    QVERIFY(generate(8, 3, 200) != script);
    QVERIFY(generate(7, 4, 200) != script);
}

void tst_StormShrink::listSurvivesWritingAndReading()
{
    const Script script = generate(1, 0, 500);

    const std::optional<Script> read = fromText(toText(script));

    QVERIFY(read);
    QCOMPARE(*read, script);
}

void tst_StormShrink::commentsAndEmptyLinesAreSkipped()
{
    const std::optional<Script> read = fromText("# found by night\n\n  nudge 1  2 # a little\n");

    QVERIFY(read);
    QCOMPARE(*read, Script({Operation{codeOf("nudge"), {1, 2}}}));
}

void tst_StormShrink::unknownOperationMakesNoList()
{
    QVERIFY(!fromText("check\nsubmerge 1\n"));
}

void tst_StormShrink::listSurvivesBecomingBytes()
{
    Script script = generate(2, 0, 300);
    for (Operation &operation : script) {
        for (int &number : operation.numbers)
            number %= 256;
    }

    QCOMPARE(decode(encode(script)), script);
}

void tst_StormShrink::bytesNeverNameWhatIsOnlyWritten()
{
    const QByteArray bytes(1, char(codeOf("crash")));

    QVERIFY(decode(bytes).isEmpty());
}

void tst_StormShrink::onlyWhatIsNeededIsLeft()
{
    Script script = generate(3, 0, 400);
    script.insert(111, Operation{codeOf("crash"), {}});
    script.insert(333, Operation{codeOf("complain"), {5}});

    const Script shrunk = shrink(script, [](const Script &candidate) {
        return count(candidate, "crash") > 0 && count(candidate, "complain") > 0;
    });

    QCOMPARE(toText(shrunk), QByteArray("crash\ncomplain\n"));
}

void tst_StormShrink::orderIsKept()
{
    Script script = generate(3, 0, 60);
    script.prepend(Operation{codeOf("complain"), {}});
    script.append(Operation{codeOf("crash"), {}});

    const Script shrunk = shrink(script, [](const Script &candidate) {
        return candidate.size() >= 2 && candidate.first().code == codeOf("complain") &&
               candidate.last().code == codeOf("crash");
    });

    QCOMPARE(toText(shrunk), QByteArray("complain\ncrash\n"));
}

void tst_StormShrink::numbersBecomeSimple()
{
    const Script script{Operation{codeOf("nudge"), {41, 42, 43}}};

    const Script shrunk = shrink(script, [](const Script &candidate) {
        return candidate.size() == 1 && candidate.first().numbers.value(1) == 42;
    });

    QCOMPARE(toText(shrunk), QByteArray("nudge 0 42\n"));
}

void tst_StormShrink::judgeIsNotAskedForEver()
{
    int asked = 0;

    shrink(
        generate(4, 0, 500),
        [&asked](const Script &) {
            ++asked;
            return false;
        },
        25);

    QCOMPARE(asked, 25);
}

QTEST_APPLESS_MAIN(tst_StormShrink)
#include "tst_storm_shrink.moc"
