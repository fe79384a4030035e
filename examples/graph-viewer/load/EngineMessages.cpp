#include "EngineMessages.h"

#include <cgraph.h>

#include <QByteArray>
#include <QList>

namespace GraphViewer {
namespace {

struct Message
{
    bool isError = false;
    QByteArray text;

    QString line() const { return QString::fromUtf8(text.simplified()); }
};

// Global, because the engine's callback carries no data of ours.
QList<Message> caught;

// Called with pieces: "Error", then ": ", then the text, then perhaps lines that belong to it.
int catchPiece(char *piece)
{
    const QByteArray text(piece);
    if (text == "Error" || text == "Warning")
        caught << Message{text == "Error", {}};
    else if (text != ": " && !caught.isEmpty())
        caught.last().text += text;
    return 0;
}

} // namespace

EngineMessages::EngineMessages()
{
    caught.clear();
    agseterrf(catchPiece);
}

EngineMessages::~EngineMessages()
{
    agseterrf(nullptr);
}

QStringList EngineMessages::lines() const
{
    QStringList lines;
    for (const Message &message : std::as_const(caught)) {
        if (!lines.contains(message.line()))
            lines << message.line();
    }
    return lines;
}

QString EngineMessages::firstError() const
{
    for (const Message &message : std::as_const(caught)) {
        if (message.isError)
            return message.line();
    }
    return {};
}

} // namespace GraphViewer
