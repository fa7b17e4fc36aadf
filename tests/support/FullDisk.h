#pragma once

#include <QtGlobal>

/// While it lives, every file of this process ends at that many bytes, and writing beyond fails as
/// it does on a full disk.
class FullDisk
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    Q_DISABLE_COPY_MOVE(FullDisk)

    /// False on platforms that know no such limit.
    static bool IsPossible();

private:
    quint64 limitBefore = 0;
};
