#include "fill/ui/autofillcommands.h"

#include "fill/fillengine.h"
#include "fill/ui/squareoverlay.h"
#include "fill/wordlistservice.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/txwdmainform.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

#include <atomic>
#include <memory>

namespace {

// The words a fill found at fault, shaded over the grid until the puzzle next changes.
TSquareOverlay *faultOverlay()
{
    if (auto *o = XwdGridForm->findChild<TSquareOverlay *>(QStringLiteral("FillFaultOverlay"), Qt::FindDirectChildrenOnly))
        return o;
    auto *o = new TSquareOverlay(XwdGridForm, QStringLiteral("FillFaultOverlay"), QColor(240, 150, 0, 90));
    o->show();
    const auto clear = [o] { o->setSquares({}); };
    QObject::connect(&Session(), &TPuzzleSession::changed, o, clear);
    QObject::connect(&Session(), &TPuzzleSession::opened, o, clear);
    QObject::connect(&Session(), &TPuzzleSession::closed, o, clear);
    return o;
}

// What the worker and the window thread share while a fill runs: the worker writes the
// counts and the result, the window thread reads them and sets the cancel flag.
struct TFillJob {
    TFillRequest Request;
    TFillResult Result;
    std::atomic<bool> Cancel = false;
    std::atomic<int> Filled = 0;
    std::atomic<int> Total = 0;
};

enum class TFillKind { Grid, Region, Word };

class TAutofill : public QObject {
public:
    explicit TAutofill(TXwdMainForm *form);
    ~TAutofill() override;

    QAction *FillGridAct = nullptr;
    QAction *FillRegionAct = nullptr;
    QAction *FillWordAct = nullptr;
    QAction *FillAgainAct = nullptr;

    void updateActions();

private:
    void start(TFillKind kind, const QString &caption, const TPuzzle &base, std::vector<bool> fillable, quint64 seed);
    void startFromCommand(TFillKind kind);
    void again();
    void finished();

