// The Tools menu starting real programs, the help window reading the collection the build
// made, and the about box.

#include "mainwindow/tlaunchmodule.h"
#include "mainwindow/ui/taboutbox.h"
#include "mainwindow/ui/thelpform.h"
#include "windowtest.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QHelpContentModel>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QTabWidget>
#include <QRegularExpression>
#include <QTextBrowser>

#include <csignal>

class TestTools : public TProgramTest {
    Q_OBJECT

    // A tool that notes each start in its log and then keeps running.
    QString makeTool(const QString &name)
    {
        const QString path = dir->path(name);
        WriteFileBytes(path, QStringLiteral("#!/bin/sh\necho started >> '%1.log'\nexec sleep 30\n").arg(path).toUtf8());
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        return path;
    }

    static int starts(const QString &tool) { return int(ReadFileBytes(tool + ".log").count("started")); }

private slots:
    void cleanup()
    {
        for (int slot = 0; slot < 5; ++slot)
            if (const qint64 pid = LaunchModule ? LaunchModule->RunningProcess(slot) : 0)
                ::kill(pid_t(pid), SIGTERM);
        tearDownWindowTest();
    }

    void aToolIsAvailableExactlyWhenItsPathIsSet()
    {
        auto *button = program->MainForm->findChild<QToolButton *>("DictBtn");
        QVERIFY(button);
        QVERIFY(!act("DictionaryAct")->isEnabled());
        QVERIFY(!button->isEnabled());
        QVERIFY(button->toolTip().isEmpty());
        QCOMPARE(act("DictionaryAct")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));

