#include "fill/ui/twordfinderform.h"

#include "fill/fillreport.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "model/cp1252.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAbstractTableModel>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

// The candidates as a virtual table: thousands of rows cost nothing until shown.
class TCandidateModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void reset(const TFinderList *list, const TPatternIndex *index)
    {
        beginResetModel();
        list_ = list;
        index_ = index;
        endResetModel();
    }
    QString word(int row) const
    {
        const TCandidate &c = list_->Candidates[size_t(row)];
        const std::string_view w = index_->word(int(list_->Pattern.size()), c.Id);
        return FromCp1252(QByteArray(w.data(), qsizetype(w.size())));
    }
    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() || !list_ ? 0 : int(list_->Candidates.size());
    }
    int columnCount(const QModelIndex & = {}) const override { return 3; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        static const char *const names[] = {"Word", "Score", "Crossings"};
        return QString::fromLatin1(names[section]);
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const TCandidate &c = list_->Candidates[size_t(index.row())];
        if (role == Qt::DisplayRole) {
            switch (index.column()) {
            case 0: return word(index.row());
            case 1: return c.Score;
            default:
                if (c.DeadEnd)
                    return QStringLiteral("dead end");
                return c.CrossOptions < 0 ? QString() : QString::number(c.CrossOptions);
            }
        }
        if (role == Qt::ForegroundRole && c.DeadEnd)
            return QColor(Qt::red).darker(130);
        if (role == Qt::TextAlignmentRole && index.column() > 0)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (role == Qt::ToolTipRole && c.DeadEnd)
            return QStringLiteral("Leaves a crossing word with no possible word");
        return {};
    }

private:
    const TFinderList *list_ = nullptr;
    const TPatternIndex *index_ = nullptr;
};

// Under each square of the word, the letters still possible there; a forced letter (the
// only one possible) is shown large and in colour.
class TPossibleLettersView : public QWidget {
public:
    explicit TPossibleLettersView(QWidget *parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("LettersView"));
        setMinimumHeight(40);
    }
    void setLetters(const QByteArray &pattern, const std::vector<TCharSet> &possible)
    {
        pattern_ = pattern;
        possible_ = possible;
        // As tall as the longest column of letters, so a filled word takes one row of squares.
        int lines = 0;
        for (int i = 0; i < int(pattern_.size()); ++i)
            if (pattern_[i] == AnyLetter)
                lines = std::max(lines, (int(lettersAt(i).size()) + 1) / 2);
        setFixedHeight(columnWidth() + 2 + lines * smallHeight());
        update();
    }
    // The letters under square `i`, as text.
    QString lettersAt(int i) const
    {
        QString text;
        for (int code = 0; code < 256; ++code)
            if (possible_[size_t(i)].test(size_t(code)))
                text += Cp1252ToUnicode(uint8_t(code));
        return text;
    }
    QSize sizeHint() const override { return {columnWidth() * int(pattern_.size()) + 2, height()}; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const int w = columnWidth();
        const QFont small = smallFont();
        const QFontMetrics sm(small);
        QFont big = font();
        big.setBold(true);
        for (int i = 0; i < int(pattern_.size()); ++i) {
            const QRect square(i * w + 1, 1, w - 2, w - 2);
            painter.setPen(palette().color(QPalette::WindowText));
            painter.setBrush(Qt::white);
            painter.drawRect(square);
            if (pattern_[i] != AnyLetter) {
                painter.setFont(big);
                painter.drawText(square, Qt::AlignCenter, QString(Cp1252ToUnicode(uint8_t(pattern_[i]))));
                continue;
            }
            const QString letters = lettersAt(i);
            if (letters.size() == 1) {
                painter.setFont(big);
                painter.setPen(QColor(0, 110, 0));
                painter.drawText(square, Qt::AlignCenter, letters);
                continue;
            }
            painter.setFont(small);
            painter.setPen(palette().color(QPalette::WindowText));
            // Two letters a line, in the column under the square.
            for (int k = 0; k < letters.size(); k += 2)
                painter.drawText(QRect(i * w, w + (k / 2) * sm.height(), w, sm.height()), Qt::AlignCenter,
                                 letters.mid(k, 2));
        }
    }

private:
    int columnWidth() const { return std::max(22, fontMetrics().horizontalAdvance(QStringLiteral("WW")) + 4); }
    QFont smallFont() const
    {
        QFont small = font();
        small.setPointSizeF(font().pointSizeF() * 0.85);
        return small;
    }
    int smallHeight() const { return QFontMetrics(smallFont()).height(); }

    QByteArray pattern_;
    std::vector<TCharSet> possible_;
};

