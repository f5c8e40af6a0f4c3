// The web commands in the program: where they sit, when they are offered, what they write.

#include "windowtest.h"
#include "web/webpage.h"

#include <QMenu>

class TestWebCommands : public TProgramTest {
    Q_OBJECT

private slots:
    void theExportMenuWritesThePlayerWithoutAPuzzleAndAPuzzlesPageOrSaysWhyNot()
    {
        QMenu *menu = program->MainForm->Menu("ExportMenu");
        QVERIFY(menu->actions().contains(act("ExporttoWebAct")));
        QVERIFY(menu->actions().contains(act("GeneratePlayerAct")) && !act("ExporttoWebAct")->isEnabled());

        (*dialogs)->Files.append(TFileChoice{dir->path("player"), 1});
        act("GeneratePlayerAct")->trigger();
        QCOMPARE(ReadFileBytes(dir->path("player.html")), PlayerPage());

        // With a puzzle open, Export to Web writes its page, or says why not.
        const QString path = dir->path("sunday-stroll.xwd");
        QVERIFY(QFile::copy(QUILLMARK_EXAMPLES "/sunday-stroll.xwd", path));
        (*dialogs)->Files.append(TFileChoice{path, 1});
        act("ConstructOpenAct")->trigger();
        QVERIFY(act("ExporttoWebAct")->isEnabled());

        (*dialogs)->Files.append(TFileChoice{dir->path("stroll.html"), 1});
        act("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->FileRequests.last().FileName, "sunday-stroll.html");
        QCOMPARE(ReadFileBytes(dir->path("stroll.html")), WebPage(Puzzle, "sunday-stroll"));

        (*dialogs)->Files.append(TFileChoice{dir->path("no/such/folder/page.html"), 1});
        act("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->Errors.size(), 1);
        QVERIFY((*dialogs)->Errors.first().startsWith("The web page could not be written."));
        QVERIFY(!QFile::exists(dir->path("no/such/folder/page.html")));

        // A puzzle with squares still empty would take any letter there: refused, naming them.
        const QString unfinished = dir->path("harbour-lights.xwd");
        QVERIFY(QFile::copy(QUILLMARK_EXAMPLES "/harbour-lights.xwd", unfinished));
        (*dialogs)->Files.append(TFileChoice{unfinished, 1});
        act("ConstructOpenAct")->trigger();
        const int asked = (*dialogs)->FileRequests.size();
        act("ExporttoWebAct")->trigger();
        QCOMPARE((*dialogs)->FileRequests.size(), asked);
        QCOMPARE((*dialogs)->Errors.size(), 2);
        QVERIFY((*dialogs)->Errors.last().contains(u"not finished") && (*dialogs)->Errors.last().contains(u"row "));
    }
};

QUILLMARK_UI_TEST_MAIN(TestWebCommands)
#include "tst_webcommands.moc"
