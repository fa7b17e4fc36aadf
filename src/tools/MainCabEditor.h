#pragma once

#include <QMainWindow>

#include <memory>

class CabWindow;
class QLabel;
class QMdiSubWindow;
class QMouseEvent;
namespace Ui {
class MainCabEditor;
}

/// The start of a layout tool for cab views: pictures on any number of canvases, side by side.
/// Nothing made here can be saved or read back yet, so "Öffnen", "Speichern" and "Speichern
/// unter" stand in the menu without effect. Deletes itself on close.
class MainCabEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainCabEditor(QWidget *parent = nullptr);
    ~MainCabEditor() override;

public slots:
    void OnOpenFile();
    void OnNewFile();
    void OnSaveFile();
    void OnSaveAsFile();
    void OnImportImage();
    void OnSubWindowActivated(QMdiSubWindow *window);
    void OnSubWindowMouseMoveEvent(QMouseEvent *event);
    void OnItemsChanged();

private:
    CabWindow *CurrentCanvas() const;

    std::unique_ptr<Ui::MainCabEditor> ui;
    QLabel *statusLabelSize = nullptr;
    QLabel *statusLabelPosition = nullptr;
    QLabel *statusLabelSpare = nullptr;
    int canvasCount = 0; ///< ever opened, for their titles
};
