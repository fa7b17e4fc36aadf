#include "LocoData.h"

#include <QBuffer>

namespace {
void Read(LocoData &loco, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    if (buffer.open(QIODevice::ReadOnly))
        loco.Read(buffer);
}

QByteArray Saved(const LocoData &loco)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && loco.Write(buffer) ? bytes : QByteArray();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    LocoData loco;
    Read(loco, bytes);
    loco.BuildIdList();
    loco.GetBrhVmax(100, size > 0 ? data[0] : 1);
    loco.LzbDistance();
    loco.LzbTargetSpeed();

    // What the program itself has written comes back as it was. Only a stray carriage return may
    // be taken for a line end on the way.
    LocoData again;
    Read(again, Saved(loco));
    if (!bytes.contains('\r') && Saved(again) != Saved(loco))
        abort();
    return 0;
}