TWordFinderForm::TWordFinderForm(QWidget *parent) : QWidget(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("WordFinderForm"));
    setWindowTitle(QStringLiteral("Word Finder"));
    auto *column = new QVBoxLayout(this);

    auto *top = new QHBoxLayout;
    auto *patternLabel = new QLabel(QStringLiteral("&Pattern:"), this);
    PatternEdit = new QLineEdit(this);
    PatternEdit->setObjectName(QStringLiteral("PatternEdit"));
    PatternEdit->setMaxLength(MaxWordLength);
    PatternEdit->setPlaceholderText(QStringLiteral("letters and ?"));
    PatternEdit->setToolTip(QStringLiteral("A pattern typed here stands in for the grid's word; ? is any letter"));
    patternLabel->setBuddy(PatternEdit);
    CountLabel = new QLabel(this);
    CountLabel->setObjectName(QStringLiteral("CountLabel"));
    top->addWidget(patternLabel);
    top->addWidget(PatternEdit, 1);
    top->addWidget(CountLabel);
    column->addLayout(top);

    LettersView = new TPossibleLettersView(this);
    column->addWidget(LettersView);

    CandidateList = new QTreeView(this);
    CandidateList->setObjectName(QStringLiteral("CandidateList"));
    CandidateList->setRootIsDecorated(false);
    CandidateList->setUniformRowHeights(true);
    CandidateList->setAlternatingRowColors(true);
    CandidateList->setSelectionBehavior(QAbstractItemView::SelectRows);
    model_ = new TCandidateModel(this);
    CandidateList->setModel(model_);
    CandidateList->header()->setStretchLastSection(false);
    CandidateList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    CandidateList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    CandidateList->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    CandidateList->installEventFilter(this);
    column->addWidget(CandidateList, 1);

    NoteLabel = new QLabel(this);
    NoteLabel->setObjectName(QStringLiteral("NoteLabel"));
    NoteLabel->setWordWrap(true);
    column->addWidget(NoteLabel);
    ReportLabel = new QLabel(this);
    ReportLabel->setObjectName(QStringLiteral("ReportLabel"));
    ReportLabel->setWordWrap(true);
    ReportLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(ReportLabel);

    refreshTimer_ = new QTimer(this);
    refreshTimer_->setSingleShot(true);
    refreshTimer_->setInterval(0);
    connect(refreshTimer_, &QTimer::timeout, this, &TWordFinderForm::Refresh);
    connect(PatternEdit, &QLineEdit::textEdited, this, &TWordFinderForm::patternEdited);
    connect(CandidateList, &QTreeView::activated, this, [this](const QModelIndex &index) { WriteCandidate(index.row()); });

    connect(&Session(), &TPuzzleSession::changed, this, &TWordFinderForm::scheduleRefresh);
    connect(&Session(), &TPuzzleSession::opened, this, [this] {
        overridden_ = false;
        scheduleRefresh();
    });
    connect(&Session(), &TPuzzleSession::modeChanged, this, &TWordFinderForm::scheduleRefresh);
    connect(&Session(), &TPuzzleSession::closed, this, &TWordFinderForm::scheduleRefresh);
    connect(&WordLists(), &TWordListService::ready, this, &TWordFinderForm::scheduleRefresh);
    // The grid's cursor moves with clicks and keys; the list follows once they are handled.
    if (XwdGridForm)
        XwdGridForm->installEventFilter(this);
    resize(420, 560);
}

TWordFinderForm::~TWordFinderForm()
{
    // The model reads the list in place: it lets go of it before the list goes, as the
    // views ask it for their sizes while they are taken down.
    if (model_)
        model_->reset(nullptr, nullptr);
    if (XwdGridForm)
        XwdGridForm->removeEventFilter(this);
}

void TWordFinderForm::scheduleRefresh()
{
    if (isVisible())
        refreshTimer_->start();
}

void TWordFinderForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // First shown under the main window, clear of the grid.
    if (!placed_ && parentWidget()) {
        placed_ = true;
        QPoint at = parentWidget()->frameGeometry().bottomLeft() + QPoint(0, 8);
        if (const QScreen *screen = parentWidget()->screen()) {
            const QRect room = screen->availableGeometry();
            at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - frameGeometry().width())));
            at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - frameGeometry().height())));
        }
        move(at);
    }
    Refresh();
}

