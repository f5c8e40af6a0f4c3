// The preferences dialog in the running program; what it stores is read back from the store.

#include "settings/colors.h"
#include "settings/ui/txwdprefform.h"
#include "windowtest.h"
#include "views/ui/tcluesform.h"

#include <QButtonGroup>
#include <QFontDialog>
#include <QFontInfo>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTimer>

class TestPrefForm : public TProgramTest {
    Q_OBJECT

    // Runs Preferences with `script` playing the user.
    void preferences(std::function<void(TXwdPrefForm *)> script)
    {
        (*dialogs)->DialogScripts.append([script](QDialog *d) { script(static_cast<TXwdPrefForm *>(d)); });
        act("PreferencesAct")->trigger();
    }

    void newPuzzle()
    {
        (*dialogs)->Files.append(TFileChoice{dir->path("p.xwd"), 1});
        act("New15Act")->trigger();
        QVERIFY(main()->IsPuzzleOpen());
    }

    static void clickColour(TXwdPrefForm *form, int index, Qt::MouseButton button, Qt::KeyboardModifiers mods = {})
    {
        const QSize cell = form->ColorGrid1->size() / 4;
        const QPoint at((index % 4) * cell.width() + cell.width() / 2, (index / 4) * cell.height() + cell.height() / 2);
        QTest::mouseClick(form->ColorGrid1, button, mods, at);
    }

    static QString stored(const char *name) { return ReadText(QString::fromLatin1(name), QStringLiteral("<absent>")); }

private slots:
    void opensShowingTheDefaultsOfAnEmptyStoreThenWhatIsStored()
    {
        preferences([](TXwdPrefForm *f) {
            // The defaults themselves are the store's test; here that the dialog shows them.
            QVERIFY(f->SoundChk->isChecked() && !f->SpeechChk->isChecked() && !f->CursorsChk->isChecked());
            QVERIFY(!f->ViewChk->isChecked() && !f->ArrangeBtn->isEnabled() && !f->SaveAllChk->isEnabled());
            QCOMPARE(f->HiliteColor, QColor(Qt::yellow));
        });

        WriteSetting("PlaySounds", 2);
        WriteSetting("UseCursors", 1);
        WriteSetting("BlankSqColor", "$00C0DCC0");
        WriteSetting("HiliteSqColor", "clAqua");
        WriteSetting("Add2", "12 Elm Row");
        WriteSetting("ThesPath", "/opt/thes");
        WriteSetting("DefsFontSize", 14);
        WriteSetting("GridLanguage", 4);
        preferences([](TXwdPrefForm *f) {
            QVERIFY(f->SoundChk->isChecked() && f->SpeechChk->isChecked() && f->CursorsChk->isChecked());
            QCOMPARE(ColorRef(f->BlankColor), 0xC0DCC0u);
            QCOMPARE(f->HiliteColor, QColor(Qt::cyan));
            QCOMPARE(f->AddEds[1]->text(), QStringLiteral("12 Elm Row"));
            QCOMPARE(f->findChild<QLineEdit *>("ThesEdit")->text(), QStringLiteral("/opt/thes"));
            QCOMPARE(f->DefsList->font().pointSize(), 14);
            QCOMPARE(f->LangButtons->checkedId(), 4);
        });
    }

    void soundsAndSpeechFollowEachOtherAndSaveAsOneNumber()
    {
        preferences([](TXwdPrefForm *f) {
            f->SoundChk->click();
            QVERIFY(!f->SoundChk->isChecked());
            f->SpeechChk->click();
            QVERIFY(f->SoundChk->isChecked() && f->SpeechChk->isChecked());
            f->SaveBtn->click();
        });
        QCOMPARE(ReadInt("PlaySounds", -1), 2);
        QCOMPARE(PlaySounds, 2);
        preferences([](TXwdPrefForm *f) {
            f->SoundChk->click();
            QVERIFY(!f->SpeechChk->isChecked());
            f->SaveBtn->click();
        });
        QCOMPARE(ReadInt("PlaySounds", -1), 0);
        QCOMPARE(PlaySounds, 0);
    }

