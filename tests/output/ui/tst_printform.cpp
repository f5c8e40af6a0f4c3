// The print options dialog, the preview and the print command, the printer writing a PDF file.

#include "output/pagelayout.h"
#include "output/ui/tpreviewform.h"
#include "output/ui/txwdprintform.h"
#include "windowtest.h"

#include <QPrinter>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>

namespace {

const QString Example = QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd");

int pdfPages(const QString &path)
{
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {path});
    p.waitForFinished(30000);
    const auto m = QRegularExpression(QStringLiteral("Pages:\\s*(\\d+)")).match(QString::fromUtf8(p.readAllStandardOutput()));
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

}  // namespace

class TestPrintForm : public QObject, TWindowTest {
    Q_OBJECT

    std::unique_ptr<TPreviewForm> preview;
    std::unique_ptr<TXwdPrintForm> form;

    void check(std::initializer_list<QCheckBox *> boxes)
    {
        for (QCheckBox *box : {form->MSChk, form->MSGChk, form->NGChk, form->SGChk, form->PPChk})
            box->setChecked(std::find(boxes.begin(), boxes.end(), box) != boxes.end());
    }

private slots:
    void init()
    {
        setUpWindowTest();
        Puzzle = LoadPuzzleFile(Example).Puzzle;
        CurrentPuzzlePath = Example;
        preview = std::make_unique<TPreviewForm>();
        form = std::make_unique<TXwdPrintForm>(preview.get());
        form->show();
    }

    void cleanup()
    {
        CurrentPrinter().setPageSize(QPageSize(QPageSize::Letter));
        form.reset();
        preview.reset();
        tearDownWindowTest();
    }

    void nothingCheckedGivesEachMessageAndDefaultStoresTheChecksOnlyWhenChecked()
    {
        check({});
        QTest::mouseClick(form->PrevBtn, Qt::LeftButton);
        QTest::mouseClick(form->PrintBtn, Qt::LeftButton);
        QTest::mouseClick(form->PDFBtn, Qt::LeftButton);
        const QString print = QStringLiteral("Nothing to print! Please select one or more formats.");
        QCOMPARE((*dialogs)->Errors, QStringList({"Nothing to preview! Please select one or more formats.", print, print}));
        QVERIFY((*dialogs)->FileRequests.isEmpty() && (*dialogs)->ExecutedDialogs.isEmpty() && form->isVisible());

        check({form->MSChk, form->PPChk});
        form->GrayChk->setChecked(true);
        QTest::mouseClick(form->DefChk, Qt::LeftButton, {}, QPoint(6, form->DefChk->height() / 2));
        const QStringList keys = {"PrintMSS", "PrintMSG", "PrintNGr", "PrintSGr", "PrintPPg", "PrintGSq"};
        const QList<int> expected = {1, 0, 0, 0, 1, 1};
        for (int i = 0; i < keys.size(); ++i)
            QCOMPARE(ReadInt(keys[i], -1), expected[i]);
        form->NGChk->setChecked(true);
        QTest::mouseClick(form->DefChk, Qt::LeftButton, {}, QPoint(6, form->DefChk->height() / 2));  // unchecking writes nothing
        QCOMPARE(ReadInt(QStringLiteral("PrintNGr"), -1), 0);
        form->hide();
        form->show();
        QVERIFY(form->MSChk->isChecked() && form->PPChk->isChecked() && form->GrayChk->isChecked());
        QVERIFY(!form->NGChk->isChecked() && !form->DefChk->isChecked());
    }

    void fontsAreSetWithThePuzzlePageStepAndReset()
    {
        QFont chosen(QStringLiteral("Arial"));
        chosen.setPointSize(12);
        chosen.setBold(true);
        (*dialogs)->Fonts = {chosen, chosen};
        QTest::mouseClick(form->PPTextBtn, Qt::LeftButton);
        QCOMPARE(ReadInt(QStringLiteral("PPFontSize"), -1), 9);  // a 13 grid adds 3
        QCOMPARE(ReadInt(QStringLiteral("PPFontStyle"), -1), 1);
        QTest::mouseClick(form->MSTextBtn, Qt::LeftButton);
        QCOMPARE(ReadInt(QStringLiteral("MSFontSize"), -1), 12);
        QCOMPARE(ReadText(QStringLiteral("MSFontName")), QStringLiteral("Arial"));
        form->ByChk->setChecked(false);
        QTest::mouseClick(form->ResetBtn, Qt::LeftButton);
        QCOMPARE(ReadText(QStringLiteral("MSFontName")), QStringLiteral("Courier New"));
        QCOMPARE(ReadText(QStringLiteral("PPFontName")), QStringLiteral("Times New Roman"));
        QCOMPARE(ReadInt(QStringLiteral("PPFontStyle"), -1), 0);
        QVERIFY(form->ByChk->isChecked());
    }

