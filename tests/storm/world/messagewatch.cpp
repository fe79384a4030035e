#include "messagewatch.h"

#include <QRegularExpression>

namespace Velmora::Figura::Storm {
namespace {

std::function<void(const QByteArray &)> teller;

// Qt names the operation without parentheses.
bool isRefusal(const QString &text)
{
    static const QRegularExpression ours(QStringLiteral("^[A-Z]\\w+::\\w+\\(\\): "));
    return ours.match(text).hasMatch();
}

void handle(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !isRefusal(text))
        teller(text.toUtf8());
}

} // namespace

MessageWatch::MessageWatch(const std::function<void(const QByteArray &)> &tell)
{
    teller = tell;
    qInstallMessageHandler(handle);
}

MessageWatch::~MessageWatch()
{
    qInstallMessageHandler(nullptr);
    teller = nullptr;
}

} // namespace Velmora::Figura::Storm