    void colourClicksSetTheThreeColoursAndSaveWritesEveryKeyInItsEncoding()
    {
        newPuzzle();
        preferences([](TXwdPrefForm *f) {
            f->PickList->setCurrentRow(TXwdPrefForm::ViewPage);
            QCOMPARE(f->PageControl1->currentWidget()->objectName(), QStringLiteral("ViewPg"));
            clickColour(f, 9, Qt::LeftButton);                          // clRed
            clickColour(f, 4, Qt::RightButton);                         // clNavy
            clickColour(f, 10, Qt::RightButton, Qt::ControlModifier);   // clLime
            QCOMPARE(f->Shape1->palette().color(QPalette::Window), QColor(Qt::red));
            f->CountsChk->click();
            f->NameEd->setText("Ann Example");
            f->findChild<QLineEdit *>("MailEdit")->setText("/opt/post runner");
            f->LangButtons->button(2)->click();
            f->SaveBtn->click();
        });
        const QStringList keys = {"PlaySounds", "UseCursors", "Threading", "EntryCounts", "FilledSqColor", "BlankSqColor",
                                  "HiliteSqColor", "FontColor", "FontName", "FontSize", "FontStyle", "Name", "Add1",
                                  "Add2", "Add3", "Add4", "DefsOnLeft", "PageBottomMargin", "DictPath", "ThesPath",
                                  "CluePath", "ScraPath", "MailPath", "GridLanguage"};
        for (const QString &key : keys)
            QVERIFY2(stored(key.toLatin1()) != u"<absent>", qPrintable(key + " was not written"));
        for (const char *prefix : {"Solve", "Defs", "Auto", "Status"})
            for (const char *part : {"FontName", "FontColor", "FontSize", "FontStyle"})
                QVERIFY(stored(QByteArray(prefix).append(part)) != u"<absent>");
        // How a colour is written is the store's test.
        QCOMPARE(QStringList({stored("BlankSqColor"), stored("FilledSqColor"), stored("HiliteSqColor")}),
                 QStringList({"clRed", "clNavy", "clLime"}));
        QCOMPARE(ReadInt("EntryCounts", -1), 1);
        QCOMPARE(ReadInt("GridLanguage", -1), 2);
        QCOMPARE(stored("Name"), QStringLiteral("Ann Example"));
        QCOMPARE(stored("MailPath"), QStringLiteral("/opt/post runner"));
        QCOMPARE(stored("AutoArrange"), QStringLiteral("<absent>"));

        // The grid window took the new colours without a restart.
        TXwdGridForm *grid = program->GridForm;
        QCOMPARE(grid->BlankSqColor, QColor(Qt::red));
        const QImage shot = grid->grab().toImage();
        QCOMPARE(QColor(shot.pixel(CellTopLeft(2, 2) + QPoint(2, 2))), QColor(Qt::red));
    }

    void arrangementCodesStepAndSavingStoresTheWindowBounds()
    {
        newPuzzle();
        preferences([](TXwdPrefForm *f) {
            f->ViewChk->click();
            QCOMPARE(f->ArrangeCode, 1);
            QCOMPARE(f->ScrImgName, QStringLiteral("SCREEN1"));
            QList<int> steps;
            for (int i = 0; i < 4; ++i) {
                f->ArrangeBtn->click();
                steps.append(f->ArrangeCode);
            }
            QCOMPARE(steps, QList<int>({2, 3, 4, 1}));
            f->SaveAllChk->click();
            QVERIFY(f->UserCfg->isVisibleTo(f));
            QCOMPARE(f->ScrImgName, QStringLiteral("SCREEN5"));
            f->SaveBtn->click();
        });
        QCOMPARE(ReadInt("AutoArrange", -1), 99);
        const QWidget *main = program->MainForm;
        QCOMPARE(stored("ScreenBoundsMain"),
                 QStringLiteral("%1,%2,%3,%4").arg(main->x()).arg(main->y()).arg(main->width()).arg(main->height()));
        QVERIFY(stored("ScreenBoundsGrid") != u"<absent>");
        QCOMPARE(ReadInt("ScreenSquare", -1), SquareSize);

        // Without "Change Screen Layout" the stored arrangement stays as it was (where each
        // arrangement puts the windows is the next test's and the layout's).
        preferences([](TXwdPrefForm *f) { f->SaveBtn->click(); });
        QCOMPARE(ReadInt("AutoArrange", -1), 99);
    }

    void aLayoutLooksLikeItsPictureWhateverLayoutCameBefore()
    {
        newPuzzle();
        const auto arrange = [this](int code) {
            preferences([code](TXwdPrefForm *f) {
                f->ViewChk->click();
                while (f->ArrangeCode != code)
                    f->ArrangeBtn->click();
                f->SaveBtn->click();
            });
        };
        const auto windows = [this] {
            return QList<QRect>{program->MainForm->geometry(), program->GridForm->geometry(),
                                program->CluesForm->geometry()};
        };
        arrange(1);
        const QList<QRect> first = windows();
        for (int before : {3, 2, 4}) {
            arrange(before);
            arrange(1);
            QCOMPARE(windows(), first);
        }
        // That the arrangement keeps the windows apart and on the screen is the layout's test.
        QCOMPARE(first[0].width(), program->MainForm->minimumWidth());
    }

