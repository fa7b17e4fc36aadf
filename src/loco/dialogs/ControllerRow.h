#pragma once

#include "Controllers.h"

#include <QObject>

class ControllerComboBox;
class QAbstractItemModel;
class QCheckBox;
class QLabel;
class QLineEdit;
struct LocoFunction;

/// The columns of the configurator's rows, from left to right.
enum class RowColumn {
    Function,
    Controller,
    Min,
    Max,
    Std,
    OverMin,
    OverMax,
    Adjust,
    Value,
    Shown,
    Count
};

/// One function of the configurator: a line of widgets, children of the given widget, that edits
/// one record. The seven inputs are named after the function's stem, `comboBox_<stem>`,
/// `lineEdit_<stem>_min` and so on. Entry 0 of the combo box stands for "not used", entry n + 1
/// for the controller n.
class ControllerRow : public QObject
{
    Q_OBJECT

public:
    ControllerRow(const LocoFunction &function, QAbstractItemModel *entries, QWidget *parent);

    const LocoFunction &Function() const { return function; }
    QWidget *Cell(RowColumn column) const { return cells[static_cast<int>(column)]; }
    ControllerComboBox *Combo() const { return combo; }

    /// Shows a record. A controller beyond the list leaves the combo box without a selection, and
    /// its place tells the number and the name that are kept.
    void Fill(const VControllerBase &record);
    /// Takes the inputs over. Without a selection the record keeps its controller.
    void Read(VControllerBase &record) const;
    void SetLimits(int min, int max);

    /// The number of the selected controller: -1 for none, and the record's own when it lies
    /// beyond the list.
    int SelectedId() const;
    /// Selects the first entry, after the entries were replaced.
    void Clear();

    /// The value that the simulator reports for the selected controller, as it comes and as the
    /// displays see it with the limits of this row; null where nothing is known.
    void ShowValue(const float *value);

    /// Case-insensitive search in label, key and selected controller.
    bool Matches(const QString &text) const;
    void SetVisible(bool visible);

private:
    QLineEdit *AddNumber(RowColumn column, const char *suffix, const QString &what);
    QLabel *AddLabel(RowColumn column, Qt::Alignment alignment);
    template <typename Widget>
    Widget *Add(RowColumn column, const QString &objectName);

    const LocoFunction &function;
    QWidget *const parentWidget;
    QWidget *cells[static_cast<int>(RowColumn::Count)] = {};
    ControllerComboBox *combo = nullptr;
    QLineEdit *min = nullptr;
    QLineEdit *max = nullptr;
    QLineEdit *std = nullptr;
    QLineEdit *overMin = nullptr;
    QLineEdit *overMax = nullptr;
    QCheckBox *adjust = nullptr;
    QLabel *value = nullptr;
    QLabel *shown = nullptr;
    int keptId = -1; ///< of the record shown, for a controller beyond the list
};
