#pragma once

#include <QByteArray>

#include <functional>

namespace Velmora::Figura::Storm {

/// Passes on what is written to the warning channel, unless it is a refusal of the library's own:
/// those are documented, and operations ask for the impossible all the time. One lives at a time.
class MessageWatch
{
public:
    explicit MessageWatch(const std::function<void(const QByteArray &)> &tell);
    ~MessageWatch();
    MessageWatch(const MessageWatch &) = delete;
    MessageWatch &operator=(const MessageWatch &) = delete;
};

} // namespace Velmora::Figura::Storm