    TXwdMainForm *form_;
    QThread *thread_ = nullptr;
    std::shared_ptr<TFillJob> job_;
    QDialog *progress_ = nullptr;
    QLabel *progressText_ = nullptr;
    QTimer *ticker_ = nullptr;
    QElapsedTimer clock_;
    QString caption_;
    TFillKind kind_ = TFillKind::Grid;
    // The last fill, so that Fill Again can propose another in its place.
    bool haveLast_ = false;
    TFillKind lastKind_ = TFillKind::Grid;
    TPuzzle lastBefore_;
    TPuzzle lastAfter_;
    std::vector<bool> lastFillable_;
    quint64 lastSeed_ = 1;
};

QAction *makeAction(TXwdMainForm *form, const char *name, const QString &caption)
{
    auto *action = new QAction(caption, form);
    action->setObjectName(QString::fromLatin1(name));
    if (QMenu *m = form->Menu(QStringLiteral("GridMenu")))
        m->addAction(action);
    return action;
}

TAutofill::TAutofill(TXwdMainForm *form) : QObject(form), form_(form)
{
    setObjectName(QStringLiteral("Autofill"));
    if (QMenu *m = form->Menu(QStringLiteral("GridMenu")))
        m->addSeparator();
    FillGridAct = makeAction(form, "FillGridAct", QStringLiteral("Fill Grid"));
    FillRegionAct = makeAction(form, "FillRegionAct", QStringLiteral("Fill Region"));
    FillWordAct = makeAction(form, "FillWordAct", QStringLiteral("Fill Word"));
    FillAgainAct = makeAction(form, "FillAgainAct", QStringLiteral("Fill Again"));
    connect(FillGridAct, &QAction::triggered, this, [this] { startFromCommand(TFillKind::Grid); });
    connect(FillRegionAct, &QAction::triggered, this, [this] { startFromCommand(TFillKind::Region); });
    connect(FillWordAct, &QAction::triggered, this, [this] { startFromCommand(TFillKind::Word); });
    connect(FillAgainAct, &QAction::triggered, this, &TAutofill::again);
    // Another puzzle, or the same one opened again, has no last fill to propose again.
    connect(&Session(), &TPuzzleSession::opened, this, [this] {
        haveLast_ = false;
        updateActions();
    });
}

TAutofill::~TAutofill()
{
    // Leaving while a fill runs: the worker stops at its next check.
    if (job_)
        job_->Cancel = true;
    if (thread_) {
        thread_->wait();
        delete thread_;
    }
}

void TAutofill::updateActions()
{
    const bool letters = form_->IsPuzzleOpen() && PuzzleMode == ConstructMode && !thread_;
    for (QAction *action : {FillGridAct, FillRegionAct, FillWordAct, FillAgainAct}) {
        action->setVisible(form_->IsPuzzleOpen() && PuzzleMode != SolveMode);
        action->setEnabled(letters);
    }
    FillAgainAct->setEnabled(letters && haveLast_);
}

void TAutofill::startFromCommand(TFillKind kind)
{
    const TPuzzle &p = Puzzle;
    std::vector<bool> fillable;
    if (kind != TFillKind::Grid) {
        const TGridEditor *editor = XwdGridForm ? &XwdGridForm->Editor : nullptr;
        if (!editor || editor->WordDirection == 0) {
            Dialogs().Inform(form_, QStringLiteral("Click a word in the grid first."));
            return;
        }
        const QPoint cell = CellAt(editor->CursorPos);
        const Direction dir = editor->WordDirection == 1 ? Direction::Across : Direction::Down;
        const QPoint begin = WordStart(p, cell.x(), cell.y(), editor->WordDirection);
        if (kind == TFillKind::Region) {
            fillable = FillRegion(p, begin.x(), begin.y(), dir);
        } else {
            fillable.assign(MaxGrid * MaxGrid, false);
            const int dx = dir == Direction::Across ? 1 : 0;
            for (int c = begin.x(), r = begin.y(); p.inGrid(c, r) && !p.isBlock(c, r); c += dx, r += 1 - dx)
                fillable[(c - 1) * MaxGrid + (r - 1)] = true;
        }
    }
    bool anyOpen = false;
    for (int c = 1; c <= p.Size; ++c)
        for (int r = 1; r <= p.Size; ++r) {
            const bool inside = fillable.empty() || fillable[(c - 1) * MaxGrid + (r - 1)];
            anyOpen = anyOpen || (inside && (p.Cells(c, r) == 0 || p.Cells(c, r) == OpenChar));
        }
    if (!anyOpen) {
        Dialogs().Inform(form_, QStringLiteral("There is no empty square to fill."));
        return;
    }
    static const QString captions[] = {QStringLiteral("Fill Grid"), QStringLiteral("Fill Region"),
                                       QStringLiteral("Fill Word")};
    start(kind, captions[int(kind)], p, std::move(fillable), haveLast_ ? lastSeed_ + 1 : 1);
}

// Another fill in place of the last one, from the grid as it was before it, while the grid
// still shows that fill; once the grid was edited, a fill of the same kind from the grid as it is.
void TAutofill::again()
{
    if (!haveLast_)
        return;
    const bool untouched = std::equal(std::begin(Puzzle.Cells.Data), std::end(Puzzle.Cells.Data),
                                      std::begin(lastAfter_.Cells.Data));
    if (untouched)
        start(lastKind_, QStringLiteral("Fill Again"), lastBefore_, lastFillable_, lastSeed_ + 1);
    else
        startFromCommand(lastKind_);
}

void TAutofill::start(TFillKind kind, const QString &caption, const TPuzzle &base, std::vector<bool> fillable,
                      quint64 seed)
{
    if (thread_)
        return;
    kind_ = kind;
    caption_ = caption;
    job_ = std::make_shared<TFillJob>();
    TFillRequest &request = job_->Request;
    request.Grid = base;
    request.Fillable = std::move(fillable);
    request.Seed = seed;
    request.TimeLimit = FillTimeLimitSetting();
    TFillJob *job = job_.get();
    request.Cancel = &job->Cancel;
    request.Progress = [job](int filled, int total) {
        job->Filled = filled;
        job->Total = total;
    };
    const int language = base.Language;
    // The job is kept alive by the thread's own copy of the pointer, whatever the window does.
    // The lists, their order and the lowest score as the Word Lists page sets them, as the
    // word finder offers words from them.
    const TWordListConfig config = WordListConfigFromSettings(language);
    job_->Request.MinScore = config.MinScore;
    thread_ = QThread::create([job = job_, config] {
        job->Request.Words = std::make_shared<const TWordList>(LoadWordLists(config).Words);
        if (!job->Cancel)
            job->Result = FillGrid(job->Request);
        else
            job->Result.Status = TFillStatus::Cancelled;
    });
    connect(thread_, &QThread::finished, this, &TAutofill::finished);

    if (!progress_) {
        progress_ = new QDialog(form_);
        progress_->setObjectName(QStringLiteral("FillProgressForm"));
        progress_->setWindowTitle(QStringLiteral("Autofill"));
        auto *layout = new QVBoxLayout(progress_);
        progressText_ = new QLabel(progress_);
        progressText_->setObjectName(QStringLiteral("FillProgressText"));
        progressText_->setMinimumWidth(280);
        layout->addWidget(progressText_);
        auto *cancel = new QPushButton(QStringLiteral("Cancel"), progress_);
        cancel->setObjectName(QStringLiteral("CancelBtn"));
        layout->addWidget(cancel, 0, Qt::AlignRight);
        connect(cancel, &QPushButton::clicked, this, [this] {
            if (job_)
                job_->Cancel = true;
            progressText_->setText(QStringLiteral("Cancelling..."));
        });
        // Closing the window is a Cancel too.
        connect(progress_, &QDialog::rejected, this, [this] {
            if (job_)
                job_->Cancel = true;
        });
        ticker_ = new QTimer(this);
        ticker_->setInterval(100);
        connect(ticker_, &QTimer::timeout, this, [this] {
            if (!job_ || job_->Cancel)
                return;
            progressText_->setText(QStringLiteral("%1: %2 of %3 words filled, %4 s")
                                       .arg(caption_)
                                       .arg(job_->Filled.load())
                                       .arg(job_->Total.load())
                                       .arg(double(clock_.elapsed()) / 1000.0, 0, 'f', 1));
        });
    }
    progressText_->setText(QStringLiteral("%1: reading the word lists...").arg(caption));
    clock_.start();
    ticker_->start();
    progress_->open();
    updateActions();
    thread_->start();
}

void TAutofill::finished()
{
    thread_->deleteLater();
    thread_ = nullptr;
    ticker_->stop();
    progress_->hide();
    const std::shared_ptr<TFillJob> job = std::move(job_);
    const TFillResult &result = job->Result;
    switch (result.Status) {
    case TFillStatus::Filled: {
        const TFillRequest &request = job->Request;
        // The result is the request's grid with the fill written in: for Fill Again that
        // grid is the one before the last fill, so the last fill's letters give way.
        Session().Edit(caption_, TChangeKind::Grid, [&](TPuzzle &p) { p.Cells = result.Grid.Cells; });
        haveLast_ = true;
        lastKind_ = kind_;
        lastBefore_ = request.Grid;
        lastAfter_ = Puzzle;
        lastFillable_ = request.Fillable;
        lastSeed_ = request.Seed;
        break;
    }
    case TFillStatus::Impossible: {
        QStringList names;
        for (const TWordRef &word : result.Faulty)
            names.append(SlotName(word));
        // Every word at fault is shaded until the grid next changes, and the worst becomes
        // the current word, so that the grid shows where to look.
        if (!result.Faulty.isEmpty() && XwdGridForm) {
            QList<QPoint> squares;
            for (const TWordRef &word : result.Faulty)
                squares += HighlightSquares(Puzzle, word.Column, word.Row, word.Dir == Direction::Across ? 1 : 2);
            faultOverlay()->setSquares(squares);
            const TWordRef &worst = result.Faulty.first();
            XwdGridForm->SelectWord(CellTopLeft(worst.Column, worst.Row) + QPoint(1, 1),
                                    worst.Dir == Direction::Across ? 1 : 2, XwdGridForm->HiliteSqColor);
        }
        Dialogs().Inform(form_, names.isEmpty()
                                    ? QStringLiteral("No fill exists for these words.")
                                    : QStringLiteral("No fill exists. The words at fault: %1.").arg(names.join(u", ")));
        break;
    }
    case TFillStatus::TimedOut:
        Dialogs().Inform(form_, QStringLiteral("The time limit ran out before a fill was found; the grid is as it was."));
        break;
    case TFillStatus::Cancelled:
        break;
    }
    updateActions();
}

}  // namespace

void InstallAutofillCommands(TXwdMainForm *form)
{
    auto *autofill = new TAutofill(form);
    QObject::connect(form, &TXwdMainForm::ActionsUpdated, autofill, [autofill] { autofill->updateActions(); });
    autofill->updateActions();
}
