#include "FullDisk.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>

namespace {
void SetLimit(rlim_t bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}
} // namespace

FullDisk::FullDisk(qint64 bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limitBefore = limit.rlim_cur;
    std::signal(SIGXFSZ, SIG_IGN); // else the first refused write ends the process
    SetLimit(static_cast<rlim_t>(bytes));
}

FullDisk::~FullDisk()
{
    SetLimit(limitBefore);
    std::signal(SIGXFSZ, SIG_DFL);
}

bool FullDisk::IsPossible()
{
    return true;
}
#else
FullDisk::FullDisk(qint64) { }
FullDisk::~FullDisk() = default;

bool FullDisk::IsPossible()
{
    return false;
}
#endif
