#include "KabdataMain.h"
#include "MainCabEditor.h"
#include "MessageDialogs.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QTimer>

class TestMainTools : public QObject
{
    Q_OBJECT

private slots:
    void theCabEditorOpensAndClosesWithTheMainWindow();
    void aBoxGoesWithItsParent();
};

void TestMainTools::theCabEditorOpensAndClosesWithTheMainWindow()
{
    ScriptedDialogs dialogs;
    KabdataMain window;
    window.show();
    auto *action = window.findChild<QAction *>(QStringLiteral("actionCab_Editor"));
    QVERIFY(action->isEnabled());
    action->trigger();
    action->trigger();
    QVector<QPointer<MainCabEditor>> editors;
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (auto *editor = qobject_cast<MainCabEditor *>(each))
            editors.append(editor);
    }
    QCOMPARE(editors.size(), 2);
    editors.first()->close();
    QTRY_VERIFY(editors.first().isNull());
    QVERIFY(window.close());
    QTRY_VERIFY(editors.last().isNull());
}

void TestMainTools::aBoxGoesWithItsParent()
{
    auto *parent = new QWidget;
    QTimer::singleShot(0, parent, [parent] { delete parent; });
    using Dialogs = UserDialogs;
    QVERIFY(MessageDialogs().Show(
                parent, {Dialogs::Kind::Question, "a", "b", Dialogs::Buttons::YesNoCancel})
            == Dialogs::Answer::Cancel);
}

ZUGBLICK_TEST_MAIN(TestMainTools)
#include "tst_maintools.moc"
