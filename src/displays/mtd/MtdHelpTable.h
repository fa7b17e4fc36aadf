#pragma once

#include <QTableWidget>

/// A table of a help page: nothing to select or scroll, so all rows share the height. Text that
/// would not fit its row gets smaller.
class MtdHelpTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit MtdHelpTable(QWidget *parent = nullptr);

    /// Writes a cell; one with equal text is not written again.
    void SetCell(int row, int column, const QString &text);
    /// Brings the text to the height of the rows; call it after a change of their number.
    void FitText();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
};
