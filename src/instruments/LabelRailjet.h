#pragma once

#include <QLabel>

/// A plain label that dims. Setters repaint only when something changes.
class LabelRailjet : public QLabel
{
    Q_OBJECT

public:
    explicit LabelRailjet(QWidget *parent = nullptr);

    void setBrightness(int newBrightness);
    /// Applies the font with its point size scaled to the screen; a pixel size is left alone.
    void setFont(const QFont &font);
    /// Writes the text only when it differs, so that a repeated pass repaints nothing.
    void setTextIfChanged(const QString &newText);

    int framed = 0; ///< non-zero draws a border
    int brightness = 255; ///< below 255 a black veil covers the label

protected:
    void paintEvent(QPaintEvent *event) override;
};