bool TWordFinderForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == XwdGridForm && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress))
        scheduleRefresh();
    if (watched == CandidateList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && CandidateList->currentIndex().isValid()) {
            WriteCandidate(CandidateList->currentIndex().row());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void TWordFinderForm::patternEdited()
{
    overridden_ = !PatternEdit->text().isEmpty();
    recompute();
}

void TWordFinderForm::Refresh()
{
    TFillSlot slot;
    if (XwdGridForm && XwdGridForm->Editor.WordDirection != 0 && Puzzle.Size > 0) {
        const QPoint cell = CellAt(XwdGridForm->Editor.CursorPos);
        slot = SlotThrough(Puzzle, cell.x(), cell.y(),
                           XwdGridForm->Editor.WordDirection == 1 ? Direction::Across : Direction::Down);
    }
    // Typing the last letter of a word ends it in the grid; the finder stays with it.
    if (slot.isValid() && !(slot == slot_)) {
        slot_ = slot;
        overridden_ = false;
    }
    if (!slot_.isValid() || slot_.Column + (slot_.Dir == Direction::Across ? slot_.Length - 1 : 0) > Puzzle.Size ||
        slot_.Row + (slot_.Dir == Direction::Down ? slot_.Length - 1 : 0) > Puzzle.Size ||
        !(SlotThrough(Puzzle, slot_.Column, slot_.Row, slot_.Dir) == slot_))
        slot_ = slot;
    if (!overridden_)
        PatternEdit->setText(slot_.isValid() ? FromCp1252(SlotPattern(Puzzle, slot_)) : QString());
    recompute();
}

void TWordFinderForm::recompute()
{
    lexicon_ = WordLists().FromSettings();
    const int language = ConstructionLanguage();
    QByteArray pattern = ToCp1252(PatternEdit->text().toUpper(), '\0');
    pattern.replace(' ', AnyLetter);
    model_->reset(nullptr, nullptr);
    list_ = TFinderList();
    if (!lexicon_) {
        CountLabel->clear();
        LettersView->setLetters({}, {});
        NoteLabel->setText(QStringLiteral("Loading the %1 word lists...").arg(GridLanguageName(language)));
        ReportLabel->clear();
        return;
    }
    NoteLabel->setText(lexicon_->Problems.join(u'\n'));
    NoteLabel->setVisible(!lexicon_->Problems.isEmpty());
    if (pattern.contains('\0')) {
        CountLabel->setText(QStringLiteral("not a pattern"));
        LettersView->setLetters({}, {});
    } else {
        list_ = FindCandidates(lexicon_->Index, Puzzle, slot_, pattern);
        model_->reset(&list_, &lexicon_->Index);
        CountLabel->setText(QStringLiteral("%1 fit, %2 viable").arg(list_.Count).arg(list_.Viable));
        LettersView->setLetters(pattern, list_.Possible);
        if (model_->rowCount() > 0)
            CandidateList->setCurrentIndex(model_->index(0, 0));
    }

    const TFillReport report = MakeFillReport(Puzzle, lexicon_->Words);
    QStringList lines;
    lines << QStringLiteral("Fill: %1 complete entries, average score %2")
                 .arg(report.Entries.size())
                 .arg(QString::number(report.AverageScore, 'f', 1));
    auto names = [](const QList<TReportEntry> &entries, bool withScore) {
        QStringList items;
        for (const TReportEntry &e : entries)
            items << FromCp1252(e.Word) + (withScore ? QStringLiteral(" (%1)").arg(e.Score) : QString());
        return items.join(QStringLiteral(", "));
    };
    if (!report.NotInList.isEmpty())
        lines << QStringLiteral("In no list: ") + names(report.NotInList, false);
    if (!report.Lowest.isEmpty())
        lines << QStringLiteral("Lowest: ") + names(report.Lowest, true);
    if (!report.Repeated.isEmpty()) {
        QStringList repeated;
        for (const QByteArray &w : report.Repeated)
            repeated << FromCp1252(w);
        lines << QStringLiteral("Repeated: ") + repeated.join(QStringLiteral(", "));
    }
    ReportLabel->setText(lines.join(u'\n'));
}

QByteArray TWordFinderForm::CandidateWord(int row) const
{
    if (!lexicon_ || row < 0 || row >= int(list_.Candidates.size()))
        return {};
    const std::string_view w = lexicon_->Index.word(int(list_.Pattern.size()), list_.Candidates[size_t(row)].Id);
    return QByteArray(w.data(), qsizetype(w.size()));
}

bool TWordFinderForm::WriteCandidate(int row)
{
    const QByteArray word = CandidateWord(row);
    if (word.isEmpty() || PuzzleMode == SolveMode || Puzzle.Size == 0 || !slot_.isValid() || word.size() != slot_.Length)
        return false;
    const TFillSlot slot = slot_;
    Session().Edit(QStringLiteral("Word Finder"), TChangeKind::Grid,
                   [slot, word](TPuzzle &p) {
                       for (int i = 0; i < slot.Length; ++i) {
                           const QPoint sq = slot.square(i);
                           if (!p.isBlock(sq.x(), sq.y()))
                               p.Cells(sq.x(), sq.y()) = uint8_t(word[i]);
                       }
                   },
                   TSquareHint{slot.Column, slot.Row});
    overridden_ = false;
    if (XwdGridForm)
        XwdGridForm->update();
    Refresh();
    return true;
}