    void previewPrinterAndPdfAllHaveTheSamePages()
    {
        check({form->MSChk, form->NGChk, form->PPChk});
        const QString pdf = dir->path(QStringLiteral("out.pdf"));
        (*dialogs)->Files = {TFileChoice{pdf, 1}};
        QTest::mouseClick(form->PDFBtn, Qt::LeftButton);
        QCOMPARE((*dialogs)->FileRequests.first().FileName, QStringLiteral("sunday-stroll.pdf"));
        const int pages = pdfPages(pdf);
        QVERIFY(pages >= 3);

        int shown = -1;
        (*dialogs)->DialogScripts = {[&](QDialog *) { shown = preview->PageCount(); }};
        QTest::mouseClick(form->PrevBtn, Qt::LeftButton);
        QCOMPARE((*dialogs)->ExecutedDialogs, QStringList{QStringLiteral("PreviewForm")});
        QCOMPARE(shown, pages);

        const QString printed = dir->path(QStringLiteral("printed.pdf"));
        CurrentPrinter().setOutputFormat(QPrinter::PdfFormat);
        CurrentPrinter().setOutputFileName(printed);
        (*dialogs)->PrinterAccepted = true;
        QTest::mouseClick(form->PrintBtn, Qt::LeftButton);
        QCOMPARE((*dialogs)->PrinterRequests, 1);
        QCOMPARE(pdfPages(printed), pages);
        QCOMPARE(form->PrintBar->value(), pages);
    }

    void previewComposesUprightPagesForThePaperAndAgainWhenItChanges()
    {
        check({form->MSChk, form->PPChk});
        QPrinter &printer = CurrentPrinter();
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Landscape);
        QSize composed;
        int shown = -1;
        (*dialogs)->DialogScripts = {[&](QDialog *) {
            composed = QSize(preview->Pages().first().Width, preview->Pages().first().Height);
            printer.setPageSize(QPageSize(QPageSize::A5));
            preview->findChild<QPrintPreviewWidget *>()->updatePreview();
            shown = preview->PageCount();
        }};
        QTest::mouseClick(form->PrevBtn, Qt::LeftButton);
        QCOMPARE(composed, QSize(2100, 2970));
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);
        QCOMPARE(QSize(preview->Pages().first().Width, preview->Pages().first().Height), QSize(1480, 2100));
        QCOMPARE(shown, int(preview->Pages().size()));
        for (const QAction *action : preview->findChildren<QAction *>())
            QVERIFY2(action->text() != QStringLiteral("Landscape") || !action->isVisible(), "no landscape on offer");
    }

    void printCommandOpensTheDialogOrPrintsThePuzzlePageWhenSolving()
    {
        form.reset();
        TProgram program;
        program.Start({});
        TXwdMainForm *main = program.MainForm;
        auto *print = main->findChild<QAction *>(QStringLiteral("PrintAct"));
        QVERIFY(print && !print->isEnabled());

        (*dialogs)->Files = {TFileChoice{Example, 1}};
        main->ConstructOpenAct->trigger();
        QVERIFY(print->isEnabled());
        QString title;
        (*dialogs)->DialogScripts = {[&](QDialog *d) { title = d->findChild<QLineEdit *>(QStringLiteral("TitleEdit"))->text(); }};
        print->trigger();
        QCOMPARE((*dialogs)->ExecutedDialogs, QStringList{QStringLiteral("XwdPrintForm")});
        QCOMPARE(title, QStringLiteral("sunday-stroll"));

        (*dialogs)->Files = {TFileChoice{Example, 1}};
        main->OpenSolveAct->trigger();
        const QString printed = dir->path(QStringLiteral("solving.pdf"));
        CurrentPrinter().setOutputFormat(QPrinter::PdfFormat);
        CurrentPrinter().setOutputFileName(printed);
        print->trigger();
        QCOMPARE((*dialogs)->ExecutedDialogs.size(), 1);
        QCOMPARE(pdfPages(printed), 1);
    }
};

QUILLMARK_UI_TEST_MAIN(TestPrintForm)
#include "tst_printform.moc"
