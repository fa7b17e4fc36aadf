#pragma once

#include "ScreenText.h"
#include "WidgetMFD.h"

#include <QColor>
#include <QDateTime>
#include <QPalette>

class LocoData;
class QLabel;
class QTimer;
struct TrainData;
struct TrainDataIntern;

/// How one label is written by `SetLabelStyle`.
struct LabelStyle
{
    QLabel *label = nullptr;
    QString text;
    QColor background;
    QColor foreground;
    int pointSize = 10;
};

/// A train display in the touch frame: the common base of the MTD screens. It owns the timer of
/// their update passes, reads train and loco data in place and has what the screens share. Both
/// data pointers may be null, must outlive the window and are used on the GUI thread only.
class WidgetMTD : public WidgetMFD
{
    Q_OBJECT

public:
    WidgetMTD(KabdataSettings *storage, int style, QWidget *parent = nullptr,
              Qt::WindowFlags flags = Qt::WindowFlags());

    void SetTrainData(TrainData *train) { trainData = train; }
    void SetLocoData(LocoData *loco) { locoData = loco; }

    void OnButton(QAbstractButton *button) override;

public slots:
    /// One update pass. The period is the polling interval and no second.
    virtual void OnUpdateSecondTimer();

public:
    /// A hand cursor marks the digit keys that do something on this page. The others stay active.
    virtual void SetButtonCursors(bool k1, bool k2, bool k3, bool k4, bool k5, bool k6, bool k7,
                                  bool k8, bool k9, bool k0);
    virtual void SetLabelStyle(const LabelStyle &style);
    /// Writes one coloured label, in a point size that follows the screen's resolution. Nothing
    /// happens without a label, so that pages which lack one can share the code, and nothing is
    /// set that stands already.
    virtual void SetLabelColored(QLabel *label, QString text, QColor background, QColor foreground,
                                 int pointSize);

signals:
    void sigWriteControllerValue(int ctrlId, float value);
    /// Never sent: the touch screens write what the driver enters in place.
    void sigWriteTrainDataIntern(TrainDataIntern &intern);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Text grows with the main page from here on. Call it once, when the form stands with its
    /// fonts.
    void TakeScreenText();
    /// The palette of a page by day or by night: background, text, and the inks of scales, clock
    /// and hairlines.
    QPalette PagePalette(bool day) const;
    /// The date of today at the simulator's time of day.
    QDateTime SimulatorTime() const;

    QTimer *updateTimer;
    TrainData *trainData = nullptr;
    LocoData *locoData = nullptr;
    QColor colorA; ///< spare
    QColor dayColor; ///< page background, invalid until the screen sets it
    QColor nightColor;
    bool zdeConfirmed = false; ///< a train data entry was confirmed by the vigilance key
    ScreenText screenText;

private:
    void GrowText();
};
