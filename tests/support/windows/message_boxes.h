#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QMessageBox;

namespace quellpad::test {

// Watches the real message boxes the program shows, as an operator sees them: how many
// were shown, how many were up at once, and, when asked, closes each after a moment as an
// operator would read and dismiss it.
class MessageBoxWatch : public QObject {
public:
    // closeAfterMs < 0: the operator never closes them.
    explicit MessageBoxWatch(int closeAfterMs = -1);
    ~MessageBoxWatch() override;

    int Shown() const { return shown_; }
    int MostAtOnce() const { return mostAtOnce_; }
    // The text of the box shown last, as it was when it closed or as it is now.
    QString LastText() const;
    // Closes every box that is up, now and as more come, until the watch ends.
    void CloseAll();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int closeAfterMs_;
    bool closingAll_ = false;
    int shown_ = 0;
    int mostAtOnce_ = 0;
    QList<QPointer<QMessageBox>> seen_;
    QString lastText_;
};

} // namespace quellpad::test
