#include "output/ui/tpreviewform.h"

#include "model/puzzle.h"
#include "output/pagepainter.h"

#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>

QPrinter &CurrentPrinter()
{
    static QPrinter printer(QPrinter::HighResolution);
    static const bool once = [] {
        printer.setPageSize(QPageSize(QPageSize::Letter));
        printer.setPageOrientation(QPageLayout::Portrait);
        printer.setFullPage(true);
        return true;
    }();
    Q_UNUSED(once);
    return printer;
}

bool PrintPages(QPrinter &printer, const QList<TPage> &pages, int copies, const std::function<void(int)> &progress)
{
    printer.setFullPage(true);
    printer.setCopyCount(std::max(1, copies));
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    for (qsizetype i = 0; i < pages.size(); ++i) {
        if (i > 0)
            printer.newPage();
        PaintPage(painter, pages[i], printer.width());
        if (progress)
            progress(int(i + 1));
    }
    return painter.end();
}

TPreviewForm::TPreviewForm(QWidget *parent) : QPrintPreviewDialog(&CurrentPrinter(), parent)
{
    setObjectName(QStringLiteral("PreviewForm"));
    setWindowTitle(QStringLiteral("Print Preview"));
    resize(900, 1000);
    connect(this, &QPrintPreviewDialog::paintRequested, this, &TPreviewForm::paintPages);
}

void TPreviewForm::SetJob(const TPrintJob &job, int copies)
{
    copies_ = std::max(1, copies);
    pages_ = ComposePages(Puzzle, job);
    CurrentPrinter().setCopyCount(copies_);
    if (auto *widget = findChild<QPrintPreviewWidget *>()) {
        widget->updatePreview();
        widget->fitToWidth();
    }
}

int TPreviewForm::PageCount() const
{
    const auto *widget = findChild<QPrintPreviewWidget *>();
    return widget ? widget->pageCount() : 0;
}

void TPreviewForm::paintPages(QPrinter *printer)
{
    PrintPages(*printer, pages_, copies_);
}
