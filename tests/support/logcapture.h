#pragma once

#include <QList>
#include <QMessageLogContext>
#include <QString>
#include <QStringList>

namespace Velmora::Figura::Test {

/// Collects all messages while it lives. They reach nobody else, so neither QTest::ignoreMessage()
/// nor QTest::failOnWarning() sees them. Captures may be nested.
class LogCapture
{
public:
    struct Message
    {
        QtMsgType type;
        QString text;
        bool hasPlace; ///< It carries a file or a line.
    };

    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY_MOVE(LogCapture)

    const QList<Message> &messages() const;
    QStringList texts(QtMsgType type) const; ///< Of one channel, in order.
    void clear();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static LogCapture *s_current;

    LogCapture *m_outer;
    QtMessageHandler m_former;
    QList<Message> m_messages;
};

} // namespace Velmora::Figura::Test
