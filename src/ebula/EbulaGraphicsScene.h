#pragma once

#include "EbulaLayout.h"
#include "EbulaTracker.h"

#include <QFont>
#include <QGraphicsScene>
#include <QPointer>
#include <QStringList>
#include <QTimer>

class KabdataSettings;
class QGraphicsProxyWidget;
class QGraphicsPolygonItem;
class QGraphicsTextItem;
class WidgetEbulaFSD;
class WidgetEbulaHalte;
class WidgetLoadTimeTable;
class WidgetMFD;
struct TrainData;

/// The electronic timetable of a German cab: twelve rows of a plan that run from the bottom of the
/// page to the top, the speed profile at the left, times at the right. It takes the key presses of
/// its frame as texts, lays its pages over itself and follows the train once a second.
///
/// The scene has the size of the frame's view at construction, so show the frame before; the frame
/// stretches it from then on and owns it as its parent. Settings and train data may be null and
/// must outlive it. Its `.cpp` files: construction and paging here, `EbulaSceneFrame` the fixed
/// picture, `EbulaSceneRows` the rows, `EbulaSceneMenu` keys and pages, `EbulaSceneRunning` the
/// tick.
class EbulaGraphicsScene : public QGraphicsScene
{
    Q_OBJECT

public:
    EbulaGraphicsScene(KabdataSettings *storage, WidgetMFD *mfd, TrainData *train);
    ~EbulaGraphicsScene() override;

    /// Draws the rows from entry `start` on, and the header. 0 means the stretch where the train
    /// is. False when the scene was deleted while its question stood open.
    bool RenderTimeTable(int start);
    /// Draws everything anew in the colours of day or night, from the start.
    bool Redraw();
    void PageUp();
    void PageDown();
    void RowUp();
    void RowDown();

    /// Puts a plan on the screen as if it had been loaded, and follows it.
    bool TakePlan(const TrainTimeTable &plan);

public slots:
    void OnTimeOneSeconds();
    void OnTimerPageButtonClicked();
    void OnButtonMenuClicked(QString text);

protected:
    bool planAccepted = false; ///< a page of the plan has been drawn
    bool paged = false; ///< the driver is paging
    KabdataSettings *const settings;
    WidgetMFD *const frame;
    QPointer<WidgetLoadTimeTable> loadView;
    QPointer<WidgetEbulaFSD> fsdPage;
    QPointer<WidgetEbulaHalte> haltePage;
    int rowsPerPage = 12;
    int pageStart = 0; ///< first entry when paging by hand; stays when tracking comes back
    double textInset = 40.0;
    double textInsetBase = 40.0;
    EbulaPage page;
    QList<QGraphicsTextItem *> nameItems;
    QList<QGraphicsTextItem *> symbolItems;
    QList<QGraphicsTextItem *> kmItems;
    QList<QGraphicsTextItem *> arrivalItems;
    QList<QGraphicsTextItem *> departureItems;
    QList<QGraphicsTextItem *> gradientItems;
    QList<QGraphicsItem *> speedLines;
    QList<QGraphicsItem *> speedSteps;
    QList<QGraphicsItem *> speedTexts;
    QList<QGraphicsProxyWidget *> menuButtons;
    QStringList menuTexts;
    QGraphicsPolygonItem *cursor = nullptr;
    TrainTimeTable timeTable;
    QGraphicsTextItem *statusItem = nullptr;
    QGraphicsTextItem *headerItem = nullptr;
    QGraphicsTextItem *validLabelItem = nullptr;
    QGraphicsTextItem *expiryItem = nullptr;
    QGraphicsTextItem *dateItem = nullptr;
    QGraphicsTextItem *clockItem = nullptr;
    QGraphicsTextItem *speedItem = nullptr;
    QGraphicsTextItem *nextStopItem = nullptr;
    QGraphicsTextItem *delayItem = nullptr;
    QRect tableRect;
    TrainData *const trainData;
    QTimer tickTimer;
    QTimer pageTimer;
    QFont smallFont;
    QFont bigFont;
    bool doorsOpen = false;
    bool correctionDone = false;
    bool dayMode = true;
    int statusAge = 0; ///< seconds a status text has shown, 0 for none

private:
    static constexpr int kTickMs = 1000;
    struct RowStyle;
    struct KeyRule;

    // The fixed picture.
    void DrawHeaderBand();
    void DrawInfoBand();
    void DrawTable();
    void DrawDelayBox();
    void RemoveOwnItems();
    QFont ScaledFont(int pointSize) const;
    QColor Ink() const;
    QPen LinePen() const;
    QGraphicsItem *AddLine(double x1, double y1, double x2, double y2);
    QGraphicsTextItem *AddText(const QString &text, const QFont &font, const QPointF &at,
                               double margin);
    QGraphicsTextItem *AddCentred(const QString &text, const QFont &font, const QPointF &at,
                                  double centreY);
    void ShowFitted(QGraphicsTextItem *item, const QString &text, int room, double centreY);
    void ShowHeader(const QString &text);

    // The rows.
    void RemoveRows();
    QFont RowFont() const;
    double RowMargin() const;
    double MarkRoom() const;
    bool DrawRows(int start, int count);
    void DrawRow(int slot, const TimeTableEntry &entry, const RowStyle &style);
    void DrawSpeed(int slot, int speed, int speedAbove, bool isLast, const RowStyle &style);
    double Overlap(const QGraphicsTextItem &text, const QGraphicsTextItem &right,
                   const RowStyle &style) const;
    void FitRowText(QGraphicsTextItem *item, const QGraphicsTextItem &right, const RowStyle &style);
    void AddSpeedText(int speed, double y, const RowStyle &style);
    bool AskForForeignPlan(int start);

    // Keys and pages.
    static const QList<KeyRule> &KeyRules();
    QString LabelOf(const QString &key) const;
    void SwitchOff();
    void OpenLoadView();
    void OpenFsd();
    void OpenHalte();
    void CloseLoadView();
    void LeavePage();
    void LoadPlan();
    void LoadSelected();
    void ToggleDayMode();
    void KeyUp();
    void KeyDown();
    void KeyRight();
    void KeyLeft();
    void StepPage(int rows, int last);
    void StopTracking();
    void PlacePage(QWidget *widget, const QRect &at);
    void StylePages();
    void SetMenu(const QStringList &texts);
    void DrawMenu();

    // The tick.
    bool HasPosition() const;
    EbulaAdvice Track(bool mayCorrect) const;
    void SetStatus(const QString &text, const QColor &color);
    void ShowDelay(const EbulaDelay &delay);
    void PlaceCursor(int slot);
    void RemoveCursor();
    bool CorrectTimes(int seconds);
    void ShowDoors();
    void AgeStatus();
    void ShowAhead(const EbulaAdvice &advice);
    bool ReportBadIndex(const QString &text);

    const EbulaLayout layout;
    QGraphicsItem *menuBand = nullptr;
    QStringList drawnMenu; ///< the labels that stand in the band
    QList<QGraphicsItem *> fixedItems; ///< all of the frame but the rows, the menu and the pages
    bool rowsDrawn = false; ///< the rows on the screen are those of `drawnStart`
    int drawnStart = 0;
    bool badIndexReported = false; ///< once a plan is enough
};
