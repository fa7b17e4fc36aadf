// Opening, saving and publishing a plan.

#include "PlanEditorWindow.h"

#include "Log.h"
#include "PlanPublishing.h"
#include "PlanTable.h"
#include "ServerClient.h"
#include "UserDialogs.h"
#include "WorkFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
const QString kError = QStringLiteral("Error");
constexpr int kShortestName = 2;
constexpr int kRedMs = 2000;

void Colour(QLineEdit *field, const QString &colour)
{
    // Red and white are meant with black letters, in a dark palette too.
    QPalette letters = field->palette();
    letters.setColor(QPalette::Text, Qt::black);
    field->setPalette(letters);
    field->setStyleSheet(QStringLiteral("background-color:") + colour);
}
} // namespace

void PlanEditorWindow::TakePath(const QString &path)
{
    currentPath = path;
    setWindowTitle(windowTitleBase + QStringLiteral(" File: ") + path);
}

void PlanEditorWindow::OnOpenFile()
{
    const QPointer<PlanEditorWindow> guard(this);
    const QString path = UserDialogs::Instance().OpenFile(
        this, {QStringLiteral("Load File"), folder + QLatin1Char('/'), kind.filter});
    if (!guard || path.isEmpty())
        return;
    if (!ReadPlan(path)) {
        UserDialogs::Instance().Fail(this, kError, QStringLiteral("Can not open file ") + path);
        return;
    }
    TakePath(path);
    modified = false;
}

bool PlanEditorWindow::AcceptLength(QLineEdit *field, const QString &refusal)
{
    if (field->text().size() >= kShortestName)
        return true;
    Colour(field, QStringLiteral("red"));
    const QPointer<PlanEditorWindow> guard(this);
    UserDialogs::Instance().Warn(this, kTitle, refusal);
    if (guard)
        QTimer::singleShot(kRedMs, this, &PlanEditorWindow::OnClickedForm);
    return false;
}

bool PlanEditorWindow::Validate()
{
    return AcceptLength(form.name, QStringLiteral("Bitte eine eindeutige Strecke angeben"))
        && AcceptLength(form.nickname, QStringLiteral("Bitte dein Nickname angeben"));
}

void PlanEditorWindow::OnClickedForm()
{
    Colour(form.name, QStringLiteral("white"));
    Colour(form.nickname, QStringLiteral("white"));
}

PlanEditorWindow::Saving PlanEditorWindow::Save(const QString &path)
{
    form.table->FinishEditing();
    if (!Validate())
        return Saving::Refused;
    if (!WritePlan(path))
        return Saving::Failed;
    modified = false;
    return Saving::Saved;
}

PlanEditorWindow::Saving PlanEditorWindow::SaveCurrent()
{
    if (currentPath.isEmpty())
        return SaveAs();
    currentPath = PathToSave();
    return Save(currentPath);
}

PlanEditorWindow::Saving PlanEditorWindow::SaveAs()
{
    const QPointer<PlanEditorWindow> guard(this);
    const QString path = UserDialogs::Instance().SaveFile(
        this,
        {QStringLiteral("Save File"), folder + QLatin1Char('/') + ProposedName(), kind.filter});
    if (!guard || path.isEmpty())
        return Saving::Refused;
    const Saving result = Save(path);
    if (!guard)
        return result;
    if (result == Saving::Saved)
        TakePath(path);
    else if (result == Saving::Failed)
        UserDialogs::Instance().Fail(this, kError, kind.saveAsFailure + path);
    return result;
}

void PlanEditorWindow::OnSaveFile()
{
    SaveCurrent();
}

void PlanEditorWindow::OnSaveAsFile()
{
    SaveAs();
}

/// Sends a fresh copy of what is edited: neither the saved file nor what counts as unsaved changes.
void PlanEditorWindow::Publish()
{
    if (currentPath.isEmpty()) {
        UserDialogs::Instance().Warn(this, kTitle,
                                     QStringLiteral("Bitte erst die Datei speichern"));
        return;
    }
    const QPointer<PlanEditorWindow> guard(this);
    const QString scratch = WorkFolders::Scratch(WorkFolder());
    QDir().mkpath(scratch);
    const QString copy = scratch + QFileInfo(currentPath).fileName();
    form.table->FinishEditing();
    const bool written = Validate() && WritePlan(copy);
    if (!guard)
        return;
    if (written)
        Post(copy);
    else
        UserDialogs::Instance().Warn(this, kTitle,
                                     QStringLiteral("Datei wurde nicht zum Server gesendet!"));
}

void PlanEditorWindow::Post(const QString &copy)
{
    PublishedFile published;
    if (settings == nullptr || !ReadPublishedPlan(copy, kind.publishKind, published))
        return;
    if (client == nullptr) {
        client = new ServerClient(settings, this);
        connect(client, &ServerClient::sigDebugString, this,
                [](const QString &text) { qCInfo(lcPlans).noquote() << text; });
    }
    if (QNetworkReply *reply = SendToReviewers(*client, this, published, kind.publishTexts))
        connect(reply, &QNetworkReply::finished, this,
                [this, reply] { OnNewFilePostReplyFinished(reply); });
}

void PlanEditorWindow::OnNewFilePostReplyFinished(QNetworkReply *reply)
{
    ShowPublishReply(this, reply, kind.publishTexts);
}
