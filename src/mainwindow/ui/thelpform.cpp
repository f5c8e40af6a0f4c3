#include "mainwindow/ui/thelpform.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QLineEdit>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QStyle>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// Pages, pictures and style sheets come out of the help collection.
class THelpBrowser : public QTextBrowser {
public:
    THelpBrowser(QHelpEngine *engine, QWidget *parent) : QTextBrowser(parent), engine_(engine) {}
    QVariant loadResource(int type, const QUrl &name) override
    {
        // Style sheets and pictures come with names relative to the page.
        const QUrl url = name.isRelative() ? source().resolved(name) : name;
        if (url.scheme() == u"qthelp")
            return engine_->fileData(url);
        return QTextBrowser::loadResource(type, name);
    }

private:
    QHelpEngine *engine_;
};

}  // namespace

QString THelpForm::CollectionFile()
{
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/help/quillmark.qhc");
    if (QFileInfo::exists(beside))
        return beside;
    return QStringLiteral(QUILLMARK_HELP_COLLECTION);
}

THelpForm::THelpForm(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("HelpForm"));
    setWindowTitle(QStringLiteral("Quillmark Help"));
    Engine = new QHelpEngine(CollectionFile(), this);
    Engine->setReadOnly(true);
    Engine->setupData();

    auto *splitter = new QSplitter(this);
    Tabs = new QTabWidget(splitter);
    Tabs->setObjectName(QStringLiteral("HelpTabs"));
    QHelpContentWidget *contents = Engine->contentWidget();
    contents->setObjectName(QStringLiteral("HelpContents"));
    Tabs->addTab(contents, QStringLiteral("Contents"));

    auto *indexPage = new QWidget(Tabs);
    auto *indexColumn = new QVBoxLayout(indexPage);
    indexColumn->setContentsMargins(2, 2, 2, 2);
    IndexEdit = new QLineEdit(indexPage);
    IndexEdit->setObjectName(QStringLiteral("HelpKeyword"));
    IndexEdit->setPlaceholderText(QStringLiteral("Type a keyword"));
    QHelpIndexWidget *index = Engine->indexWidget();
    index->setObjectName(QStringLiteral("HelpIndex"));
    indexColumn->addWidget(IndexEdit);
    indexColumn->addWidget(index, 1);
    Tabs->addTab(indexPage, QStringLiteral("Index"));

    Browser = new THelpBrowser(Engine, splitter);
    Browser->setObjectName(QStringLiteral("HelpBrowser"));
    splitter->addWidget(Tabs);
    splitter->addWidget(Browser);
    splitter->setStretchFactor(1, 1);
    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(4, 2, 4, 2);
    const auto button = [this, bar](const char *name, const QString &text, QStyle::StandardPixmap icon) {
        auto *b = new QToolButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setText(text);
        b->setIcon(style()->standardIcon(icon));
        b->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        b->setAutoRaise(true);
        bar->addWidget(b);
        return b;
    };
    BackBtn = button("HelpBackBtn", QStringLiteral("&Back"), QStyle::SP_ArrowBack);
    ForwardBtn = button("HelpForwardBtn", QStringLiteral("&Forward"), QStyle::SP_ArrowForward);
    HomeBtn = button("HelpHomeBtn", QStringLiteral("&Home"), QStyle::SP_DirHomeIcon);
    bar->addStretch(1);
    BackBtn->setEnabled(false);
    ForwardBtn->setEnabled(false);
    connect(BackBtn, &QToolButton::clicked, Browser, &QTextBrowser::backward);
    connect(ForwardBtn, &QToolButton::clicked, Browser, &QTextBrowser::forward);
    connect(HomeBtn, &QToolButton::clicked, this, [this] { ShowPage(HomePage()); });
    connect(Browser, &QTextBrowser::backwardAvailable, BackBtn, &QToolButton::setEnabled);
    connect(Browser, &QTextBrowser::forwardAvailable, ForwardBtn, &QToolButton::setEnabled);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(splitter);
    resize(820, 560);

    connect(contents, &QHelpContentWidget::linkActivated, this, &THelpForm::ShowPage);
    // One click on a chapter shows it, as in any contents tree.
    connect(contents, &QHelpContentWidget::clicked, this, [this](const QModelIndex &at) {
        if (QHelpContentItem *item = Engine->contentModel()->contentItemAt(at))
            ShowPage(item->url());
    });
    connect(index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink &link, const QString &) { ShowPage(link.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this, [this](const QList<QHelpLink> &links, const QString &) {
        if (!links.isEmpty())
            ShowPage(links.first().url);
    });
    connect(IndexEdit, &QLineEdit::textChanged, index, [index](const QString &text) { index->filterIndices(text); });
    connect(IndexEdit, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(Engine->contentModel(), &QHelpContentModel::contentsCreated, this, [contents] { contents->expandToDepth(0); });
}

QUrl THelpForm::HomePage()
{
    return QUrl(QStringLiteral("qthelp://org.quillmark.help/doc/index.html"));
}

void THelpForm::ShowPage(const QUrl &url)
{
    Browser->setSource(url);
}

void THelpForm::ShowContents()
{
    Tabs->setCurrentIndex(0);
    if (Browser->source().isEmpty())
        ShowPage(HomePage());
    show();
    raise();
    activateWindow();
}

void THelpForm::ShowIndex(const QString &keyword)
{
    Tabs->setCurrentIndex(1);
    IndexEdit->setText(keyword);
    Engine->indexWidget()->filterIndices(keyword);
    if (Browser->source().isEmpty())
        ShowPage(HomePage());
    show();
    raise();
    activateWindow();
    IndexEdit->setFocus();
}
