// The web commands in the program: where they sit, when they are offered, what they write.

#include "windowtest.h"
#include "web/webpage.h"

#include <QMenu>

class TestWebCommands : public QObject, TWindowTest {
    Q_OBJECT

    QAction *action(const char *name) { return act(name); }

private slots:
    void init()
    {
        setUpWindowTest();
        startProgram();
    }

    void cleanup() { tearDownWindowTest(); }

    void bothCommandsSitInTheExportMenuAndThePlayerNeedsNoPuzzle()
    {
        QMenu *menu = program->MainForm->Menu("ExportMenu");
        QVERIFY(menu->actions().contains(action("ExporttoWebAct")));
        QVERIFY(menu->actions().contains(action("GeneratePlayerAct")));
        QCOMPARE(action("ExporttoWebAct")->text(), "Export to &Web...");
        QCOMPARE(action("GeneratePlayerAct")->text(), "&Generate Player...");
        QVERIFY(!action("ExporttoWebAct")->isEnabled());

        (*dialogs)->Files.append(TFileChoice{dir->path("player"), 1});
        action("GeneratePlayerAct")->trigger();
        QCOMPARE(ReadFileBytes(dir->path("player.html")), PlayerPage());
    }

    void exportWritesThePuzzlesPageOrSaysWhyNot()
    {
        const QString path = dir->path("sunday-stroll.xwd");
        QVERIFY(QFile::copy(QUILLMARK_EXAMPLES "/sunday-stroll.xwd", path));
        (*dialogs)->Files.append(TFileChoice{path, 1});
        action("ConstructOpenAct")->trigger();
        QVERIFY(action("ExporttoWebAct")->isEnabled());

        (*dialogs)->Files.append(TFileChoice{dir->path("stroll.html"), 1});
        action("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->FileRequests.last().FileName, "sunday-stroll.html");
        QCOMPARE(ReadFileBytes(dir->path("stroll.html")), WebPage(Puzzle, "sunday-stroll"));

        (*dialogs)->Files.append(TFileChoice{dir->path("no/such/folder/page.html"), 1});
        action("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->Errors.size(), 1);
        QVERIFY((*dialogs)->Errors.first().startsWith("The web page could not be written."));
        QVERIFY(!QFile::exists(dir->path("no/such/folder/page.html")));

        // A puzzle with squares still empty would take any letter there: refused, naming them.
        const QString unfinished = dir->path("harbour-lights.xwd");
        QVERIFY(QFile::copy(QUILLMARK_EXAMPLES "/harbour-lights.xwd", unfinished));
        (*dialogs)->Files.append(TFileChoice{unfinished, 1});
        action("ConstructOpenAct")->trigger();
        const int asked = (*dialogs)->FileRequests.size();
        action("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->FileRequests.size(), asked);
        QCOMPARE((*dialogs)->Errors.size(), 2);
        QVERIFY((*dialogs)->Errors.last().contains(u"not finished"));
        QVERIFY((*dialogs)->Errors.last().contains(u"row "));
    }
};

QUILLMARK_UI_TEST_MAIN(TestWebCommands)
#include "tst_webcommands.moc"
