#include "WidgetMFD.h"

#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "Numbers.h"

#include "ui_Widget_mfd.h"
#include "ui_Widget_mfd_siemens.h"

#include <QGraphicsScene>
#include <QMouseEvent>

#include <algorithm>

namespace {
constexpr int kKeyPointSize = 11;
} // namespace

WidgetMFD::WidgetMFD(KabdataSettings *storage, int style, QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), frameStyle(style), settings(storage),
      formMfd(std::make_unique<Ui::Widget_mfd>()),
      formSiemens(std::make_unique<Ui::Widget_mfd_siemens>())
{
    if (frameStyle == FrameMfd)
        Bind(*formMfd);
    else
        Bind(*formSiemens);
    bezel->TakeDesign(size());
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Without a scene the view paints nothing but its base colour.
    QPalette black = view->palette();
    black.setColor(QPalette::Base, Qt::black);
    view->setPalette(black);
    view->viewport()->installEventFilter(this);
    connect(offKey, &QPushButton::clicked, this, &WidgetMFD::OnClose);
    connect(keys, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonPressed), this,
            &WidgetMFD::OnMenuButtonClicked);
    ScaleKeys();
    ReadStyleSheets();
    SetPage(settings == nullptr || !settings->Startup() ? PageGraphicsView : PageBlack);
    setAttribute(Qt::WA_DeleteOnClose);
    if (settings != nullptr)
        restoreGeometry(settings->WindowGeometry(windowTitle()));
}

WidgetMFD::~WidgetMFD() = default;

template <typename Form>
void WidgetMFD::Bind(Form &form)
{
    form.setupUi(this);
    bezel = form.TouchButtonGroup;
    stack = form.stackedWidget_main;
    view = form.graphicsView;
    keys = form.buttonGroup;
    namePlate = form.label_name;
    referenceKey = form.pushButton_0;
    wideKey = form.pushButton_st;
    offKey = form.pushButton_off;
    referenceToolKey = form.toolButton_top;
}

/// Legends and least widths follow the screen's real resolution, once.
void WidgetMFD::ScaleKeys()
{
    qCDebug(lcDisplays) << "ScreenDPI: " << ScreenDpi();
    qCDebug(lcDisplays) << "RenderDPI: " << RenderDpi();
    QFont font = referenceKey->font();
    font.setPointSize(ScaledPointSize(kKeyPointSize));
    qCDebug(lcDisplays) << "Font Toolbutton point size: " << font.pointSize();
    const int width = std::max(1, TruncToInt(referenceKey->minimumWidth() * DpiRatio()));
    qCDebug(lcDisplays) << "Button width: " << width;
    qCDebug(lcDisplays) << "Button height: " << referenceKey->height();
    const auto all = keys->buttons();
    for (QAbstractButton *each : all) {
        each->setFont(font);
        each->setMinimumWidth(each == wideKey ? 2 * width : width);
    }
    namePlate->setFont(font);
}

void WidgetMFD::ReadStyleSheets()
{
    pushButtonStyleSheet = referenceKey->styleSheet();
    toolButtonStyleSheet = referenceToolKey->styleSheet();
}

void WidgetMFD::SetPage(int index)
{
    stack->setCurrentIndex(index);
}

int WidgetMFD::CurrentPage() const
{
    return stack->currentIndex();
}

QWidget *WidgetMFD::PageWidget(int index) const
{
    return stack->widget(index);
}

QAbstractButton *WidgetMFD::Key(const QString &text) const
{
    const auto all = keys->buttons();
    const auto found = std::find_if(all.begin(), all.end(), [&text](const QAbstractButton *key) {
        return key->text() == text;
    });
    return found != all.end() ? *found : nullptr;
}

void WidgetMFD::SetScene(QGraphicsScene *newScene)
{
    scene = newScene;
    view->setScene(newScene);
    FitView();
}

void WidgetMFD::FitView()
{
    if (scene == nullptr || scene->width() <= 0.0 || scene->height() <= 0.0)
        return;
    view->fitInView(0.0, 0.0, scene->width(), scene->height(), Qt::IgnoreAspectRatio);
    // Qt leaves two pixels free on each side, which would put the soft-key labels off their keys
    // and draw a scene of the view's own size slightly shrunk.
    const QSizeF room = view->viewport()->size();
    view->setTransform(
        QTransform::fromScale(room.width() / scene->width(), room.height() / scene->height()));
}

void WidgetMFD::SetButtonColor(const QColor &color)
{
    const auto toolButtons = findChildren<QToolButton *>();
    const auto pushButtons = findChildren<QPushButton *>();
    qCDebug(lcDisplays) << toolButtons << pushButtons;
    const QString rgb =
        QStringLiteral("rgb(%1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
    const auto coloured = [&rgb](QString sheet) {
        return sheet.replace(QLatin1String("white"), rgb, Qt::CaseSensitive);
    };
    const QString pushSheet = coloured(pushButtonStyleSheet);
    const QString toolSheet = coloured(toolButtonStyleSheet);
    for (QPushButton *each : pushButtons)
        each->setStyleSheet(pushSheet);
    for (QToolButton *each : toolButtons)
        each->setStyleSheet(toolSheet);
}

void WidgetMFD::ScaleFont(QFont &font) const
{
    font.setPointSize(ScaledPointSize(font.pointSize()));
}

void WidgetMFD::OnClose()
{
    close();
}

void WidgetMFD::OnButton(QAbstractButton *) { }

void WidgetMFD::OnMenuButtonClicked(QAbstractButton *button)
{
    const QPointer<WidgetMFD> guard(this);
    emit sigButtonMenuClicked(button->text());
    if (guard != nullptr)
        OnButton(button);
}

void WidgetMFD::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    dragging = true;
    dragOrigin = event->pos();
}

void WidgetMFD::mouseMoveEvent(QMouseEvent *event)
{
    if (!dragging || !event->buttons().testFlag(Qt::LeftButton))
        return;
    setCursor(Qt::OpenHandCursor);
    move(pos() + event->pos() - dragOrigin);
}

void WidgetMFD::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setCursor(Qt::ArrowCursor);
    dragging = false;
}

void WidgetMFD::resizeEvent(QResizeEvent *event)
{
    FitView();
    QWidget::resizeEvent(event);
}

void WidgetMFD::showEvent(QShowEvent *event)
{
    FitView();
    QWidget::showEvent(event);
}

/// A page that was hidden during a resize gets its size only when it is turned to.
bool WidgetMFD::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == view->viewport())
        FitView();
    return QWidget::eventFilter(watched, event);
}

void WidgetMFD::closeEvent(QCloseEvent *event)
{
    SaveGeometryToSettings();
    QWidget::closeEvent(event);
}

void WidgetMFD::SaveGeometryToSettings()
{
    if (settings != nullptr)
        settings->SetWindowGeometry(windowTitle(), saveGeometry());
}
