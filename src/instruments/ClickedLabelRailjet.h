#pragma once

#include <QLabel>

/// A label that is a touch button. Setters repaint only when something changes.
class ClickedLabelRailjet : public QLabel
{
    Q_OBJECT

public:
    explicit ClickedLabelRailjet(QWidget *parent = nullptr);

    /// Black on white while on, white on black while off.
    void SetHighlighted(bool on);
    void setBrightness(int newBrightness);
    /// Applies the font with its point size scaled to the screen; a pixel size is left alone.
    void setFont(const QFont &font);

    int framed = 0; ///< non-zero draws a border
    int brightness = 255; ///< below 255 a black veil covers the label
    bool highlighted = false;

signals:
    /// The label was pressed. A receiver may delete the label.
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
};
