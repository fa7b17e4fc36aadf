#include "LineTable.h"

namespace practice {
namespace {

// Köln to Koblenz along the left bank of the Rhine.
constexpr TrackPoint kTrack[] = {
    {"Köln Hbf", 50.9430, 6.9586, 53},
    {"", 50.9480, 6.9495, 54},
    {"", 50.9440, 6.9392, 55},
    {"Köln Süd", 50.9272, 6.9362, 56},
    {"", 50.9105, 6.9235, 57},
    {"", 50.8960, 6.9155, 58},
    {"", 50.8890, 6.9120, 58}, // foot of the flyover
    {"", 50.8840, 6.9096, 64.5},
    {"Hürth-Kalscheuren", 50.8797, 6.9079, 60},
    {"", 50.8540, 6.9075, 63},
    {"Brühl", 50.8286, 6.9119, 62, true},
    {"", 50.8100, 6.9330, 60},
    {"Sechtem", 50.7917, 6.9581, 59},
    {"", 50.7770, 6.9790, 58},
    {"Roisdorf", 50.7622, 7.0006, 57},
    {"", 50.7480, 7.0480, 58},
    {"", 50.7385, 7.0790, 59},
    {"Bonn Hbf", 50.7320, 7.0968, 60, true},
    {"", 50.7180, 7.1180, 61},
    {"", 50.7010, 7.1440, 63},
    {"Bonn-Bad Godesberg", 50.6836, 7.1594, 64},
    {"", 50.6720, 7.1760, 62},
    {"Bonn-Mehlem", 50.6628, 7.1878, 60},
    {"", 50.6480, 7.2010, 60},
    {"", 50.6296, 7.2086, 61},
    {"Oberwinter", 50.6133, 7.2189, 61, true},
    {"", 50.6000, 7.2200, 62},
    {"", 50.5890, 7.2230, 62},
    {"Remagen", 50.5772, 7.2306, 63},
    {"", 50.5630, 7.2390, 68},
    {"Sinzig", 50.5448, 7.2519, 70},
    {"", 50.5280, 7.2750, 65},
    {"Bad Breisig", 50.5106, 7.2967, 63, true},
    {"", 50.4970, 7.3150, 63},
    {"Brohl", 50.4847, 7.3281, 63},
    {"", 50.4760, 7.3440, 64},
    {"Namedy", 50.4640, 7.3630, 64},
    {"", 50.4520, 7.3820, 65},
    {"Andernach", 50.4349, 7.4050, 66, true},
    {"", 50.4250, 7.4310, 67},
    {"Weißenthurm", 50.4156, 7.4558, 68},
    {"", 50.4085, 7.4780, 69},
    {"Urmitz", 50.4017, 7.5000, 71},
    {"", 50.3900, 7.5380, 70},
    {"", 50.3780, 7.5690, 69},
    {"Koblenz-Lützel", 50.3696, 7.5854, 70},
    {"", 50.3640, 7.5890, 76}, // bridge over the Moselle
    {"Koblenz Stadtmitte", 50.3586, 7.5899, 73},
    {"Koblenz Hbf", 50.3508, 7.5890, 72, true},
};

constexpr SpeedRow kSpeeds[] = {
    {{"Köln Hbf", 0.0}, 60},
    {{"Köln Hbf", 1.7}, 80},
    {{"Köln Süd", 0.6}, 120},
    {{"Hürth-Kalscheuren", 0.8}, 160},
    {{"Sechtem", 0.9}, 100}, // slow order below the continuous train control
    {{"Sechtem", 2.2}, 160},
    {{"Bonn Hbf", -2.2}, 120},
    {{"Bonn Hbf", -0.9}, 80},
    {{"Bonn Hbf", 1.0}, 120},
    {{"Bonn-Mehlem", 0.8}, 140},
    {{"Oberwinter", -0.6}, 110},
    {{"Oberwinter", 1.0}, 140},
    {{"Remagen", -1.1}, 120},
    {{"Remagen", 0.8}, 140},
    {{"Brohl", -1.2}, 130},
    {{"Namedy", -0.7}, 120},
    {{"Andernach", -1.2}, 110},
    {{"Andernach", 0.9}, 140},
    {{"Koblenz-Lützel", -2.4}, 100},
    {{"Koblenz Stadtmitte", -0.5}, 80},
    {{"Koblenz Hbf", -0.6}, 60},
};

constexpr SignalRow kSignals[] = {
    {{"Köln Hbf", 0.4}, "Asig"},
    {{"Köln Süd", -0.7}, "Esig"},
    {{"Köln Süd", 0.4}, "Asig"},
    {{"Köln Süd", 2.6}, "Bksig"},
    {{"Hürth-Kalscheuren", -0.7}, "Esig"},
    {{"Hürth-Kalscheuren", 0.4}, "Asig"},
    {{"Hürth-Kalscheuren", 3.0}, "Sbk"},
    {{"Brühl", -0.8}, "Esig"},
    {{"Brühl", 0.5}, "Asig"},
    {{"Brühl", 2.8}, "Sbk"},
    {{"Sechtem", -0.8}, "Esig"},
    {{"Sechtem", 0.5}, "Asig"},
    {{"Roisdorf", -0.8}, "Esig"},
    {{"Roisdorf", 0.5}, "Asig"},
    {{"Roisdorf", 3.4}, "Sbk"},
    {{"Bonn Hbf", -0.9}, "Esig"},
    {{"Bonn Hbf", 0.5}, "Asig"},
    {{"Bonn Hbf", 3.2}, "Bksig"},
    {{"Bonn-Bad Godesberg", -0.8}, "Esig", Aspect::Caution},
    {{"Bonn-Bad Godesberg", 0.5}, "Asig"},
    {{"Bonn-Mehlem", -0.7}, "Esig"},
    {{"Bonn-Mehlem", 0.5}, "Asig"},
    {{"Bonn-Mehlem", 3.6}, "Bksig", Aspect::Held},
    {{"Oberwinter", -0.8}, "Esig"},
    {{"Oberwinter", 0.5}, "Asig"},
    {{"Remagen", -0.9}, "Esig"},
    {{"Remagen", 0.5}, "Asig"},
    {{"Sinzig", -0.8}, "Esig"},
    {{"Sinzig", 0.5}, "Asig"},
    {{"Sinzig", 3.0}, "Bksig", Aspect::Overlooked},
    {{"Bad Breisig", -0.8}, "Esig"},
    {{"Bad Breisig", 0.5}, "Asig"},
    {{"Brohl", -0.8}, "Esig"},
    {{"Brohl", 0.5}, "Asig"},
    {{"Namedy", -0.8}, "Esig"},
    {{"Namedy", 2.2}, "Bksig", Aspect::Order},
    {{"Andernach", -0.8}, "Esig"},
    {{"Andernach", 0.5}, "Asig"},
    {{"Weißenthurm", -0.8}, "Esig"},
    {{"Weißenthurm", 0.5}, "Asig"},
    {{"Urmitz", -0.8}, "Esig"},
    {{"Urmitz", 0.5}, "Asig"},
    {{"Urmitz", 3.4}, "Bksig"},
    {{"Koblenz-Lützel", -0.8}, "Esig"},
    {{"Koblenz-Lützel", 0.5}, "Zsig"},
    {{"Koblenz Hbf", -0.4}, "Esig"},
};

} // namespace

Rows<TrackPoint> TrackPoints()
{
    return RowsOf(kTrack);
}

Rows<SpeedRow> SpeedRows()
{
    return RowsOf(kSpeeds);
}

Rows<SignalRow> SignalRows()
{
    return RowsOf(kSignals);
}

StretchRow LzbStretch()
{
    return {{"Hürth-Kalscheuren", 1.5}, {"Bonn Hbf", -2.6}};
}

StretchRow NeutralStretch()
{
    return {{"Bad Breisig", 1.4}, {"Bad Breisig", 1.7}};
}

StretchRow DrowsyStretch()
{
    return {{"Urmitz", 2.0}, {"Urmitz", 5.2}};
}

} // namespace practice
