#pragma once
// The preferences' "Word Lists" page: the lists in their order of priority, each switched on
// or off (the default list of the grid language among them), the lowest score offered, and
// the personal list of added and excluded words.

#include <QWidget>

class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

class TWordListsPage : public QWidget {
    Q_OBJECT
public:
    explicit TWordListsPage(QWidget *parent = nullptr);

    // From the settings and the personal list's file.
    void Load();
    // Writes both; the program's lists are loaded afresh at their next use.
    void Save();
    // The default list alone, switched on, every score offered; the personal words stay.
    void Defaults();

    QListWidget *ListsList = nullptr;
    QPushButton *AddListBtn = nullptr;
    QPushButton *RemoveListBtn = nullptr;
    QPushButton *UpBtn = nullptr;
    QPushButton *DownBtn = nullptr;
    QSpinBox *MinScoreSpin = nullptr;
    QSpinBox *FillTimeSpin = nullptr;
    QPlainTextEdit *PersonalEdit = nullptr;

private:
    void addList();
    void moveCurrent(int by);
    void addItem(const QString &path, bool enabled);
};
