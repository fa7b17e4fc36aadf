#pragma once

#include <QVector>

/// Columns that stand in the same place in both tables.
enum PlanColumnNumber : int {
    ColumnLat,
    ColumnLon,
    ColumnElevation,
    ColumnSlope,
    ColumnDistance,
    ColumnSpeed,
    ColumnName,
    ColumnSymbol,
    SharedColumns,
};

enum RoadMapColumn : int {
    RoadMapGradient = SharedColumns,
    RoadMapColumns,
};

enum TimeTableColumn : int {
    ColumnArrival = SharedColumns,
    ColumnDeparture,
    ColumnType,
    ColumnRemark,
    TimeTableGradient,
    TimeTableColumns,
};

/// What stands in the cells of a column.
enum class CellKind {
    Text,
    Time, ///< an edit for the time, or an empty text
    StopType, ///< a choice of the stop types
};

/// What the context menu of a cell offers.
enum class CellMenu {
    None,
    Latitude,
    Longitude,
    Slope,
    NoMark,
    Names,
    Symbols,
    Gradients,
    StopTypes,
};

struct PlanColumn
{
    const char *header;
    int width; ///< pixels; 0 leaves the default
    CellMenu menu = CellMenu::None;
    CellKind kind = CellKind::Text;
};

const QVector<PlanColumn> &RoadMapColumnTable();
const QVector<PlanColumn> &TimeTableColumnTable();