    void defaultsResetTheVisiblePageOnly()
    {
        WriteSetting("DictPath", "/opt/dict");
        preferences([](TXwdPrefForm *f) {
            f->CursorsChk->click();
            f->PickList->setCurrentRow(TXwdPrefForm::ToolsPage);
            auto *dict = f->findChild<QLineEdit *>("DictEdit");
            dict->setText("/elsewhere");
            f->DefaultsBtn->click();
            QCOMPARE(dict->text(), QStringLiteral("/opt/dict"));
            QVERIFY(f->CursorsChk->isChecked());  // another page: untouched

            f->PickList->setCurrentRow(TXwdPrefForm::GeneralPage);
            f->DefaultsBtn->click();
            QVERIFY(!f->CursorsChk->isChecked() && f->SoundChk->isChecked() && f->ViewChk->isChecked());
            QCOMPARE(f->ArrangeCode, 1);
            f->SaveBtn->click();
        });
        QCOMPARE(ReadInt("AutoArrange", -1), 1);
    }

    void browseFillsThePathAndEnterWalksTheAddressLines()
    {
        (*dialogs)->Files.append(TFileChoice{"/opt/tools/Postrunner.exe", 1});
        preferences([this](TXwdPrefForm *f) {
            f->findChild<QPushButton *>("MailBtn")->click();
            const TFileRequest request = (*dialogs)->FileRequests.last();
            // Programs here carry no extension: the dialog lists what the user may run.
            QVERIFY(request.ExecutablesOnly && request.DefaultExtension.isEmpty());
            QCOMPARE(request.FileName, QStringLiteral("Postrunner"));
            QCOMPARE(f->findChild<QLineEdit *>("MailEdit")->text(), QStringLiteral("/opt/tools/Postrunner.exe"));

            f->activateWindow();
            f->PickList->setCurrentRow(TXwdPrefForm::PrintPage);
            QTRY_COMPARE(QApplication::focusWidget(), f->NameEd);
            QTest::keyClick(f->NameEd, Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), f->AddEds[0]);
            f->AddEds[3]->setFocus();
            QTest::keyClick(f->AddEds[3], Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), f->NameEd);
        });
    }

    void fontButtonsCarryFontAndColourIntoTheSampleAndTheStore()
    {
        QFont chosen(QStringLiteral("Courier New"), 13);
        chosen.setItalic(true);
        chosen.setUnderline(true);
        (*dialogs)->FontChoices.append(TFontChoice{chosen, Qt::darkRed});
        (*dialogs)->FontChoices.append(std::nullopt);
        preferences([](TXwdPrefForm *f) {
            f->findChild<QPushButton *>("DefsListBtn")->click();
            QCOMPARE(f->DefsList->font().family(), QStringLiteral("Courier New"));
            QCOMPARE(f->DefsList->palette().color(QPalette::Text), QColor(Qt::darkRed));
            f->FontBtn->click();  // cancelled: the grid font stays
            f->SaveBtn->click();
        });
        QCOMPARE(stored("DefsFontName"), QStringLiteral("Courier New"));
        QCOMPARE(ReadInt("DefsFontSize", -1), 13);
        QCOMPARE(ReadInt("DefsFontStyle", -1), 2 | 4);
        QCOMPARE(stored("DefsFontColor"), QStringLiteral("clMaroon"));
        QCOMPARE(stored("FontName"), QStringLiteral("Arial"));
    }

    void aFontDialogClosedWithOkAndNoChangeKeepsTheStoredFont()
    {
        // Arial is installed here only as its metric twin: the real dialog must open on
        // that face, and OK must keep the name the settings hold.
        WriteSetting("FontName", QStringLiteral("Arial"));
        WriteSetting("FontStyle", 1);
        preferences([](TXwdPrefForm *f) {
            auto scripted = SetDialogs(MakeQtDialogs());
            QString shownFamily;
            QTimer accept;
            QObject::connect(&accept, &QTimer::timeout, [&] {
                auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
                auto *fonts = box ? box->findChild<QFontDialog *>() : nullptr;
                if (!fonts)
                    return;
                shownFamily = fonts->currentFont().family();
                box->accept();
            });
            accept.start(20);
            f->FontBtn->click();
            SetDialogs(std::move(scripted));
            QCOMPARE(shownFamily, QFontInfo(QFont(QStringLiteral("Arial"))).family());
            f->SaveBtn->click();
        });
        QCOMPARE(stored("FontName"), QStringLiteral("Arial"));
        QCOMPARE(ReadInt("FontStyle", -1), 1);
    }

    void choosingALanguageLeavesOneDigitInTheSpareClueSlotEvenOnCancel()
    {
        Puzzle.setClue(ClueSlots, "x");
        preferences([](TXwdPrefForm *f) {
            f->LangButtons->button(5)->click();
            f->LangButtons->button(7)->click();
            f->CancelBtn->click();
        });
        QCOMPARE(Puzzle.clue(ClueSlots), QByteArray("7"));
        QCOMPARE(ReadInt("GridLanguage", -1), -1);
    }
};

QUILLMARK_UI_TEST_MAIN(TestPrefForm)
#include "tst_prefform.moc"
