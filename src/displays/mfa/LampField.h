#pragma once

#include <QFrame>

/// The lamp field of a panel: a grid of equal cells out of the form's layout. It makes round lamps
/// square in their cells, draws their bezels and engraves the legends in two sizes that fit: a
/// large one for letters and numbers, a small one for words.
class LampField : public QFrame
{
    Q_OBJECT

public:
    explicit LampField(QWidget *parent = nullptr);

    /// Sets the shape of all lamps and blanks. The other plates keep their cells.
    void SetRound(bool isRound);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void PlaceLamps();
    void EngraveLegends(const QSize &cell);

    bool round = false;
};

/// The largest pixel height at which all legends fit into a lamp, at least 6. Lines of a legend
/// in a round lamp keep clear of its rim. A size that no letter fits into gives 6.
int LegendPixelSize(const QFont &font, const QStringList &legends, const QSize &lamp, bool round);
