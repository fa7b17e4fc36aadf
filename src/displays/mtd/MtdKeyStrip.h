#pragma once

#include <QWidget>

#include <array>

class QLabel;

/// The row of captions along the bottom of a touch screen: ten equal cells, each over the digit key
/// of the frame that it names, with hairlines between them. The form gives it ten labels as
/// children, named "label_button1" to "label_button9" and "label_button0".
class MtdKeyStrip : public QWidget
{
    Q_OBJECT

public:
    static constexpr int KeyCount = 10;

    explicit MtdKeyStrip(QWidget *parent = nullptr);

    /// The ten captions from key 1 to key 0; an equal caption is not written again.
    void SetCaptions(const std::array<QString, KeyCount> &captions);
    /// The caption of a place from 0, which is key 1, to 9, which is key 0; null when the form has
    /// no such label.
    QLabel *Caption(int place) const;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int CellLeft(int place) const;
};
