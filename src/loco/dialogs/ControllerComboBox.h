#pragma once

#include <QComboBox>

/// A combo box that tells what it stands for while no entry is selected. The box's own
/// placeholder text will not do: taking it away selects the first entry.
class ControllerComboBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    void SetTextWithoutEntry(const QString &text);
    /// What the box shows, with and without a selection.
    QString ShownText() const { return currentIndex() < 0 ? textWithoutEntry : currentText(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString textWithoutEntry;
};
