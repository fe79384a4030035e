#include <logcapture.h>

#include <QStringList>

namespace Velmora::Figura::Test {

LogCapture *LogCapture::s_current = nullptr;

LogCapture::LogCapture()
    : m_outer(s_current)
    , m_former(qInstallMessageHandler(&LogCapture::handle))
{
    s_current = this;
}

LogCapture::~LogCapture()
{
    s_current = m_outer;
    qInstallMessageHandler(m_former);
}

const QList<LogCapture::Message> &LogCapture::messages() const
{
    return m_messages;
}

QStringList LogCapture::texts(QtMsgType type) const
{
    QStringList result;
    for (const Message &message : m_messages) {
        if (message.type == type)
            result.append(message.text);
    }
    return result;
}

void LogCapture::clear()
{
    m_messages.clear();
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    s_current->m_messages.append({type, text, context.file != nullptr || context.line != 0});
}

} // namespace Velmora::Figura::Test
