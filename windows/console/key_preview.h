#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace quellpad {

// Shows a window the characters typed on it before its controls see them, whichever
// control has the focus, except a text box that would take the character, where it is
// typed. `handler` returns true when it has taken the character.
class KeyPreview : public QObject {
public:
    KeyPreview(QWidget* window, std::function<bool(QChar)> handler);
    ~KeyPreview() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window_;
    std::function<bool(QChar)> handler_;
};

} // namespace quellpad
