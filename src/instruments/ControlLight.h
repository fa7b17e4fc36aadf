#pragma once

#include <QColor>
#include <QLabel>

/// One indicator lamp with its legend (the label's text). A dark lamp keeps its legend under a
/// translucent black shape. Setters repaint only when something changes.
class ControlLight : public QLabel
{
    Q_OBJECT

public:
    explicit ControlLight(QWidget *parent = nullptr);

    void setColors(const QColor &on, const QColor &off, const QColor &text);
    void setRound(bool isRound);
    void setLit(bool isLit);

    bool round = false; ///< an ellipse; otherwise a rectangle
    bool lit = false;
    QColor textColor;
    QColor onColor;
    QColor offColor;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawShape(QPainter &painter, const QColor &color) const;
};
