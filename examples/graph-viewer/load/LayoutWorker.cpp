#include "LayoutWorker.h"

#include "GraphLoader.h"
#include "ModelStream.h"

#include <QDataStream>
#include <QFile>

#include <cstdio>
#include <cstdlib>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

namespace GraphViewer {
namespace {

// A crash of the engine is an answer here, and not worth a core file.
void leaveNoCore()
{
#ifdef Q_OS_UNIX
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
#endif
}

bool send(const LoadReply &reply)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return false;
    QDataStream stream(&output);
    stream << reply;
    return output.flush() && stream.status() == QDataStream::Ok;
}

} // namespace

bool LayoutWorker::isMeant(int argc, char **argv)
{
    return argc == 4 && qstrcmp(argv[1], Switch) == 0;
}

void LayoutWorker::run(char **argv)
{
    leaveNoCore();
    const GraphLoader loader(QString::fromLatin1(argv[3]));
    const bool sent = send(loader.load(QFile::decodeName(argv[2])));
    // What the engine has allocated goes with the process, much faster than piece by piece.
    std::_Exit(sent ? EXIT_SUCCESS : EXIT_FAILURE);
}

} // namespace GraphViewer
