#include "SoftKeysUs.h"

namespace {
struct SoftKey
{
    TrackState state;
    QStringList SoftKeyRows::*row;
    int place;
    const char *text;
};

constexpr SoftKey kKeys[] = {
    {MainPage, &SoftKeyRows::top, 0, "Current\nThrottle"},
    {MainPage, &SoftKeyRows::top, 3, "Track"},
    {MainPage, &SoftKeyRows::bottom, 0, "Distance\nStart"},
    {TrackPage, &SoftKeyRows::top, 0, "Select\nTrack"},
    {TrackPage, &SoftKeyRows::bottom, 0, "Display\nTrack"},
    {TrackList, &SoftKeyRows::top, 0, "Load\nTrack"},
    {TrackList, &SoftKeyRows::bottom, 0, "Back\n"},
};

QStringList EmptyRow()
{
    QStringList row;
    for (int i = 0; i < kSoftKeys; ++i)
        row.append(QString());
    return row;
}
} // namespace

SoftKeyRows SoftKeysOf(TrackState state)
{
    SoftKeyRows rows{EmptyRow(), EmptyRow()};
    for (const SoftKey &key : kKeys) {
        if (key.state == state)
            (rows.*key.row)[key.place] = QString::fromLatin1(key.text);
    }
    return rows;
}
