#include "child.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryFile>

#include <cstdio>

namespace Velmora::Figura::Storm {
namespace {

constexpr int patience = 120000; // milliseconds without a word
constexpr char faultMark[] = "fault ";

QByteArray faultIn(const QByteArray &output)
{
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(faultMark))
            return line.mid(qsizetype(sizeof faultMark) - 1);
    }
    return {};
}

// A sanitizer ends the process with a status of its own.
QByteArray verdict(const QProcess &process, const QByteArray &output)
{
    const QByteArray told = faultIn(output);
    if (!told.isEmpty())
        return told;
    if (process.exitStatus() != QProcess::NormalExit)
        return "crash: signal " + QByteArray::number(process.exitCode());
    if (process.exitCode() != 0)
        return "crash: exit status " + QByteArray::number(process.exitCode());
    return {};
}

} // namespace

Outcome runChild(const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    QByteArray output;
    while (process.state() != QProcess::NotRunning) {
        if (!process.waitForReadyRead(patience) && process.state() == QProcess::Running) {
            process.kill();
            process.waitForFinished();
            return {"hang: nothing for two minutes", output + process.readAll()};
        }
        output += process.readAll();
    }
    process.waitForFinished();
    output += process.readAll();
    return {verdict(process, output), output};
}

Outcome playInChild(const Script &script)
{
    QTemporaryFile file;
    if (!file.open() || file.write(toText(script)) < 0 || !file.flush())
        return {"file: cannot write " + file.fileName().toUtf8(), {}};
    return runChild({QStringLiteral("--play"), file.fileName()});
}

void tellFault(const QByteArray &fault)
{
    std::printf("%s%s\n", faultMark, fault.constData());
    std::fflush(stdout);
}

} // namespace Velmora::Figura::Storm
