#include "ScheduleTable.h"

namespace practice {
namespace {

constexpr int At(int hour, int minute, int second = 0)
{
    return (hour * 60 + minute) * 60 + second;
}

constexpr StopRow kLocal[] = {
    {"Köln Hbf", -1, At(7, 0), StopKind::Start},
    {"Köln Süd", At(7, 4), At(7, 4, 30), StopKind::Stop},
    {"Hürth-Kalscheuren", At(7, 9), At(7, 9, 30), StopKind::Stop},
    {"Brühl", At(7, 13, 30), At(7, 14), StopKind::Stop},
    {"Sechtem", At(7, 18), At(7, 18, 30), StopKind::Stop},
    {"Roisdorf", At(7, 22, 30), At(7, 23), StopKind::Stop},
    {"Bonn Hbf", At(7, 28), At(7, 28, 30), StopKind::Stop},
    {"Bonn-Bad Godesberg", At(7, 34), At(7, 34, 30), StopKind::Stop},
    {"Bonn-Mehlem", At(7, 37, 30), At(7, 38), StopKind::Stop},
    {"Oberwinter", At(7, 44), At(7, 44, 30), StopKind::Stop},
    {"Remagen", At(7, 48), At(7, 48, 30), StopKind::Stop},
    {"Sinzig", At(7, 52), At(7, 52, 30), StopKind::Stop},
    {"Bad Breisig", At(7, 57, 30), At(7, 58), StopKind::Stop},
    {"Brohl", At(8, 1, 30), At(8, 2), StopKind::Stop},
    {"Namedy", At(8, 5), At(8, 5, 30), StopKind::Stop},
    {"Andernach", At(8, 11), At(8, 11, 30), StopKind::Stop},
    {"Weißenthurm", At(8, 15), At(8, 15, 30), StopKind::Stop},
    {"Urmitz", At(8, 18, 30), At(8, 19), StopKind::Stop},
    {"Koblenz-Lützel", At(8, 25), At(8, 25, 30), StopKind::Stop},
    {"Koblenz Stadtmitte", At(8, 27, 30), At(8, 28), StopKind::Stop},
    {"Koblenz Hbf", At(8, 29, 30), -1, StopKind::End},
};

constexpr StopRow kExpress[] = {
    {"Köln Hbf", -1, At(9, 2), StopKind::Start},
    {"Köln Süd", -1, At(9, 5, 30), StopKind::Pass},
    {"Hürth-Kalscheuren", -1, At(9, 9), StopKind::Pass},
    {"Brühl", -1, At(9, 11, 30), StopKind::Pass},
    {"Sechtem", -1, At(9, 13, 30), StopKind::Pass},
    {"Roisdorf", -1, At(9, 16), StopKind::Pass},
    {"Bonn Hbf", At(9, 20), At(9, 22), StopKind::Stop},
    {"Bonn-Bad Godesberg", -1, At(9, 26, 30), StopKind::Pass},
    {"Bonn-Mehlem", -1, At(9, 28, 30), StopKind::Pass},
    {"Oberwinter", -1, At(9, 33), StopKind::Pass},
    {"Remagen", At(9, 36), At(9, 38), StopKind::Stop},
    {"Sinzig", -1, At(9, 40, 30), StopKind::Pass},
    {"Bad Breisig", -1, At(9, 44), StopKind::Pass},
    {"Brohl", -1, At(9, 45, 30), StopKind::Pass},
    {"Namedy", -1, At(9, 47), StopKind::Pass},
    {"Andernach", At(9, 52), At(9, 54), StopKind::Stop},
    {"Weißenthurm", -1, At(9, 56, 30), StopKind::Pass},
    {"Urmitz", -1, At(9, 58), StopKind::Pass},
    {"Koblenz-Lützel", -1, At(10, 3), StopKind::Pass},
    {"Koblenz Stadtmitte", -1, At(10, 4), StopKind::Pass},
    {"Koblenz Hbf", At(10, 5), -1, StopKind::End},
};

constexpr StopRow kMiles[] = {
    {"Köln Hbf", -1, At(13, 0), StopKind::Start},
    {"Köln Süd", -1, At(13, 4), StopKind::Pass},
    {"Hürth-Kalscheuren", -1, At(13, 8), StopKind::Pass},
    {"Brühl", At(13, 12), At(13, 13), StopKind::Stop},
    {"Sechtem", -1, At(13, 17, 30), StopKind::Pass},
    {"Roisdorf", -1, At(13, 20, 30), StopKind::Pass},
    {"Bonn Hbf", At(13, 25, 30), At(13, 26, 30), StopKind::Stop},
    {"Bonn-Bad Godesberg", -1, At(13, 32), StopKind::Pass},
    {"Bonn-Mehlem", -1, At(13, 34), StopKind::Pass},
    {"Oberwinter", -1, At(13, 37, 30), StopKind::Pass},
    {"Remagen", At(13, 40, 30), At(13, 41, 30), StopKind::Stop},
    {"Sinzig", -1, At(13, 45, 30), StopKind::Pass},
    {"Bad Breisig", -1, At(13, 48, 30), StopKind::Pass},
    {"Brohl", -1, At(13, 50, 30), StopKind::Pass},
    {"Namedy", -1, At(13, 53), StopKind::Pass},
    {"Andernach", At(13, 56), At(13, 57), StopKind::Stop},
    {"Weißenthurm", -1, At(14, 1), StopKind::Pass},
    {"Urmitz", -1, At(14, 3), StopKind::Pass},
    {"Koblenz-Lützel", -1, At(14, 7, 30), StopKind::Pass},
    {"Koblenz Stadtmitte", -1, At(14, 8, 30), StopKind::Pass},
    {"Koblenz Hbf", At(14, 9, 30), -1, StopKind::End},
};

constexpr ScheduleRow kSchedules[] = {
    {"RB 26 Koeln-Koblenz", "RB 26111", "{6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2b01}",
     "Hält an jeder Station.\nVerstärkt im Berufsverkehr.", false, 140, 320, 160, RowsOf(kLocal)},
    {"IC 2021 Koeln-Koblenz", "IC 2021", "{6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2b02}",
     "Fernzug mit wenigen Halten.", false, 160, 480, 260, RowsOf(kExpress)},
    {"ES44 Rhine in miles", "ES 5412", "{6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2b03}",
     "Distance marks in statute miles.", true, 112, 1400, 400, RowsOf(kMiles)},
};

} // namespace

Rows<ScheduleRow> ScheduleRows()
{
    return RowsOf(kSchedules);
}

} // namespace practice
