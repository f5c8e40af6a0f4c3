#pragma once
// The help window: our own help pages from the Qt help collection built with the program,
// with a contents tree and a keyword index beside the page.

#include <QWidget>

class QHelpEngine;
class QLineEdit;
class QToolButton;
class QTabWidget;
class QTextBrowser;
class QUrl;

class THelpForm : public QWidget {
    Q_OBJECT
public:
    explicit THelpForm(QWidget *parent = nullptr);

    // The collection file: beside the program, else where the build put it.
    static QString CollectionFile();

    // Shows the contents; and the keyword index, filtered by `keyword`.
    void ShowContents();
    void ShowIndex(const QString &keyword);
    void ShowPage(const QUrl &url);
    static QUrl HomePage();

    QHelpEngine *Engine = nullptr;
    QTabWidget *Tabs = nullptr;
    QLineEdit *IndexEdit = nullptr;
    QTextBrowser *Browser = nullptr;
    // Back and Forward through the pages seen; Home to the first page.
    QToolButton *BackBtn = nullptr;
    QToolButton *ForwardBtn = nullptr;
    QToolButton *HomeBtn = nullptr;
};
