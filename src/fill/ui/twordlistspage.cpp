#include "fill/ui/twordlistspage.h"

#include "clues/gridlanguage.h"
#include "fill/fillengine.h"
#include "fill/wordlistservice.h"
#include "mainwindow/ui/dialogs.h"
#include "settings/txwdprocs.h"

#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QSpinBox>
#include <QDir>

namespace {

// The list entry's path is kept in the item; empty for the default list.
constexpr int PathRole = Qt::UserRole;

}  // namespace

TWordListsPage::TWordListsPage(QWidget *parent) : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    auto *listsLabel = new QLabel(QStringLiteral("Word &lists, the first that has a word gives its score:"), this);
    ListsList = new QListWidget(this);
    ListsList->setObjectName(QStringLiteral("WordListsList"));
    listsLabel->setBuddy(ListsList);
    grid->addWidget(listsLabel, 0, 0, 1, 2);
    grid->addWidget(ListsList, 1, 0, 4, 1);
    auto button = [this, grid](const char *name, const QString &caption, int row) {
        auto *b = new QPushButton(caption, this);
        b->setObjectName(QString::fromLatin1(name));
        grid->addWidget(b, row, 1);
        return b;
    };
    AddListBtn = button("AddListBtn", QStringLiteral("&Add..."), 1);
    RemoveListBtn = button("RemoveListBtn", QStringLiteral("&Remove"), 2);
    UpBtn = button("UpBtn", QStringLiteral("Move &Up"), 3);
    DownBtn = button("DownBtn", QStringLiteral("Move Do&wn"), 4);

    auto *minLabel = new QLabel(QStringLiteral("Lowest &score offered:"), this);
    MinScoreSpin = new QSpinBox(this);
    MinScoreSpin->setObjectName(QStringLiteral("MinScoreSpin"));
    MinScoreSpin->setRange(0, MaxWordScore);
    minLabel->setBuddy(MinScoreSpin);
    auto *minRow = new QHBoxLayout;
    minRow->addWidget(minLabel);
    minRow->addWidget(MinScoreSpin);
    minRow->addStretch(1);
    auto *timeLabel = new QLabel(QStringLiteral("Autofill searches at most (&seconds):"), this);
    FillTimeSpin = new QSpinBox(this);
    FillTimeSpin->setObjectName(QStringLiteral("FillTimeSpin"));
    FillTimeSpin->setRange(1, 3600);
    timeLabel->setBuddy(FillTimeSpin);
    minRow->addSpacing(16);
    minRow->addWidget(timeLabel);
    minRow->addWidget(FillTimeSpin);
    grid->addLayout(minRow, 5, 0, 1, 2);

    auto *personalLabel = new QLabel(QStringLiteral("Your &own words: WORD;SCORE adds a word, -WORD excludes one"), this);
    PersonalEdit = new QPlainTextEdit(this);
    PersonalEdit->setObjectName(QStringLiteral("PersonalEdit"));
    personalLabel->setBuddy(PersonalEdit);
    grid->addWidget(personalLabel, 6, 0, 1, 2);
    grid->addWidget(PersonalEdit, 7, 0, 1, 2);
    grid->setRowStretch(4, 1);
    grid->setRowStretch(7, 1);

    connect(AddListBtn, &QPushButton::clicked, this, &TWordListsPage::addList);
    connect(RemoveListBtn, &QPushButton::clicked, this, [this] {
        // The default list can be switched off but not removed.
        QListWidgetItem *item = ListsList->currentItem();
        if (item && !item->data(PathRole).toString().isEmpty())
            delete item;
    });
    connect(UpBtn, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(DownBtn, &QPushButton::clicked, this, [this] { moveCurrent(1); });
}

void TWordListsPage::addItem(const QString &path, bool enabled)
{
    const int language = ConstructionLanguage();
    auto *item = new QListWidgetItem(
        path.isEmpty() ? QStringLiteral("Default list (%1)").arg(GridLanguageName(language)) : path, ListsList);
    item->setData(PathRole, path);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(enabled ? Qt::Checked : Qt::Unchecked);
}

void TWordListsPage::Load()
{
    ListsList->clear();
    const TWordListConfig config = WordListConfigFromSettings(0);
    for (const TWordListSource &s : config.Sources)
        addItem(s.Path, s.Enabled);
    MinScoreSpin->setValue(config.MinScore);
    FillTimeSpin->setValue(FillTimeLimitSetting());
    QFile file(PersonalListPath());
    PersonalEdit->setPlainText(file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString());
}

void TWordListsPage::Save()
{
    QList<TWordListSource> sources;
    for (int i = 0; i < ListsList->count(); ++i)
        sources.append({ListsList->item(i)->data(PathRole).toString(), ListsList->item(i)->checkState() == Qt::Checked});
    WriteWordListSettings(sources, MinScoreSpin->value());
    WriteFillTimeLimitSetting(FillTimeSpin->value());
    const QString path = PersonalListPath();
    QString text = PersonalEdit->toPlainText().trimmed();
    if (!text.isEmpty() || QFile::exists(path)) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QSaveFile file(path);
        if (!text.isEmpty())
            text += u'\n';
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
            Dialogs().Error(this, QStringLiteral("Your own words could not be saved in %1.").arg(path));
    }
    WordLists().Invalidate();
}

void TWordListsPage::Defaults()
{
    ListsList->clear();
    addItem(QString(), true);
    MinScoreSpin->setValue(0);
    FillTimeSpin->setValue(DefaultFillTimeLimit);
}

void TWordListsPage::addList()
{
    TFileRequest request;
    request.Title = QStringLiteral("Add Word List");
    request.Filter = QStringLiteral("Word lists (*.txt;*.dict)|*.txt;*.dict|All files (*)|*");
    const std::optional<TFileChoice> choice = Dialogs().ChooseFile(this, request);
    if (!choice || choice->Path.isEmpty())
        return;
    addItem(QFileInfo(choice->Path).absoluteFilePath(), true);
    ListsList->setCurrentRow(ListsList->count() - 1);
}

void TWordListsPage::moveCurrent(int by)
{
    const int row = ListsList->currentRow();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= ListsList->count())
        return;
    QListWidgetItem *item = ListsList->takeItem(row);
    ListsList->insertItem(to, item);
    ListsList->setCurrentRow(to);
}
