#pragma once
// The Scan Grid tool window: lists the grid's words that hold a typed run of letters, or
// that look alike, and shows a clicked one in the grid window.

#include <QList>
#include <QPoint>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPainter;
class QPushButton;

class TScanGridForm : public QWidget {
    Q_OBJECT
public:
    explicit TScanGridForm(QWidget *parent = nullptr);

    void FormShow();
    void ScanEditChange();
    void ScanBtnClick();
    void AllBtnClick();
    void ScanListClick();
    void ScanListDrawItem(QPainter &painter, int index, const QRect &rect, bool selected);
    void FormResize();

    // Where each listed word starts, in the grid window's pixels at the time of the scan.
    struct TScanRecord {
        QPoint Pixel;
        int Direction = 1;
    };
    const QList<TScanRecord> &Records() const { return records_; }

    QLineEdit *ScanEdit = nullptr;
    QPushButton *ScanBtn = nullptr;
    QPushButton *AllBtn = nullptr;
    QPushButton *OkBtn = nullptr;
    QListWidget *ScanList = nullptr;
    QLabel *Errpanel = nullptr;
    QLabel *ExImg = nullptr;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addItem(const QByteArray &text, int c, int r, int direction);
    void clearList();
    // The note over the list for one second.
    void ShowNote(const QString &text);

    QList<TScanRecord> records_;
};
