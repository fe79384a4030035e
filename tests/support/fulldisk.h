#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

namespace Velmora::Figura::Test {

/// While it lives, files grow no further than to some bytes, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit tight{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }

    Q_DISABLE_COPY_MOVE(FullDisk)
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace Velmora::Figura::Test
