#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace quellpad {

// The session's requests to end the program (SIGTERM at logout or shutdown, SIGHUP when
// its terminal goes, SIGINT for Ctrl+C), handed to the event loop: the handler itself only
// writes the signal's number to a pipe, and `arrived` runs from the event loop, where the
// keyboard can stop its cameras and close its ports as when its window is closed. One at
// a time; the previous handlers come back when it goes.
class EndSignals : public QObject {
public:
    explicit EndSignals(std::function<void(int signal)> arrived, QObject* parent = nullptr);
    ~EndSignals() override;
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    void Read();

    std::function<void(int)> arrived_;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace quellpad
