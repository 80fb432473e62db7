#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <exception>
#include <utility>

class QWidget;

namespace quellpad::ui {

// The one guard between the event loop and the program's handlers. A handler that
// fails ends there; the operator is told in a message and the program keeps running.
// An entry point that runs by itself again and again (a timer tick, a receive event) and
// keeps failing the same way tells it once, until it next succeeds; every other failure
// is told each time, as the operator asked for that action.
class ErrorBoundary {
public:
    explicit ErrorBoundary(QWidget* owner) : owner_(owner) {}

    template <class Handler> void Run(const char* entryPoint, Handler&& handler) noexcept {
        try {
            std::forward<Handler>(handler)();
            lastFailure_.remove(QLatin1String(entryPoint));
        } catch (const std::exception& error) {
            Report(entryPoint, Describe(error));
        } catch (...) {
            Report(entryPoint, QStringLiteral("An unexpected error ended the last action."));
        }
    }

    // Tells the operator of a failure that did not come from a handler of this window
    // (a port that vanished, a start-up problem); for a repeating entry point only once
    // for each distinct text in a row.
    void Report(const char* entryPoint, const QString& message) noexcept;

    // Marks an entry point that runs by itself again and again.
    void SetRepeating(const char* entryPoint);

private:
    static QString Describe(const std::exception& error);

    QWidget* owner_;
    QHash<QString, QString> lastFailure_;
    QSet<QString> repeating_;
};

} // namespace quellpad::ui
