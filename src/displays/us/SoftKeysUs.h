#pragma once

#include <QStringList>

/// The page that the North American screen shows; also its place in the stack of pages.
enum TrackState : int {
    MainPage = 0,
    TrackPage = 1,
    TrackList = 2,
};

/// Keys in each of the two rows.
constexpr int kSoftKeys = 8;

/// The captions of both rows, eight each; an empty one is a key without function. A caption is
/// also what its key is known by.
struct SoftKeyRows
{
    QStringList top;
    QStringList bottom;
};

SoftKeyRows SoftKeysOf(TrackState state);
