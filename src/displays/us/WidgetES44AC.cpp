#include "WidgetES44AC.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "TrackPlans.h"
#include "TrainData.h"
#include "UsReadings.h"
#include "UserDialogs.h"
#include "ValueRule.h"

#include "ui_WidgetES44AC.h"

#include <algorithm>

namespace {
constexpr QSize kDesignSize(800, 520);
constexpr int kKeyHeight = 46;
constexpr int kTrackRowHeight = 34;
/// Of the screen's width. A dial that is higher than three quarters of its own width loses the
/// sides of its arc, and the dial's column is three fifths of the screen.
constexpr double kHighestDial = 0.45;
constexpr QMargins kTableMargins(50, 10, 50, 10);
/// Set in the form: the height of a widget's text in pixels at the design size.
constexpr const char *kTextSize = "textSize";

struct KeyRow
{
    QString name;
    QColor keyColor;
    QColor textColor;
};
const KeyRow kTopRow{QStringLiteral("label_top_%1"), {0xd3, 0xd3, 0x69}, Qt::black};
const KeyRow kBottomRow{QStringLiteral("label_bottom_%1"), {0x02, 0x91, 0xff}, Qt::white};

void LabelKeys(QWidget &screen, const KeyRow &row, const QStringList &texts)
{
    for (int i = 0; i < texts.size(); ++i) {
        auto *key = screen.findChild<ClickedLabelUs *>(row.name.arg(i));
        if (key == nullptr)
            continue;
        key->setProperty("text", texts.at(i));
        QPalette colors = key->palette();
        colors.setColor(QPalette::Window, texts.at(i).isEmpty() ? QColor(Qt::black) : row.keyColor);
        colors.setColor(QPalette::WindowText, row.textColor);
        key->setPalette(colors);
    }
}

/// A row's cell; user texts become tool tips as they stand.
QTableWidgetItem *Cell(const QString &text, const QString &toolTip = QString())
{
    auto *item = new QTableWidgetItem(text);
    item->setToolTip(toolTip);
    return item;
}
} // namespace

WidgetES44AC::WidgetES44AC(KabdataSettings *storage, TrainData *train, QWidget *parent)
    : WidgetMainUsBase(parent), form(std::make_unique<Ui::WidgetES44AC>()), settings(storage),
      trainData(train)
{
    form->setupUi(this);
    for (const KeyRow &row : {kTopRow, kBottomRow}) {
        for (int i = 0; i < kSoftKeys; ++i) {
            if (const auto *key = findChild<ClickedLabelUs *>(row.name.arg(i)))
                connect(key, &ClickedLabelUs::clicked, this, &WidgetES44AC::OnMenuClicked);
        }
    }
    ScaleTexts(1.0);
    ShowMainPage();
}

WidgetES44AC::~WidgetES44AC() = default;

void WidgetES44AC::SetSpeed(double value)
{
    form->widget_speed->setValue(Round(value));
}

void WidgetES44AC::SetThrottle(double value, double)
{
    form->label_throttle->setText(ThrottleText(value));
}

void WidgetES44AC::SetReverser(int value)
{
    form->label_reverser->setText(ReverserText(value));
}

void WidgetES44AC::SetBrakeEqualizing(double value)
{
    form->label_brake_er->setText(WholeText(value));
}

void WidgetES44AC::SetBrakePipe(double value)
{
    form->label_brake_bp->setText(WholeText(value));
}

void WidgetES44AC::SetMainReservoir(double value)
{
    form->label_MainReservoirPressure->setText(WholeText(value));
}

void WidgetES44AC::SetBrakeCylinder(double value)
{
    form->label_LocoBrakeCylinderPressurePSI->setText(WholeText(value));
}

void WidgetES44AC::SetEffort(double value)
{
    form->label_effort->setValue(Round(value));
}

void WidgetES44AC::SetGrade(double value)
{
    form->label_slope->setText(GradeText(value));
}

void WidgetES44AC::OnUpdate()
{
    if (trackState != TrackPage || trainData == nullptr || timeTable.entries.size() < 2)
        return;
    constexpr int defaultTolerance = 50; // metres
    const int tolerance = settings != nullptr ? settings->EbulaTolerance() : defaultTolerance;
    const TrackPosition found =
        FollowTrack(timeTable, trainData->latitude, trainData->longitude, tolerance);
    currentEntry = found.currentEntry;
    form->label_trackname->setText(timeTable.ScheduleID);
    if (found.milePoint)
        form->label_milepoint->setText(QString::number(*found.milePoint, 'f', 1));
    if (found.destination)
        form->label_destination->setText(*found.destination);
    form->widget_track->setValue(trainData->simValue404);
}

void WidgetES44AC::SetSoftKeys(const QStringList &top, const QStringList &bottom)
{
    LabelKeys(*this, kTopRow, top);
    LabelKeys(*this, kBottomRow, bottom);
}

