#include "output/ui/txwdprintform.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/cp1252.h"
#include "model/puzzle.h"
#include "model/puzzlefile.h"
#include "output/pdfoutput.h"
#include "output/printsettings.h"
#include "output/ui/tpreviewform.h"
#include "settings/fontsetting.h"
#include "settings/screenfit.h"
#include "settings/txwdprocs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <functional>

namespace {

// A sample box that its dialog paints.
class TPaintBox : public QWidget {
public:
    TPaintBox(const char *name, std::function<void(QWidget *)> paint, QWidget *parent)
        : QWidget(parent), paint_(std::move(paint))
    {
        setObjectName(QString::fromLatin1(name));
        setMinimumSize(300, 110);
    }

protected:
    void paintEvent(QPaintEvent *) override { paint_(this); }

private:
    std::function<void(QWidget *)> paint_;
};

QFont sampleFont(const TFontKeys &keys, int step)
{
    const TPageFontChoice choice = ReadPageFont(keys);
    QFont font(choice.Name);
    font.setPointSize(std::max(1, choice.Size + step));
    ApplyFontStyle(font, choice.Style);
    return font;
}

TPageFontChoice choiceOf(const QFont &font, int step)
{
    return {font.family(), font.pointSize() - step, FontStyleBits(font)};
}

QCheckBox *checkBox(const char *name, const QString &caption, QWidget *parent)
{
    auto *box = new QCheckBox(caption, parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

QPushButton *button(const char *name, const QString &caption, QWidget *parent)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}

}  // namespace

QFont ManuscriptSampleFont()
{
    return sampleFont(Setting::ManuscriptFont, 0);
}

QFont PuzzlePageSampleFont()
{
    return sampleFont(Setting::PuzzlePageFont, PuzzlePageSizeStep(Puzzle.Size));
}

TXwdPrintForm::TXwdPrintForm(TPreviewForm *preview, QWidget *parent) : QDialog(parent), preview_(preview)
{
    setObjectName(QStringLiteral("XwdPrintForm"));
    setWindowTitle(QStringLiteral("Print Puzzle"));

    PageControl = new QTabWidget(this);
    PageControl->setObjectName(QStringLiteral("PageControl"));

    auto *general = new QWidget;
    general->setObjectName(QStringLiteral("GeneralTab"));
    MSChk = checkBox("MSChk", QStringLiteral("Manuscript"), general);
    MSGChk = checkBox("MSGChk", QStringLiteral("Manuscript Grid Only"), general);
    NGChk = checkBox("NGChk", QStringLiteral("Numbered Grid"), general);
    SGChk = checkBox("SGChk", QStringLiteral("Solution Grid"), general);
    PPChk = checkBox("PPChk", QStringLiteral("Puzzle Page"), general);
    GrayChk = checkBox("GrayChk", QStringLiteral("Gray Squares"), general);
    DefChk = checkBox("DefChk", QStringLiteral("Default"), general);
    TitleEdit = new QLineEdit(general);
    TitleEdit->setObjectName(QStringLiteral("TitleEdit"));
    TitleEdit->setMaxLength(60);
    TitleEdit->setContextMenuPolicy(Qt::NoContextMenu);
    CopyEd = new QSpinBox(general);
    CopyEd->setObjectName(QStringLiteral("CopyEd"));
    CopyEd->setRange(1, 99);
    PrnLbl = new QLabel(QStringLiteral(" Current Printer on PORT:"), general);
    PrnLbl->setObjectName(QStringLiteral("PrnLbl"));
    PrintBar = new QProgressBar(general);
    PrintBar->setObjectName(QStringLiteral("PrintBar"));
    PrintBar->setTextVisible(false);
    PDFBtn = button("PDFBtn", QStringLiteral("Print to PDF..."), general);

    auto *generalLayout = new QGridLayout(general);
    auto *formats = new QVBoxLayout;
    for (QCheckBox *box : {MSChk, MSGChk, NGChk, SGChk, PPChk})
        formats->addWidget(box);
    auto *options = new QVBoxLayout;
    options->addWidget(GrayChk);
    options->addWidget(DefChk);
    auto *copies = new QHBoxLayout;
    copies->addWidget(new QLabel(QStringLiteral("Copies:"), general));
    copies->addWidget(CopyEd);
    copies->addStretch();
    options->addLayout(copies);
    options->addStretch();
    generalLayout->addLayout(formats, 0, 0);
    generalLayout->addLayout(options, 0, 1);
    auto *title = new QHBoxLayout;
    title->addWidget(new QLabel(QStringLiteral("Title:"), general));
    title->addWidget(TitleEdit);
    generalLayout->addLayout(title, 1, 0, 1, 2);
    generalLayout->addWidget(PrnLbl, 2, 0, 1, 2);
    generalLayout->addWidget(PrintBar, 3, 0, 1, 2);
    generalLayout->addWidget(PDFBtn, 4, 1, Qt::AlignRight);
    PageControl->addTab(general, QStringLiteral("General"));

    auto *settings = new QWidget;
    settings->setObjectName(QStringLiteral("SettingsTab"));
    MSLayout = new TPaintBox("MSLayout", [this](QWidget *box) { MSLayoutPaint(box); }, settings);
    PPLayout = new TPaintBox("PPLayout", [this](QWidget *box) { PPLayoutPaint(box); }, settings);
    MSTextBtn = button("MSTextBtn", QStringLiteral("Set Font..."), settings);
    PPTextBtn = button("PPTextBtn", QStringLiteral("Set Font..."), settings);
    ResetBtn = button("ResetBtn", QStringLiteral("Reset"), settings);
    ByChk = checkBox("ByChk", QStringLiteral("Print Byline"), settings);
    auto *settingsLayout = new QGridLayout(settings);
    settingsLayout->addWidget(new QLabel(QStringLiteral("Manuscript Text"), settings), 0, 0);
    settingsLayout->addWidget(MSLayout, 1, 0);
    settingsLayout->addWidget(MSTextBtn, 1, 1, Qt::AlignTop);
    settingsLayout->addWidget(new QLabel(QStringLiteral("Puzzle Page Text"), settings), 2, 0);
    settingsLayout->addWidget(PPLayout, 3, 0);
    settingsLayout->addWidget(PPTextBtn, 3, 1, Qt::AlignTop);
    settingsLayout->addWidget(ByChk, 4, 0);
    settingsLayout->addWidget(ResetBtn, 4, 1);
    PageControl->addTab(settings, QStringLiteral("Settings"));

    PrevBtn = button("PrevBtn", QStringLiteral("P&review..."), this);
    PrintBtn = button("PrintBtn", QStringLiteral("&Print"), this);
    PrintBtn->setDefault(true);
    CancelBtn = button("CancelBtn", QStringLiteral("&Cancel"), this);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(PrevBtn);
    buttons->addWidget(PrintBtn);
    buttons->addWidget(CancelBtn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(PageControl);
    layout->addLayout(buttons);

    connect(PrevBtn, &QPushButton::clicked, this, [this] { PrintBtnClick(true); });
    connect(PrintBtn, &QPushButton::clicked, this, [this] { PrintBtnClick(false); });
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(PDFBtn, &QPushButton::clicked, this, &TXwdPrintForm::PDFBtnClick);
    connect(DefChk, &QCheckBox::clicked, this, &TXwdPrintForm::DefChkClick);
    connect(MSTextBtn, &QPushButton::clicked, this, &TXwdPrintForm::MSTextBtnClick);
    connect(PPTextBtn, &QPushButton::clicked, this, &TXwdPrintForm::PPTextBtnClick);
    connect(ResetBtn, &QPushButton::clicked, this, &TXwdPrintForm::ResetBtnClick);
    connect(PageControl, &QTabWidget::currentChanged, this, [this] { PrintBtn->setFocus(); });
}

void TXwdPrintForm::showEvent(QShowEvent *event)
{
    FormShow();
    QDialog::showEvent(event);
}

void TXwdPrintForm::FormShow()
{
    for (int f = 0; f < PageFormatCount; ++f)
        formatBox(TPageFormat(f))->setChecked(ReadInt(Setting::PrintFormats[f]) != 0);
    GrayChk->setChecked(ReadGraySquares());
    DefChk->setChecked(false);
    if (TitleEdit->text().isEmpty())
        TitleEdit->setText(TitleForPuzzlePath(CurrentPuzzlePath));
    CopyEd->setValue(1);
    const QString printer = CurrentPrinter().printerName();
    PrnLbl->setText(QStringLiteral(" ") + (printer.isEmpty() ? QStringLiteral("No printer installed") : printer));
    PrintBar->setValue(0);
    ByChk->setChecked(true);
}

QCheckBox *TXwdPrintForm::formatBox(TPageFormat f) const
{
    const QCheckBox *const boxes[] = {MSChk, MSGChk, NGChk, SGChk, PPChk};
    return const_cast<QCheckBox *>(boxes[int(f)]);
}

int TXwdPrintForm::checkedFormats() const
{
    int n = 0;
    for (int f = 0; f < PageFormatCount; ++f)
        n += formatBox(TPageFormat(f))->isChecked();
    return n;
}

TPrintJob TXwdPrintForm::Job() const
{
    TPrintJob job;
    job.Title = TitleEdit->text();
    job.BlockColor = BlockColorFor(GrayChk->isChecked());
    job.SpecText = PuzzleSpecText;
    job.PrintByline = ByChk->isChecked();
    ReadPrintSettings(job);
    for (int f = 0; f < PageFormatCount; ++f)
        job.Formats[f] = formatBox(TPageFormat(f))->isChecked();
    return job;
}

void TXwdPrintForm::PrintBtnClick(bool preview)
{
    if (checkedFormats() == 0) {
        ShowPuzzleError(preview ? QStringLiteral("Nothing to preview! Please select one or more formats.")
                                : QStringLiteral("Nothing to print! Please select one or more formats."));
        return;
    }
    if (!preview_)
        return;
    preview_->ClearPages();
    preview_->SetJob(Job(), CopyEd->value());
    if (preview) {
        Dialogs().Exec(preview_);
        return;
    }
    QPrinter &printer = CurrentPrinter();
    printer.setDocName(TitleEdit->text());
    if (!Dialogs().ChoosePrinter(this, printer))
        return;
    // Composed for the paper chosen in the printer dialog.
    const QList<TPage> &pages = preview_->ComposeFor(printer);
    PrintBar->setRange(0, int(pages.size()));
    PrintBar->setValue(0);
    const bool printed = PrintPages(printer, pages, CopyEd->value(), [this](int done) { PrintBar->setValue(done); });
    if (!printed)
        ShowPuzzleError(QStringLiteral("The printer could not be started."));
    else
        accept();
}

void TXwdPrintForm::PDFBtnClick()
{
    if (checkedFormats() == 0) {
        ShowPuzzleError(QStringLiteral("Nothing to print! Please select one or more formats."));
        return;
    }
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = QStringLiteral("Print to PDF");
    request.FileName = TitleEdit->text() + QStringLiteral(".pdf");
    request.Filter = QStringLiteral("Adobe Acrobat Document|*.pdf");
    request.DefaultExtension = QStringLiteral("pdf");
    const std::optional<TFileChoice> choice = Dialogs().ChooseFile(this, request);
    if (!choice)
        return;
    try {
        TPrintToPDF pdf;
        pdf.BlockColor = BlockColorFor(GrayChk->isChecked());
        pdf.PuzzleSpecText = PuzzleSpecText;
        pdf.FileName = choice->Path;
        pdf.Title = TitleEdit->text();
        pdf.Run(Puzzle, Job());
    } catch (const TPuzzleIOError &e) {
        ShowPuzzleError(QString::fromStdString(e.what()));
    }
}

void TXwdPrintForm::DefChkClick()
{
    if (!DefChk->isChecked())
        return;
    for (int f = 0; f < PageFormatCount; ++f)
        WriteSetting(Setting::PrintFormats[f], formatBox(TPageFormat(f))->isChecked() ? 1 : 0);
    WriteSetting(Setting::PrintGSq, GrayChk->isChecked() ? 1 : 0);
}

void TXwdPrintForm::MSTextBtnClick()
{
    const std::optional<QFont> font = Dialogs().ChooseFont(this, ManuscriptSampleFont());
    if (!font)
        return;
    WritePageFont(Setting::ManuscriptFont, choiceOf(*font, 0));
    MSLayout->update();
}

void TXwdPrintForm::PPTextBtnClick()
{
    const std::optional<QFont> font = Dialogs().ChooseFont(this, PuzzlePageSampleFont());
    if (!font)
        return;
    WritePageFont(Setting::PuzzlePageFont, choiceOf(*font, PuzzlePageSizeStep(Puzzle.Size)));
    PPLayout->update();
}

void TXwdPrintForm::ResetBtnClick()
{
    WritePageFont(Setting::ManuscriptFont, DefaultPageFont(Setting::ManuscriptFont));
    WritePageFont(Setting::PuzzlePageFont, DefaultPageFont(Setting::PuzzlePageFont));
    MSLayout->update();
    PPLayout->update();
    ByChk->setChecked(true);
}

void TXwdPrintForm::MSLayoutPaint(QWidget *box)
{
    samplePaint(box, false);
}

void TXwdPrintForm::PPLayoutPaint(QWidget *box)
{
    samplePaint(box, true);
}

void TXwdPrintForm::samplePaint(QWidget *box, bool puzzlePage)
{
    QPainter painter(box);
    const int w = box->width();
    const int h = box->height();
    painter.fillRect(4, 4, w - 4, h - 4, QColor(0x80, 0x80, 0x80));
    painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
    painter.setBrush(Qt::white);
    painter.drawRect(0, 0, w - 5, h - 5);
    painter.setFont(puzzlePage ? PuzzlePageSampleFont() : ManuscriptSampleFont());
    const QFontMetrics fm = painter.fontMetrics();
    const int lineHeight = fm.height() + (puzzlePage ? 2 : 5);
    painter.setPen(Qt::black);
    for (int i = 1; 10 + i <= ClueSlots; ++i) {
        const int y = 4 + (i - 1) * lineHeight;
        if (y >= h - 5 - lineHeight)
            break;
        QString text = QString::number(i + 10) + u' ' + FromCp1252(Puzzle.clue(i + 10));
        while (!text.isEmpty() && fm.horizontalAdvance(text) > w - 9)
            text.chop(1);
        painter.drawText(4, y + fm.ascent(), text);
    }
}
