#pragma once

#include "BridgeTimings.h"
#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "ScriptedBridge.h"
#include "ScriptedDialogs.h"
#include "TSInterfaceBridge.h"
#include "TestFiles.h"
#include "TestMain.h"

#include <QAction>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

/// Milliseconds for what takes several replies, also on a machine that is busy with other things.
constexpr int kPatience = 30000;

template <typename Type>
Type *Child(const QObject *parent, const char *name)
{
    auto *child = parent->findChild<Type *>(QLatin1String(name));
    Q_ASSERT_X(child != nullptr, "Child", name);
    return child;
}

/// Tests of the main window: it has settings and a work folder of its own, a bridge without the
/// pauses of its handshake, and scripted answers for its boxes.
class MainWindowTest : public QObject
{
protected:
    void SetUp()
    {
        folder = std::make_unique<QTemporaryDir>();
        dialogs = std::make_unique<ScriptedDialogs>();
        bridge = std::make_unique<ScriptedBridge>();
        QFile::remove(KabdataSettings().FileName());
        settings = std::make_unique<KabdataSettings>();
        settings->SetWorkFolder(folder->path());
        settings->SetInterfaceType(1);
        settings->SetEthernetPort(bridge->Port());
        settings->SetUpdateInterval(40);
        settings->SetLogViewLevel(0);
        settings->SetCheckVersion(false);
    }
    void TearDown()
    {
        window.reset();
        settings.reset();
        bridge.reset();
        dialogs.reset();
        folder.reset();
    }
    void OpenWindow()
    {
        settings->Sync();
        window = std::make_unique<KabdataMain>(nullptr, [](int, const KabdataSettings &) {
            BridgeTimings timings;
            timings.handshakePauseMs = 0;
            timings.replyMs = 2000;
            return std::make_shared<TSInterfaceBridge>(timings);
        });
    }
    QString StartText() const { return StartButton()->text(); }
    void Press() { StartButton()->click(); }
    /// Starts, and returns once the bridge has told its train and loco.
    void Connect(const QByteArray &train, const QByteArray &loco, const QByteArray &controllers)
    {
        bridge->Answer(4, train);
        bridge->Answer(5, loco);
        bridge->Answer(7, controllers);
        Press();
        QTRY_COMPARE_WITH_TIMEOUT(window->Train().locoName, QString::fromUtf8(loco), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(window->Train().latitude, train.split(':')[0].toFloat(),
                                  kPatience);
    }
    void Disconnect()
    {
        Press();
        QTRY_COMPARE_WITH_TIMEOUT(StartText(), QString("Start"), kPatience);
    }
    QAction *Action(const char *name) const { return Child<QAction>(window.get(), name); }
    QString LogText() const
    {
        return Child<QPlainTextEdit>(window.get(), "plainTextEdit_log")->toPlainText();
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<ScriptedBridge> bridge;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<KabdataMain> window;

private:
    QPushButton *StartButton() const
    {
        return Child<QPushButton>(window.get(), "pushButton_clientStartStop");
    }
};
