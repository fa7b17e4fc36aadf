#include "CabWindow.h"
#include "MainCabEditor.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QAction>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QLabel>
#include <QMdiArea>
#include <QPointer>
#include <QStatusBar>
#include <QTemporaryDir>

#include <memory>

class TestCabEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anImportGoesToTheCurrentCanvas();
    void closingBehindTheFileDialogIsHarmless();

private:
    void Trigger(const char *action) const
    {
        editor->findChild<QAction *>(QLatin1String(action))->trigger();
    }
    CabWindow *NewCanvas() const
    {
        Trigger("action_NewFile");
        return qobject_cast<CabWindow *>(Area()->subWindowList().last());
    }
    QMdiArea *Area() const { return editor->findChild<QMdiArea *>(); }

    std::unique_ptr<ScriptedDialogs> dialogs;
    QTemporaryDir folder;
    QString picture;
    QPointer<MainCabEditor> editor;
};

void TestCabEditor::init()
{
    dialogs = std::make_unique<ScriptedDialogs>();
    picture = folder.filePath("panel.png");
    QImage image(240, 160, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QVERIFY(image.save(picture));
    editor = new MainCabEditor;
    editor->show();
}

void TestCabEditor::cleanup()
{
    dialogs.reset();
    delete editor.data();
}

void TestCabEditor::anImportGoesToTheCurrentCanvas()
{
    Trigger("action_ImportImage");
    QVERIFY(dialogs->requests.isEmpty()); // without a canvas
    editor->OnItemsChanged();
    CabWindow *first = NewCanvas();
    first->resize(300, 150);
    CabWindow *second = NewCanvas();
    first->ImportImage(folder.filePath("missing.png")); // is no picture, and not on the current one
    QVERIFY(first->Scene()->items().value(0)->boundingRect().isEmpty());
    Trigger("action_ImportImage"); // and the file dialog is cancelled
    dialogs->files = {{picture}};
    Trigger("action_ImportImage");
    QCOMPARE(dialogs->requests.last().title, QStringLiteral("Editor - Bild importieren"));
    QCOMPARE(dialogs->requests.last().filter, QStringLiteral("Image Files (*.png *.jpg *.bmp)"));
    QCOMPARE(first->Scene()->items().size(), 1);
    QCOMPARE(second->Scene()->items().size(), 1);
    const auto *item = qgraphicsitem_cast<QGraphicsPixmapItem *>(second->Scene()->items().first());
    QVERIFY(item != nullptr);
    QCOMPARE(item->pixmap().toImage().pixelColor(100, 100), QColor(Qt::darkCyan));
    QCOMPARE(item->data(1954115685), QVariant(1));
    LeavePicture(*editor, "cabeditor");
    Area()->setActiveSubWindow(first);
    QCOMPARE(editor->statusBar()->findChildren<QLabel *>().value(0)->text(),
             QStringLiteral("Size 300x150"));
    editor->close(); // the canvases go with it, and no longer report to it
    QTRY_VERIFY(editor.isNull());
}

void TestCabEditor::closingBehindTheFileDialogIsHarmless()
{
    for (const bool wholeEditor : {false, true}) {
        QPointer<CabWindow> canvas = NewCanvas();
        dialogs->files = {{picture}};
        dialogs->whileOpen = [&] {
            if (wholeEditor)
                delete editor.data();
            else
                delete canvas.data();
        };
        editor->OnImportImage();
        QVERIFY(canvas.isNull());
        QCOMPARE(editor.isNull(), wholeEditor);
    }
}

ZUGBLICK_TEST_MAIN(TestCabEditor)
#include "tst_cabeditor.moc"
