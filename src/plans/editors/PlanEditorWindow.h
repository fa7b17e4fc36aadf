#pragma once

#include "PlanEditorForm.h"
#include "PlanMenus.h"
#include "PlanRows.h"
#include "PublishForm.h"
#include "PublishReply.h"
#include "TimeTableFile.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>

class KabdataSettings;
class QNetworkReply;
class ServerClient;
struct TrainData;

/// What lies outside of an editor and stands still in a test.
struct PlanEditorOutside
{
    PlanEditorOutside();

    /// Whether the user may publish: the stored result of the login check, which never waits.
    std::function<bool(const KabdataSettings *)> mayPublish;
    MenuChooser chooseFromMenu;
    std::function<QTime()> clock; ///< of the computer
};

/// The names, words and numbers in which the editors differ.
struct PlanEditorKind
{
    QString (*folder)(const QString &workFolder);
    const QVector<PlanColumn> &(*columns)();
    QString filter; ///< of the file dialogs
    QString saveAsFailure; ///< the path follows
    PublishKind publishKind;
    PublishTexts publishTexts;
    int tickMs; ///< between two looks at the train
    PlanRow (*freshRow)(); ///< of an entry in which nothing is set
    QVector<PlanRow> (*reversed)(const QVector<PlanRow> &rows);
};

/// What the editors of route plans and of timetables have in common: a table that is the model,
/// head fields over it, and the ways to open, save, publish and reverse a plan. The kind says what
/// they are called, and the virtual functions what they do differently.
class PlanEditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    ~PlanEditorWindow() override;

    QString CurrentPath() const { return currentPath; }
    bool IsModified() const { return modified; }

public slots:
    void OnClickedNewUID();
    void OnClickedForm();
    void OnOpenFile();
    void OnSaveFile();
    void OnSaveAsFile();
    void OnNewEntryTable();
    void OnContextMenuEvent(QPoint pos);
    void OnVerticalHeaderMenu(QPoint pos);
    void OnAllEntrysReverse();
    void OnNewFilePostReplyFinished(QNetworkReply *reply);

protected:
    enum class Saving { Saved, Refused, Failed };

    PlanEditorWindow(PlanEditorKind editorKind, KabdataSettings *storage, TrainData *train,
                     QWidget *parent, PlanEditorOutside outsideWorld);

    /// To be called when the form stands.
    void SetUp(const PlanEditorForm &widgets);

    /// Reads a file and, when it opens, shows it.
    virtual bool ReadPlan(const QString &path) = 0;
    /// Rebuilds the record from fields and cells, and writes it. A failure shows a box.
    virtual bool WritePlan(const QString &path) = 0;
    /// The path under which the file that is open is saved.
    virtual QString PathToSave() const { return currentPath; }
    virtual QString ProposedName() const = 0;
    /// The row for the place where the train is.
    virtual PlanRow NewRow(double mark) const = 0;
    /// What there is to store and to ask before the window closes. False keeps it open.
    virtual bool PrepareClose() = 0;

    void closeEvent(QCloseEvent *event) override;

    // Each of these may show a box, and the window may be gone when it returns.
    Saving Save(const QString &path);
    Saving SaveCurrent();
    Saving SaveAs();
    void Publish();

    bool HasPosition() const;
    void ShowPosition();
    void ShowToday() const;
    int ChooseFrom(const QVector<PlanMenuEntry> &entries, const QPoint &globalPosition) const;
    QString WorkFolder() const;
    /// The names of the "*.sfp~" files in the folder.
    QStringList BackupFiles() const;
    void RemoveBackupFiles() const;

    const PlanEditorKind kind;
    KabdataSettings *const settings;
    TrainData *const trainData;
    const PlanEditorOutside outside;
    PlanEditorForm form;
    TimeTableFile file;
    QTimer *const updateTimer;
    QString windowTitleBase;
    QString currentPath;
    QString folder;
    bool modified = false;

private:
    void SetUpTable();
    void SetUpActions();
    void TakePath(const QString &path);
    bool Validate();
    bool AcceptLength(QLineEdit *field, const QString &refusal);
    double MarkOfNewRow() const;
    void Post(const QString &copy);

    ServerClient *client = nullptr;
};