        WriteSetting("DictPath", "/opt/dict");
        WriteSetting("MailPath", "/opt/mail");
        program->MainForm->ApplyPreferences(false, 0);
        QVERIFY(act("DictionaryAct")->isEnabled());
        QVERIFY(button->isEnabled());
        QCOMPARE(button->toolTip(), QStringLiteral("Open dictionary"));
        QVERIFY(act("PostrunnerAct")->isEnabled());
        QVERIFY(!act("ThesaurusAct")->isEnabled());
        QVERIFY(!act("CluevaultAct")->isEnabled());
    }

    void aToolStartsOnceAndASecondChoiceDoesNotStartAnotherCopy()
    {
        const QString tool = makeTool("dict tool");
        WriteSetting("DictPath", tool);
        program->MainForm->ApplyPreferences(false, 0);
        act("DictionaryAct")->trigger();
        QTRY_COMPARE(starts(tool), 1);
        program->MainForm->findChild<QToolButton *>("DictBtn")->click();
        act("DictionaryAct")->trigger();
        QTest::qWait(300);
        QCOMPARE(starts(tool), 1);
        QVERIFY((*dialogs)->Errors.isEmpty());

        // Once it has ended, the next choice starts it again.
        const qint64 pid = LaunchModule->RunningProcess(0);
        QVERIFY(pid > 0);
        ::kill(pid_t(pid), SIGTERM);
        QTRY_COMPARE(LaunchModule->RunningProcess(0), 0);
        act("DictionaryAct")->trigger();
        QTRY_COMPARE(starts(tool), 2);
    }

    void aToolSettingIsAWholeCommandLine()
    {
        // A program with its arguments, and a bare program name found on PATH.
        const QString tool = makeTool("thes");
        WriteFileBytes(tool, QStringLiteral("#!/bin/sh\necho started \"$1\" >> '%1.log'\nexec sleep 30\n").arg(tool).toUtf8());
        WriteSetting("ThesPath", tool + " \"big words\"");
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(dir->path(QString())) + ":" + path);
        const auto restorePath = qScopeGuard([&] { qputenv("PATH", path); });
        WriteSetting("ScraPath", "thes pad");
        program->MainForm->ApplyPreferences(false, 0);
        act("ThesaurusAct")->trigger();
        QTRY_COMPARE(starts(tool), 1);
        QVERIFY(ReadFileBytes(tool + ".log").contains("started big words"));
        act("ScratchpadAct")->trigger();
        QTRY_COMPARE(starts(tool), 2);
        QVERIFY(ReadFileBytes(tool + ".log").contains("started pad"));
        QVERIFY((*dialogs)->Errors.isEmpty());
    }

    void aPathToNothingIsReportedByTheToolsName()
    {
        WriteSetting("ThesPath", dir->path("missing"));
        WriteSetting("ScraPath", dir->path("missing too"));
        program->MainForm->ApplyPreferences(false, 0);
        act("ThesaurusAct")->trigger();
        act("ScratchpadAct")->trigger();
        QCOMPARE((*dialogs)->Errors, QStringList({"Thesaurus has not been properly configured.",
                                                  "Scratchpad has not been properly configured."}));
    }

    void helpShowsEveryChapterAndFindsOurKeywords()
    {
        QVERIFY2(QFileInfo::exists(THelpForm::CollectionFile()), qPrintable(THelpForm::CollectionFile()));
        QCOMPARE(act("HelpContentsAct")->text(), QStringLiteral("&Contents..."));
        act("HelpContentsAct")->trigger();
        auto *help = program->MainForm->findChild<THelpForm *>();
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->Tabs->currentIndex(), 0);
        QHelpContentModel *contents = help->Engine->contentModel();
        QTRY_VERIFY(contents->rowCount() > 0);
        const QModelIndex root = contents->index(0, 0);
        QStringList chapters;
        for (int i = 0; i < contents->rowCount(root); ++i)
            chapters.append(contents->data(contents->index(i, 0, root), Qt::DisplayRole).toString());
        QCOMPARE(chapters, QStringList({"Constructing a puzzle", "Word lists and the word finder", "Autofill",
                                        "Writing the clues", "Solving a puzzle", "Printing and exporting",
                                        "Undo and redo", "Recovering unsaved work", "Keys, mouse and shortcuts",
                                        "Preferences", "Companion tools"}));
        // Every link of every page leads to a page of the collection.
        const QList<QUrl> pages = help->Engine->files(QStringLiteral("org.quillmark.help"), QString(), QStringLiteral("html"));
        QVERIFY(pages.size() > 10);
        const QRegularExpression href(QStringLiteral("href=\"([^\"#]+)[^\"]*\""));
        for (const QUrl &page : pages) {
            const QString html = QString::fromUtf8(help->Engine->fileData(page));
            for (auto m = href.globalMatch(html); m.hasNext();) {
                const QUrl target = page.resolved(QUrl(m.next().captured(1)));
                QVERIFY2(!help->Engine->fileData(target).isEmpty(),
                         qPrintable(page.fileName() + QStringLiteral(" links to a missing ") + target.toString()));
            }
        }
        QTRY_VERIFY(help->Browser->toPlainText().contains("Quillmark builds and solves crossword puzzles"));

        act("HelpKeywordAct")->trigger();
        QCOMPARE(help->Tabs->currentIndex(), 1);
        QCOMPARE(help->IndexEdit->text(), QString());
        QHelpIndexWidget *index = help->Engine->indexWidget();
        QTRY_VERIFY(index->model()->rowCount() > 0);
        const auto lookUp = [&](const char *keyword) {
            help->IndexEdit->setText(keyword);
            QTest::qWaitFor([&] { return index->model()->rowCount() == 1; });
            index->setCurrentIndex(index->model()->index(0, 0));
            index->activateCurrentItem();
            return index->model()->rowCount() == 1 ? index->model()->index(0, 0).data().toString() : QString();
        };
        QCOMPARE(lookUp("Symm"), QStringLiteral("Symmetry"));
        QTRY_COMPARE(help->Browser->source().fileName(), QStringLiteral("constructing.html"));
        QVERIFY(help->Browser->toPlainText().contains("diagonal symmetry"));

        // Back, Forward and Home walk the pages seen.
        help->BackBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("index.html"));
        QVERIFY(help->ForwardBtn->isEnabled());
        help->ForwardBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("constructing.html"));
        help->HomeBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("index.html"));

        lookUp("Undo");
        QTRY_VERIFY(help->Browser->toPlainText().contains("Ctrl+Shift+Z"));
        lookUp("Recovery");
        QTRY_VERIFY(help->Browser->toPlainText().contains("moves the recovery file to the trash"));

        // The help window goes with the main window.
        program->MainForm->close();
        QVERIFY(!help->isVisible());
    }

    void aboutBoxNamesTheProgramAndItsVersion()
    {
        (*dialogs)->DialogScripts.append([](QDialog *box) {
            const QString version = box->findChild<QLabel *>("Version")->text();
            QVERIFY(version.startsWith("Quillmark "));
            QVERIFY(version.size() > QStringLiteral("Quillmark ").size());
        });
        act("HelpAboutAct")->trigger();
        QCOMPARE((*dialogs)->ExecutedDialogs, QStringList({"AboutBox"}));
    }

    void splashShowsTheLogoUntilTheMainWindowIsUp()
    {
        TSplashForm splash;
        splash.show();
        // The logo on a white card (how the logo draws is the resources' test).
        QCOMPARE(splash.pixmap().toImage().pixelColor(5, 5), QColor(Qt::white));
        splash.finish(program->MainForm);
        QVERIFY(!splash.isVisible());
    }
};

QUILLMARK_UI_TEST_MAIN(TestTools)
#include "tst_tools.moc"
