#include "output/ui/tpreviewform.h"

#include "model/puzzle.h"
#include "output/pagepainter.h"

#include <QAction>
#include <QCoreApplication>
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

TPrintJob JobForPrinter(TPrintJob job, QPrinter &printer)
{
    printer.setPageOrientation(QPageLayout::Portrait);
    job.setPaper(printer.pageLayout().pageSize());
    return job;
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
        PaintPage(painter, pages[i], QSizeF(printer.width(), printer.height()));
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
    // The pages are composed upright for any paper, so there is no landscape to offer.
    for (const char *orientation : {"Portrait", "Landscape"})
        for (QAction *action : findChildren<QAction *>())
            if (action->text() == QCoreApplication::translate("QPrintPreviewDialog", orientation))
                action->setVisible(false);
    // Every new look at the pages (a paper chosen in Page Setup too) composes them anew.
    connect(this, &QPrintPreviewDialog::paintRequested, this, &TPreviewForm::paintPages);
}

void TPreviewForm::SetJob(const TPrintJob &job, int copies)
{
    job_ = job;
    copies_ = std::max(1, copies);
    ComposeFor(CurrentPrinter());
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

const QList<TPage> &TPreviewForm::ComposeFor(QPrinter &printer)
{
    pages_ = ComposePages(Puzzle, JobForPrinter(job_, printer));
    return pages_;
}

void TPreviewForm::paintPages(QPrinter *printer)
{
    PrintPages(*printer, ComposeFor(*printer), copies_);
}
