#pragma once
// The print preview: every composed page, with page turning, zoom in and out, fit to width
// and printing, in Qt's preview frame. Also the routine that sends pages to a printer.

#include "output/pagelayout.h"

#include <QPrintPreviewDialog>

#include <functional>

class QPrinter;

// The program's printer, kept for the run so a printer chosen once stays chosen.
QPrinter &CurrentPrinter();

// `job` composed for the paper in `printer`, which is turned upright: the pages are
// always composed portrait.
TPrintJob JobForPrinter(TPrintJob job, QPrinter &printer);

// Draws `pages` on `printer`, `copies` times over; `progress` hears each page printed.
// False when the printer could not be started.
bool PrintPages(QPrinter &printer, const QList<TPage> &pages, int copies,
                const std::function<void(int done)> &progress = {});

class TPreviewForm : public QPrintPreviewDialog {
    Q_OBJECT
public:
    explicit TPreviewForm(QWidget *parent = nullptr);

    // The values handed in by the print dialog; the pages are composed from them afresh.
    void SetJob(const TPrintJob &job, int copies);
    // Composes the pages anew for the paper `printer` holds now.
    const QList<TPage> &ComposeFor(QPrinter &printer);
    void ClearPages() { pages_.clear(); }
    const QList<TPage> &Pages() const { return pages_; }
    int Copies() const { return copies_; }
    // Pages the preview shows.
    int PageCount() const;

private:
    void paintPages(QPrinter *printer);

    TPrintJob job_;
    QList<TPage> pages_;
    int copies_ = 1;
};
