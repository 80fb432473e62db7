#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QSet>
#include <QString>

#include <exception>
#include <functional>
#include <memory>
#include <utility>

class QWidget;

namespace quellpad::ui {

// The one guard between the event loop and the program's handlers. A handler that
// fails ends there; the operator is told in a message and the program keeps running.
// An entry point that runs by itself again and again (a timer tick, a receive event) and
// keeps failing the same way tells it once, until it next succeeds; every other failure
// is told each time, as the operator asked for that action.
//
// A message box waits in an event loop of its own, in which more failures can arrive.
// They never open a box on top of it: what comes meanwhile waits and is shown when the
// box is closed, one box at a time, whichever window's boundary it comes from.
class ErrorBoundary {
public:
    // Where a subject that keeps changing is told once its box has closed: the subject,
    // how many reports were not shown in a box since then, and the latest of them; a count
    // of 0 when a new episode begins and the old count is to go.
    using StatusSink =
        std::function<void(const QString& subject, int untold, const QString& latest)>;

    // A subject that changed while its box was up is flapping: it is told in the status
    // until it has been quiet this long, and then gets a box again.
    static constexpr int kQuietMs = 60000;

    explicit ErrorBoundary(QWidget* owner) : owner_(owner) {}

    template <class Handler> void Run(const char* entryPoint, Handler&& handler) noexcept {
        try {
            std::forward<Handler>(handler)();
            lastFailure_.remove(QLatin1String(entryPoint));
        } catch (const std::exception& error) {
            Report(entryPoint, Describe(error));
        } catch (...) {
            Report(entryPoint, QCoreApplication::translate(
                                   "ErrorBoundary", "An unexpected error ended the last action."));
        }
    }

    // Tells the operator of a failure that did not come from a handler of this window
    // (a start-up problem); for a repeating entry point only once for each distinct text
    // in a row.
    void Report(const char* entryPoint, const QString& message) noexcept;

    // Tells the operator what happened by itself to one subject (a COM port that failed,
    // came back, stopped being read). While a box about the subject is showing, its text
    // is brought up to date rather than another box stacked on it; after that box, the
    // subject goes to the status sink with a count until it has been quiet for kQuietMs.
    // A subject that changes only after the operator has closed its box is told each time.
    void ReportAbout(const QString& subject, const QString& message) noexcept;
    // The same for good news (a port back again), which never opens a box of its own: it
    // updates the subject's box while one shows, and counts as a change of the subject.
    void ReportRecovery(const QString& subject, const QString& message) noexcept;
    void SetStatusSink(StatusSink sink) { statusSink_ = std::move(sink); }
    // Marks an entry point that runs by itself again and again.
    void SetRepeating(const char* entryPoint);

private:
    void Tell(const QString& subject, const QString& message, bool opensBox) noexcept;
    struct Episode {
        QElapsedTimer lastReport;
        bool flapping = false;
        int untold = 0;
        int changesWhileShown = 0;
        bool showing = false;
    };

    static QString Describe(const std::exception& error);

    QWidget* owner_;
    QHash<QString, QString> lastFailure_;
    QSet<QString> repeating_;
    QHash<QString, Episode> episodes_;
    StatusSink statusSink_;
    // Lets a box that outlives this boundary's window find that it is gone.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace quellpad::ui
