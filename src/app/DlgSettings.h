#pragma once

#include <QDialog>
#include <QString>

#include <functional>
#include <memory>

class KabdataSettings;
namespace Ui {
class DlgSettings;
}

/// Asks the server about a user's name and hash; true when it knows the two. May run events, and
/// ends early when the asking window closes.
using LoginFunction =
    std::function<bool(QWidget *asking, const QString &userName, const QString &userHash)>;

/// The window in which the options of `kabdata.ini` are changed. It reads all fields when it opens
/// and writes all of them when it is accepted; the login check alone is stored at once. What a
/// change means for the running program is the main window's business.
class DlgSettings : public QDialog
{
    Q_OBJECT

public:
    DlgSettings(KabdataSettings *settings, LoginFunction login, QWidget *parent = nullptr);
    ~DlgSettings() override;

public slots:
    void OnOpenFileDialog();
    void OnChechUser();
    void OnChangeInterface(int index);
    void accept() override;
    void done(int result) override;

private:
    void ReadSettings();
    void WriteSettings();

    std::unique_ptr<Ui::DlgSettings> ui;
    KabdataSettings *settings;
    const LoginFunction login;
    bool closed = false;
};
