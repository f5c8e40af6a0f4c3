#include "inspect/ui/tanalysisform.h"

#include "model/cp1252.h"
#include "model/puzzle.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QColor Grey(0x80, 0x80, 0x80);
const QColor Navy(0x00, 0x00, 0x80);
const QColor Maroon(0x80, 0x00, 0x00);

void setColour(QLabel *label, const QColor &colour)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

// The letter table, painted by the window.
class TLetterBox : public QWidget {
public:
    explicit TLetterBox(TAnalysisForm *form) : QWidget(form), form_(form)
    {
        // Rows are a seventh of the height and one more, so seven lines of text need
        // some spare; the fourth column's counts end 40 pixels past its letters.
        const int line = fontMetrics().height();
        setFixedSize(260, 7 * (line + 6));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        form_->LtrBoxPaint(painter);
    }

private:
    TAnalysisForm *form_;
};

}  // namespace

TAnalysisForm::TAnalysisForm(QWidget *parent) : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("AnalysisForm"));
    setWindowTitle(QStringLiteral("Puzzle Analysis"));
    auto *grid = new QGridLayout;
    const auto line = [this, grid](const QString &caption, const char *name) {
        auto *captionLabel = new QLabel(caption, this);
        auto *value = new QLabel(this);
        value->setObjectName(QString::fromLatin1(name));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const int row = grid->rowCount();
        grid->addWidget(captionLabel, row, 0);
        grid->addWidget(value, row, 1);
        return std::pair{captionLabel, value};
    };
    BkSqLbl = line(QStringLiteral("Total black squares:"), "BkSqLbl").second;
    AcrLbl = line(QStringLiteral("Total across words:"), "AcrLbl").second;
    DwnLbl = line(QStringLiteral("Total down words:"), "DwnLbl").second;
    WdsLbl = line(QStringLiteral("= Total words:"), "WdsLbl").second;
    Ltr3Lbl = line(QStringLiteral("Total 3-letter words:"), "Ltr3Lbl").second;
    std::tie(Ltr2Caption, Ltr2Lbl) = line(QStringLiteral("Total 2-letter words:"), "Ltr2Lbl");
    EndSLbl = line(QStringLiteral("Words ending in S:"), "EndSLbl").second;
    AvgLbl = line(QStringLiteral("Average word length:"), "AvgLbl").second;
    std::tie(UnkCaption, UnkLbl) = line(QStringLiteral("Unkeyed squares:"), "UnkLbl");
    SymLbl = line(QStringLiteral("Symmetry"), "SymLbl").second;
    Ltr2Caption->setObjectName(QStringLiteral("Ltr2Caption"));
    UnkCaption->setObjectName(QStringLiteral("UnkCaption"));
    QFont bold = SymLbl->font();
    bold.setBold(true);
    SymLbl->setFont(bold);

    IDLbl = new QLabel(this);
    IDLbl->setObjectName(QStringLiteral("IDLbl"));
    IDLbl->setAlignment(Qt::AlignCenter);
    LtrBox = new TLetterBox(this);
    LtrBox->setObjectName(QStringLiteral("LtrBox"));
    CloseBtn = new QPushButton(QStringLiteral("&Close"), this);
    CloseBtn->setObjectName(QStringLiteral("CloseBtn"));
    connect(CloseBtn, &QPushButton::clicked, this, &QWidget::close);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(IDLbl);
    layout->addWidget(LtrBox, 0, Qt::AlignHCenter);
    layout->addWidget(CloseBtn, 0, Qt::AlignHCenter);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void TAnalysisForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    FormShow();
}

void TAnalysisForm::FormShow()
{
    analysis_ = AnalysePuzzle(Puzzle);
    const TAnalysis &a = analysis_;
    BkSqLbl->setNum(a.BlackSquares);
    AcrLbl->setNum(a.AcrossWords);
    DwnLbl->setNum(a.DownWords);
    WdsLbl->setNum(a.Words);
    Ltr3Lbl->setNum(a.ThreeLetterWords);
    Ltr2Lbl->setNum(a.TwoLetterWords);
    EndSLbl->setNum(a.WordsEndingInS);
    AvgLbl->setNum(a.AverageLength);
    UnkLbl->setNum(a.UnkeyedSquares);
    for (QLabel *label : {Ltr2Caption, Ltr2Lbl})
        setColour(label, a.TwoLetterWords > 0 ? QColor(Qt::black) : Grey);
    for (QLabel *label : {UnkCaption, UnkLbl})
        setColour(label, a.UnkeyedSquares > 0 ? QColor(Qt::black) : Grey);
    SymLbl->setText(a.Symmetric ? QStringLiteral("OK") : QStringLiteral("NO"));
    setColour(SymLbl, a.Symmetric ? Navy : QColor(Qt::red));
    IDLbl->setText(ShownText(a.Identifier));
    setWindowTitle(a.Caption);
    LtrBox->update();
}

void TAnalysisForm::LtrBoxPaint(QPainter &painter)
{
    const int rowHeight = LtrBox->height() / 7 + 1;
    const int columnWidth = LtrBox->width() / 4 + 6;
    painter.setFont(font());
    const QFontMetrics metrics(painter.font());
    const auto cell = [&](int k, int j, const QString &letter, int count) {
        painter.setPen(count == 0 ? QColor(Qt::white) : Maroon);
        const int x = k * columnWidth;
        const int y = j * rowHeight;
        painter.drawText(QRect(x, y, columnWidth, rowHeight), Qt::AlignLeft | Qt::AlignTop, letter);
        painter.drawText(QRect(x + 15, y, columnWidth, rowHeight), Qt::AlignLeft | Qt::AlignTop,
                         QStringLiteral("-"));
        const QString number = QString::number(count);
        painter.drawText(QRect(x + 40 - metrics.horizontalAdvance(number), y, columnWidth, rowHeight),
                         Qt::AlignLeft | Qt::AlignTop, number);
    };
    for (int i = 0; i < 26; ++i)
        cell(i % 4, i / 4, QString(QChar(u'A' + i)), analysis_.Letters[i]);
    cell(3, 6, QStringLiteral("?"), analysis_.OpenSquares);
    painter.setPen(Qt::black);
}
