#pragma once

#include <QLabel>

/// A cell of a touch screen for a status icon or a short text. The picture is fitted to the cell
/// and follows it, a cell that shows something already is not set again, and scaled pictures are
/// kept by name and size for all cells.
class MtdIcon : public QLabel
{
    Q_OBJECT

public:
    /// How a picture gets to the cell's size. `Fast` keeps the hard pixels of the old units.
    enum class Scaling { Fast, Smooth };

    explicit MtdIcon(QWidget *parent = nullptr);

    /// True when this changed the cell. An unknown picture leaves the cell empty.
    bool ShowPicture(const QString &name, Scaling scaling);
    bool ShowText(const QString &text);
    /// The name of the picture that is shown; empty when there is none.
    const QString &Picture() const { return picture; }

    QSize minimumSizeHint() const override { return {8, 8}; }
    QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Fit();
    void PaintRichText();

    QString picture;
    Scaling scaling = Scaling::Fast;
};

/// A picture of the resources fitted into a room, with its proportions; null for an unknown one or
/// no room. `ratio` is the screen's pixels to a logical one.
QPixmap FittedPicture(const QString &name, const QSize &room, double ratio,
                      Qt::TransformationMode mode);
