#include "storm.h"

#include "child.h"
#include "shrink.h"

#include <play.h>

#include <QFile>

#include <cstdio>

namespace Velmora::Figura::Storm {
namespace {

constexpr quint32 episodesPerChild = 50;

// The output of the children may be long, and what went wrong stands at its end.
constexpr qsizetype shownOutput = 6000;

void print(const QByteArray &text)
{
    std::printf("%s\n", text.constData());
    std::fflush(stdout);
}

quint32 episodesFor(qint64 operations)
{
    return static_cast<quint32>((operations + operationsPerEpisode - 1) / operationsPerEpisode);
}

// The one that was begun last.
quint32 episodeIn(const QByteArray &output)
{
    const qsizetype mark = output.lastIndexOf("episode ");
    const QByteArray line = output.mid(mark + 8);
    return line.left(line.indexOf('\n')).toUInt();
}

QString writeList(const Script &script, const QByteArray &comment)
{
    const QString name = QStringLiteral("storm-fault.storm");
    QFile file(name);
    if (file.open(QIODevice::WriteOnly))
        file.write("# " + comment + '\n' + toText(script));
    return name;
}

void printFault(const Outcome &outcome)
{
    if (outcome.kind() == "crash")
        print(outcome.output.right(shownOutput));
    print(outcome.fault);
}

// Only a list that fails in the same way is the same fault.
void boilDown(const Script &script, const Outcome &outcome)
{
    print("shrinking " + QByteArray::number(script.size()) + " operations...");
    const Script shrunk = shrink(script, [&](const Script &candidate) {
        return playInChild(candidate).kind() == outcome.kind();
    });
    const Outcome last = playInChild(shrunk);
    printFault(last);
    print(toText(shrunk));
    print("replay it with --replay " + writeList(shrunk, last.fault).toUtf8());
}

bool raiseEpisodes(quint32 seed, quint32 first, quint32 last)
{
    const Outcome outcome = runChild({QStringLiteral("--episodes"), QString::number(seed),
                                      QString::number(first), QString::number(last)});
    if (outcome.fault.isEmpty())
        return true;
    const quint32 episode = episodeIn(outcome.output);
    printFault(outcome);
    print("seed " + QByteArray::number(seed) + ", episode " + QByteArray::number(episode));
    const Script script = generate(seed, episode, operationsPerEpisode);
    const Outcome alone = playInChild(script);
    if (alone.fault.isEmpty())
        print("the episode does not fail on its own");
    else
        boilDown(script, alone);
    return false;
}

bool raiseSeed(quint32 seed, quint32 episodes)
{
    for (quint32 first = 0; first < episodes; first += episodesPerChild) {
        const quint32 last = qMin(first + episodesPerChild, episodes);
        if (!raiseEpisodes(seed, first, last))
            return false;
        print("seed " + QByteArray::number(seed) + ": " +
              QByteArray::number(qint64(last) * operationsPerEpisode) + " operations");
    }
    return true;
}

} // namespace

bool raise(const Request &request)
{
    for (quint32 seed = request.firstSeed; seed <= request.lastSeed; ++seed) {
        if (!raiseSeed(seed, episodesFor(request.operations)))
            return false;
    }
    return true;
}

bool explain(const Script &script)
{
    const Outcome outcome = playInChild(script);
    if (outcome.fault.isEmpty())
        return true;
    boilDown(script, outcome);
    return false;
}

bool playFile(const QString &fileName)
{
    QFile file(fileName);
    const std::optional<Script> script =
        file.open(QIODevice::ReadOnly) ? fromText(file.readAll()) : std::nullopt;
    const QByteArray fault = script ? play(*script) : "list: cannot read " + fileName.toUtf8();
    if (!fault.isEmpty())
        tellFault(fault);
    return fault.isEmpty();
}

bool playEpisodes(quint32 seed, quint32 first, quint32 last)
{
    for (quint32 episode = first; episode < last; ++episode) {
        print("episode " + QByteArray::number(episode));
        const QByteArray fault = play(generate(seed, episode, operationsPerEpisode));
        if (!fault.isEmpty()) {
            tellFault(fault);
            return false;
        }
    }
    return true;
}

} // namespace Velmora::Figura::Storm
