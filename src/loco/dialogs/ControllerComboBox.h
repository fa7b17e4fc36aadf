#pragma once

#include <QComboBox>

/// A combo box that tells what it stands for while no entry is selected, and whose list is as wide
/// as its entries, however narrow the box. The box's own placeholder text will not do: taking it
/// away selects the first entry.
class ControllerComboBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    void SetTextWithoutEntry(const QString &text);
    /// What the box shows, with and without a selection.
    QString ShownText() const { return currentIndex() < 0 ? textWithoutEntry : currentText(); }

    void showPopup() override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString textWithoutEntry;
};