void WidgetES44AC::OnMenuClicked()
{
    struct Action
    {
        const char *text;
        void (WidgetES44AC::*run)();
    };
    static constexpr Action actions[] = {
        {"Track", &WidgetES44AC::ShowTrackPage},
        {"Select\nTrack", &WidgetES44AC::ShowTrackList},
        {"Back\n", &WidgetES44AC::ShowMainPage},
        {"Load\nTrack", &WidgetES44AC::LoadSelectedTrack},
    };
    if (sender() == nullptr)
        return;
    const QString text = sender()->property("text").toString();
    for (const Action &action : actions) {
        if (text == QLatin1String(action.text)) {
            (this->*action.run)();
            return; // a message box may have outlived the screen
        }
    }
}

void WidgetES44AC::ShowPage(TrackState state)
{
    trackState = state;
    const SoftKeyRows keys = SoftKeysOf(state);
    SetSoftKeys(keys.top, keys.bottom);
    form->stackedWidget_content->setCurrentIndex(state);
}

void WidgetES44AC::ShowTrackList()
{
    ShowPage(TrackList);
    FillTrackTable(settings != nullptr ? ReadTracks(settings->WorkFolder())
                                       : QVector<TrainTimeTable>());
}

void WidgetES44AC::FillTrackTable(const QVector<TrainTimeTable> &tracks)
{
    QTableWidget *table = form->tableWidget_tracks;
    const float latitude = trainData != nullptr ? trainData->latitude : 0.0F;
    const float longitude = trainData != nullptr ? trainData->longitude : 0.0F;
    table->clearContents();
    table->setRowCount(0);
    for (const TrainTimeTable &track : tracks) {
        if (!IsTrackNear(track, latitude, longitude))
            continue;
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 0, Cell(track.ScheduleID, track.path));
        table->setItem(row, 1, Cell(track.Scenario, track.Description));
        table->setItem(row, 2, Cell(track.TrainNumber));
    }
    table->setContentsMargins(kTableMargins);
    FitTrackColumns();
}

/// The first column carries the path of its plan as tool tip. Empty without a selected row.
QString WidgetES44AC::SelectedPath() const
{
    const auto rows = form->tableWidget_tracks->selectionModel()->selectedIndexes();
    const auto first = std::min_element(
        rows.begin(), rows.end(),
        [](const QModelIndex &left, const QModelIndex &right) { return left.row() < right.row(); });
    if (first == rows.end())
        return {};
    const QTableWidgetItem *item = form->tableWidget_tracks->item(first->row(), 0);
    return item != nullptr ? item->toolTip() : QString();
}

void WidgetES44AC::LoadSelectedTrack()
{
    const QString path = SelectedPath();
    if (trackState != TrackList || path.isEmpty())
        return;
    if (LoadTrack(path, timeTable)) {
        qCDebug(lcDisplays).noquote() << "Plan loaded: " + path;
        ShowTrackPage();
        return;
    }
    qCDebug(lcDisplays).noquote() << "Plan not loaded: " + path;
    UserDialogs::Instance().Fail(this, QStringLiteral("Zugblick"),
                                 QStringLiteral("Error\nPlan not loaded"));
}

void WidgetES44AC::resizeEvent(QResizeEvent *event)
{
    WidgetMainUsBase::resizeEvent(event);
    form->widget_speed->setMaximumHeight(qRound(width() * kHighestDial));
    ScaleTexts(std::min(width() / static_cast<double>(kDesignSize.width()),
                        height() / static_cast<double>(kDesignSize.height())));
}

void WidgetES44AC::ScaleTexts(double factor)
{
    const double newFactor = std::max(factor, 0.5);
    if (newFactor == textFactor)
        return;
    textFactor = newFactor;
    const auto widgets = findChildren<QWidget *>();
    for (QWidget *each : widgets) {
        const QVariant size = each->property(kTextSize);
        if (!size.isValid())
            continue;
        QFont font = each->font();
        font.setPixelSize(std::max(1, qRound(size.toInt() * textFactor)));
        each->setFont(font);
    }
    const auto keys = findChildren<ClickedLabelUs *>();
    for (ClickedLabelUs *key : keys)
        key->setFixedHeight(qRound(kKeyHeight * textFactor));
    QTableWidget *table = form->tableWidget_tracks;
    table->verticalHeader()->setDefaultSectionSize(qRound(kTrackRowHeight * textFactor));
    // The style sheet keeps the table's head from taking the font over, but not its items.
    for (int column = 0; column < table->columnCount(); ++column)
        table->horizontalHeaderItem(column)->setFont(table->font());
    FitTrackColumns();
}

/// The last column takes what is left.
void WidgetES44AC::FitTrackColumns()
{
    for (const int column : {0, 1})
        form->tableWidget_tracks->resizeColumnToContents(column);
}
