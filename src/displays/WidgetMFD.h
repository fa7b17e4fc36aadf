#pragma once

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class KabdataSettings;
class MfdBezel;
class QAbstractButton;
class QButtonGroup;
class QGraphicsScene;
class QGraphicsView;
class QLabel;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace Ui {
class Widget_mfd;
class Widget_mfd_siemens;
} // namespace Ui

/// The cab unit that touch displays sit in: a top-level window with keys around a screen area of
/// four pages. It knows nothing about trains. A key fires on press and is known by its text alone.
/// The window can be dragged by its bezel, remembers its geometry under its title and deletes
/// itself on close.
class WidgetMFD : public QWidget
{
    Q_OBJECT

public:
    /// Which of the two key layouts is built.
    enum FrameStyle : int {
        FrameSiemens = 0, ///< with "*" and a lamp; the MTD
        FrameMfd = 1, ///< with "left" and "right"; the EBuLa
    };
    /// Pages of the screen area.
    enum Page : int {
        PageBlack = 0,
        PageLoad = 1,
        PageMain = 2, ///< the derived display's own content
        PageGraphicsView = 3,
    };

    /// `storage` may be null, which only leaves the geometry alone; it must outlive the window.
    WidgetMFD(KabdataSettings *storage, int style, QWidget *parent = nullptr,
              Qt::WindowFlags flags = Qt::WindowFlags());
    ~WidgetMFD() override;

    void SetPage(int index);
    int CurrentPage() const;
    /// The page's widget; page 2 is the parent of a derived display's form.
    QWidget *PageWidget(int index) const;
    /// The view on page 3; a scene takes its size from it.
    QGraphicsView *View() const { return view; }
    int Style() const { return frameStyle; }
    KabdataSettings *Settings() const { return settings; }

    /// Shows the scene on page 3, stretched over the whole view. Not owned; a scene that dies
    /// leaves the page empty.
    void SetScene(QGraphicsScene *newScene);
    /// Colours legends and rims of all keys, starting each time from the form's style sheets.
    void SetButtonColor(const QColor &color);
    /// Scales the font's point size by the screen's physical over logical dots per inch.
    void ScaleFont(QFont &font) const;
    /// The key with the given text; null where this frame has none.
    QAbstractButton *Key(const QString &text) const;

public slots:
    void OnClose();

public:
    /// The derived display's key handler.
    virtual void OnButton(QAbstractButton *button);

public slots:
    /// Emits the key's text and then calls `OnButton`. The receiver of the signal may delete the
    /// window.
    virtual void OnMenuButtonClicked(QAbstractButton *button);

signals:
    void sigButtonMenuClicked(QString text);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    void FitView();
    void SaveGeometryToSettings();

private:
    template <typename Form>
    void Bind(Form &form);
    void ScaleKeys();
    void ReadStyleSheets();

    const int frameStyle;
    QPoint dragOrigin;
    bool dragging = false;
    QString pushButtonStyleSheet;
    QString toolButtonStyleSheet;
    KabdataSettings *const settings;
    QPointer<QGraphicsScene> scene;
    // Only the form that the style picks is set up; the pointers below reach into that one.
    std::unique_ptr<Ui::Widget_mfd> formMfd;
    std::unique_ptr<Ui::Widget_mfd_siemens> formSiemens;

    MfdBezel *bezel = nullptr;
    QStackedWidget *stack = nullptr;
    QGraphicsView *view = nullptr;
    QButtonGroup *keys = nullptr;
    QLabel *namePlate = nullptr;
    QPushButton *referenceKey = nullptr;
    QPushButton *wideKey = nullptr;
    QPushButton *offKey = nullptr;
    QToolButton *referenceToolKey = nullptr;
};
