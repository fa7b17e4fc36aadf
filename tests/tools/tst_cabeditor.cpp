#include "CabWindow.h"
#include "MainCabEditor.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QAction>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QLabel>
#include <QLoggingCategory>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>

#include <memory>

class TestCabEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensEmpty();
    void anImportGoesToTheCurrentCanvas();
    void anImportWithoutCanvasAsksForNothing();
    void aCanvasClosedBehindTheFileDialogTakesNothing();
    void anEditorClosedBehindTheFileDialogIsNotTouched();
    void aCancelledFileDialogImportsNothing();
    void aFileThatIsNoPictureGivesAnEmptyItem();
    void theItemTypeIsWrittenToTheDebugOutput();
    void theSizeLabelFollowsTheActiveCanvas();
    void thePositionLabelFollowsADirectCall();
    void closingTheEditorWithCanvasesDeletesAll();

private:
    QAction *Action(const char *name) const
    {
        return editor->findChild<QAction *>(QLatin1String(name));
    }
    CabWindow *NewCanvas() const
    {
        Action("action_NewFile")->trigger();
        return qobject_cast<CabWindow *>(Area()->subWindowList().last());
    }
    QMdiArea *Area() const { return editor->findChild<QMdiArea *>(); }
    QString StatusText(int label) const
    {
        const auto labels = editor->statusBar()->findChildren<QLabel *>();
        return label < labels.size() ? labels.at(label)->text() : QStringLiteral("(missing)");
    }

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

void TestCabEditor::opensEmpty()
{
    QCOMPARE(editor->windowTitle(), QStringLiteral("CabEditor"));
    QCOMPARE(Area()->subWindowList().size(), 0);
    QCOMPARE(StatusText(0), QString());
    QCOMPARE(StatusText(2), QString());
    // They stand in the menu without effect.
    for (const char *name : {"action_LoadFile", "action_SaveFile", "action_SaveAsFile"})
        Action(name)->trigger();
    QVERIFY(dialogs->requests.isEmpty());
    LeavePicture(*editor, "cabeditor-empty");
}

void TestCabEditor::anImportGoesToTheCurrentCanvas()
{
    const CabWindow *first = NewCanvas();
    const CabWindow *second = NewCanvas();
    QCOMPARE(Area()->currentSubWindow(), second);
    dialogs->files = {{picture}};
    Action("action_ImportImage")->trigger();
    QCOMPARE(dialogs->requests.first().title, QStringLiteral("Editor - Bild importieren"));
    QCOMPARE(dialogs->requests.first().folder, QStringLiteral("./"));
    QCOMPARE(dialogs->requests.first().filter, QStringLiteral("Image Files (*.png *.jpg *.bmp)"));
    QCOMPARE(first->Scene()->items().size(), 0);
    QCOMPARE(second->Scene()->items().size(), 1);
    const auto *item = qgraphicsitem_cast<QGraphicsPixmapItem *>(second->Scene()->items().first());
    QVERIFY(item != nullptr);
    QCOMPARE(item->pixmap().toImage().pixelColor(100, 100), QColor(Qt::darkCyan));
    QCOMPARE(item->data(1954115685), QVariant(1));
    LeavePicture(*editor, "cabeditor-pictures");
}

void TestCabEditor::anImportWithoutCanvasAsksForNothing()
{
    Action("action_ImportImage")->trigger();
    QVERIFY(dialogs->requests.isEmpty());
    editor->OnItemsChanged();
}

void TestCabEditor::aCanvasClosedBehindTheFileDialogTakesNothing()
{
    QPointer<CabWindow> canvas = NewCanvas();
    dialogs->files = {{picture}};
    dialogs->whileOpen = [&canvas] { delete canvas.data(); };
    Action("action_ImportImage")->trigger();
    QVERIFY(canvas.isNull());
}

void TestCabEditor::anEditorClosedBehindTheFileDialogIsNotTouched()
{
    NewCanvas();
    dialogs->files = {{picture}};
    dialogs->whileOpen = [this] { delete editor.data(); };
    editor->OnImportImage();
    QVERIFY(editor.isNull());
}

void TestCabEditor::aCancelledFileDialogImportsNothing()
{
    const CabWindow *canvas = NewCanvas();
    Action("action_ImportImage")->trigger();
    QCOMPARE(dialogs->requests.size(), 1);
    QVERIFY(canvas->Scene()->items().isEmpty());
}

void TestCabEditor::aFileThatIsNoPictureGivesAnEmptyItem()
{
    CabWindow *canvas = NewCanvas();
    QSignalSpy changed(canvas, &CabWindow::sigItemsChanged);
    canvas->ImportImage(folder.filePath("missing.png"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(canvas->Scene()->items().size(), 1);
    QVERIFY(canvas->Scene()->items().first()->boundingRect().isEmpty());
}

void TestCabEditor::theItemTypeIsWrittenToTheDebugOutput()
{
    CabWindow *first = NewCanvas();
    NewCanvas();
    QLoggingCategory::setFilterRules("zugblick.tools.debug=true");
    // The current canvas is looked at and not the one that changed; it has no item.
    first->ImportImage(picture);
    Area()->setActiveSubWindow(first);
    QTest::ignoreMessage(QtDebugMsg, "Item-Type:  1");
    first->ImportImage(picture);
    QLoggingCategory::setFilterRules(QString());
}

void TestCabEditor::theSizeLabelFollowsTheActiveCanvas()
{
    CabWindow *first = NewCanvas();
    first->resize(300, 150);
    CabWindow *second = NewCanvas();
    second->resize(420, 210);
    Area()->setActiveSubWindow(first);
    QCOMPARE(StatusText(0), QStringLiteral("Size 300x150"));
    Area()->setActiveSubWindow(second);
    QCOMPARE(StatusText(0), QStringLiteral("Size 420x210"));
    second->resize(10, 10);
    QCOMPARE(second->size(), second->size().expandedTo(QSize(200, 100)));
    Area()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(Area()->subWindowList().isEmpty());
    QVERIFY(StatusText(0).startsWith("Size "));
}

void TestCabEditor::thePositionLabelFollowsADirectCall()
{
    QMouseEvent move(QEvent::MouseMove, QPointF(12, 34), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    editor->OnSubWindowMouseMoveEvent(&move);
    QCOMPARE(StatusText(1), QStringLiteral("Pos 12,34"));
}

void TestCabEditor::closingTheEditorWithCanvasesDeletesAll()
{
    const QPointer<CabWindow> canvas = NewCanvas();
    canvas->ImportImage(picture);
    const QPointer<QGraphicsScene> scene = canvas->Scene();
    editor->close();
    QTRY_VERIFY(editor.isNull());
    QVERIFY(canvas.isNull());
    QVERIFY(scene.isNull());
}

ZUGBLICK_TEST_MAIN(TestCabEditor)
#include "tst_cabeditor.moc"
