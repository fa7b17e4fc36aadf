#include "PlanColumns.h"

// The two tables beside each other are the difference between the editors: the timetable offers
// the slope too, and has four columns more.

const QVector<PlanColumn> &RoadMapColumnTable()
{
    static const QVector<PlanColumn> columns{
        {"Lat", 70, CellMenu::Latitude},
        {"Lon", 70, CellMenu::Longitude},
        {"Elev (m)", 70},
        {"Slope", 70},
        {"Entf.", 60, CellMenu::NoMark},
        {"Speed", 50},
        {"Betriebsstellen", 200, CellMenu::Names},
        {"Symbole", 50, CellMenu::Symbols},
        {"Steigung", 0, CellMenu::Gradients},
    };
    return columns;
}

const QVector<PlanColumn> &TimeTableColumnTable()
{
    static const QVector<PlanColumn> columns{
        {"Lat", 70, CellMenu::Latitude},
        {"Lon", 70, CellMenu::Longitude},
        {"Elev (m)", 70},
        {"Slope", 70, CellMenu::Slope},
        {"Entf.", 60, CellMenu::NoMark},
        {"Speed", 50},
        {"Betriebsstellen", 200, CellMenu::Names},
        {"Symbol", 50, CellMenu::Symbols},
        {"Ankunft", 100, CellMenu::None, CellKind::Time},
        {"Abfahrt", 100, CellMenu::None, CellKind::Time},
        {"Type", 100, CellMenu::StopTypes, CellKind::StopType},
        {"Bemerkung", 100},
        {"Steigung", 0, CellMenu::Gradients},
    };
    return columns;
}
