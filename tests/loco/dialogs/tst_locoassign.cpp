#include "DlgLocoAssign.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

class TestLocoAssign : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aNewEntryTakesTheDrivenLoco();
    void erasingTakesListAndDataAlong();
    void withoutASelectionNothingHappens();
    void aFailedWriteKeepsTheWindowOpen();
    void goneInTheFileDialogIsHarmless();

private:
    QListWidget *List(const char *name) const { return window->findChild<QListWidget *>(name); }
    QStringList Texts(const char *name) const;
    void Press(const char *name) { window->findChild<QPushButton *>(name)->click(); }
    void Press(QDialogButtonBox::StandardButton button)
    {
        window->findChild<QDialogButtonBox *>()->button(button)->click();
    }
    LocoAssignments Written() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    QPointer<DlgLocoAssign> window;
};

void TestLocoAssign::init()
{
    folder = std::make_unique<QTemporaryDir>();
    dialogs = std::make_unique<ScriptedDialogs>();
    LocoAssignments assignments;
    assignments.entries = {{"br101", "br101.cfg", {"BR 101", "BR 101 IC"}},
                           {"br143", "br143.cfg", {}},
                           {"x", "x.cfg", {"X"}}};
    QVERIFY(assignments.Write(folder->filePath("locos.cfg")));
    window = new DlgLocoAssign(folder->path(), "no loco");
}

void TestLocoAssign::cleanup()
{
    delete window;
    dialogs.reset();
    folder.reset();
}

QStringList TestLocoAssign::Texts(const char *name) const
{
    QStringList texts;
    for (int row = 0; row < List(name)->count(); ++row)
        texts.append(List(name)->item(row)->text());
    return texts;
}

LocoAssignments TestLocoAssign::Written() const
{
    LocoAssignments assignments;
    assignments.Read(folder->filePath("locos.cfg"));
    return assignments;
}

void TestLocoAssign::aNewEntryTakesTheDrivenLoco()
{
    dialogs->files = {QStringList(folder->filePath("lococonfig/br 185.v2.cfg"))};
    Press("pushButton_configNew");
    QCOMPARE(dialogs->requests[0].folder, folder->filePath("lococonfig/"));
    window->loconameChanged("BR 185"); // the driver takes another loco meanwhile
    Press("pushButton_locoAssign");
    QCOMPARE(Texts("listWidget_locos"), QStringList("BR 185"));
    Press(QDialogButtonBox::Ok);
    const LocoAssignments written = Written();
    QVERIFY(written.Find("BR 185") != nullptr);
    QCOMPARE(written.Find("BR 185")->group, QString("br 185.v2"));
    QCOMPARE(written.entries.size(), 4);
}

void TestLocoAssign::erasingTakesListAndDataAlong()
{
    window->show();
    QCOMPARE(Texts("listWidget_configs"), QStringList({"br101", "br143", "x"}));
    List("listWidget_configs")->setCurrentRow(0);
    QCOMPARE(Texts("listWidget_locos"), QStringList({"BR 101", "BR 101 IC"}));
    List("listWidget_locos")->setCurrentRow(0);
    LeavePicture(*window, "assign");
    window->OnShowContextMenuLocos(
        List("listWidget_locos")->visualItemRect(List("listWidget_locos")->item(0)).center());
    auto *menu = window->findChild<QMenu *>();
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->actions().value(0)->text(), QString("Erase"));
    menu->actions().value(0)->trigger();
    QCOMPARE(Texts("listWidget_locos"), QStringList("BR 101 IC"));
    List("listWidget_configs")->setCurrentRow(1);
    Press("pushButton_configRemove");
    QCOMPARE(Texts("listWidget_configs"), QStringList({"br101", "x"}));
    const QString selected = List("listWidget_configs")->currentItem()->text();
    QCOMPARE(Texts("listWidget_locos"),
             selected == "x" ? QStringList("X") : QStringList("BR 101 IC"));
    Press(QDialogButtonBox::Cancel);
    QCOMPARE(Written().entries.size(), 3); // only accepting writes
    window->accept();
    QCOMPARE(Written().entries.size(), 2);
    QCOMPARE(Written().entries[0].locos, QStringList("BR 101 IC"));
    QCOMPARE(Written().entries[1].fileName, QString("x.cfg"));
}

void TestLocoAssign::withoutASelectionNothingHappens()
{
    window->OnPushButtonLocoAssign();
    window->eraseItemConfig();
    List("listWidget_configs")->setCurrentRow(1);
    window->eraseItemLocos();
    window->OnShowContextMenuLocos(QPoint(5, 5));
    QVERIFY(window->findChild<QMenu *>() == nullptr);
    window->accept();
    QCOMPARE(Written().entries.size(), 3);
    QCOMPARE(Written().entries[1].group, QString("br143")); // stays without a loco
}

void TestLocoAssign::aFailedWriteKeepsTheWindowOpen()
{
    const QString path = folder->filePath("locos.cfg");
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir(folder->path()).mkpath("locos.cfg/in the way"));
    window->show();
    Press(QDialogButtonBox::Ok);
    QVERIFY(window->isVisible());
    QCOMPARE(dialogs->BoxTexts(),
             QStringList("Can not write file\n" + QDir::toNativeSeparators(path)));
}

void TestLocoAssign::goneInTheFileDialogIsHarmless()
{
    dialogs->files = {QStringList("/tmp/x.cfg")};
    dialogs->whileOpen = [this] { delete window; };
    window->OnPushButtonConfigNew();
    QVERIFY(window.isNull());
}

ZUGBLICK_TEST_MAIN(TestLocoAssign)
#include "tst_locoassign.moc"
