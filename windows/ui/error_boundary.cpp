#include "error_boundary.h"

#include "engine/errors.h"
#include "messages.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QScopeGuard>
#include <QWidget>

namespace quellpad::ui {

namespace {

// Most messages kept waiting for the box in front of them; a failure that repeats with
// new words every time must not queue without end either.
constexpr qsizetype kMostWaiting = 8;

struct Waiting {
    QPointer<QWidget> owner;
    bool hadOwner = false;
    Message message;
    std::function<void()> shown; // told when its box has closed
};

// Shared by every window's boundary: one box at a time for the whole program.
struct Boxes {
    bool showing = false;
    QList<Waiting> waiting;
};

Boxes& Shared() {
    static Boxes boxes;
    return boxes;
}

// Shows the message now, or after the box that is up; returns once it and everything
// that came meanwhile have been shown, or at once when it waits.
void Present(QWidget* owner, const Message& message, const std::function<void()>& shown = {}) {
    Boxes& boxes = Shared();
    if (boxes.showing) {
        for (Waiting& queued : boxes.waiting) {
            const bool sameTopic =
                !message.topic.isEmpty() && queued.message.topic == message.topic;
            if (sameTopic || queued.message.text == message.text) {
                queued.message = message; // the newest word on it
                return;
            }
        }
        if (boxes.waiting.size() < kMostWaiting) {
            boxes.waiting.append({owner, owner != nullptr, message, shown});
        }
        return;
    }
    boxes.showing = true;
    // Whatever a box throws, the next message must not wait for a box that is gone.
    const auto done = qScopeGuard([&boxes] { boxes.showing = false; });
    Waiting next{owner, owner != nullptr, message, shown};
    for (;;) {
        // A window closed while its message waited: the message is still worth telling.
        ShowMessage(next.hadOwner && next.owner ? next.owner.data() : nullptr, next.message);
        if (next.shown) {
            next.shown();
        }
        if (boxes.waiting.isEmpty()) {
            break;
        }
        next = boxes.waiting.takeFirst();
    }
}

} // namespace

QString ErrorBoundary::Describe(const std::exception& error) {
    if (const auto* own = dynamic_cast<const QuellpadError*>(&error)) {
        return own->Message();
    }
    return QCoreApplication::translate("ErrorBoundary",
                                       "An unexpected error ended the last action: %1")
        .arg(QString::fromLocal8Bit(error.what()));
}

void ErrorBoundary::Report(const char* entryPoint, const QString& message) noexcept {
    try {
        const QString key = QLatin1String(entryPoint);
        if (repeating_.contains(key)) {
            if (lastFailure_.value(key) == message) {
                return;
            }
            lastFailure_.insert(key, message);
        }
        Present(owner_, {message, QCoreApplication::translate("ErrorBoundary", "Error"),
                         MessageButtons::Ok});
    } catch (...) {
        // Nothing is left to tell the operator with; the program goes on.
    }
}

void ErrorBoundary::ReportAbout(const QString& subject, const QString& message) noexcept {
    Tell(subject, message, true);
}

void ErrorBoundary::ReportRecovery(const QString& subject, const QString& message) noexcept {
    Tell(subject, message, false);
}

void ErrorBoundary::Tell(const QString& subject, const QString& message, bool opensBox) noexcept {
    try {
        Episode& episode = episodes_[subject];
        const bool quiet =
            !episode.lastReport.isValid() || episode.lastReport.elapsed() >= kQuietMs;
        episode.lastReport.start();
        if (episode.showing) {
            episode.flapping = true;
            ++episode.changesWhileShown;
            const QString updated =
                message + QCoreApplication::translate(
                              "ErrorBoundary",
                              "\n\n(Changed %n times while this message was showing.)", nullptr,
                              episode.changesWhileShown);
            if (!UpdateShownMessage(subject, updated)) {
                // Still waiting behind another box: it will show the newest word.
                Present(owner_, {updated,
                                 QCoreApplication::translate("ErrorBoundary", "Error"),
                                 MessageButtons::Ok,
                                 {},
                                 subject});
            }
            return;
        }
        if (quiet) {
            if (episode.untold > 0 && statusSink_) {
                statusSink_(subject, 0, {}); // the count of the last episode is done with
            }
            episode.flapping = false;
            episode.untold = 0;
        }
        if (episode.flapping) {
            ++episode.untold;
            if (statusSink_) {
                statusSink_(subject, episode.untold, message);
            }
            return;
        }
        if (!opensBox) {
            return;
        }
        episode.showing = true;
        episode.changesWhileShown = 0;
        // A box waiting behind another may outlive this boundary's window.
        Present(owner_,
                {message,
                 QCoreApplication::translate("ErrorBoundary", "Error"),
                 MessageButtons::Ok,
                 {},
                 subject},
                [this, subject, alive = std::weak_ptr<int>(alive_)] {
                    if (!alive.expired()) {
                        episodes_[subject].showing = false;
                    }
                });
    } catch (...) {
        // Nothing is left to tell the operator with; the program goes on.
    }
}

void ErrorBoundary::SetRepeating(const char* entryPoint) {
    repeating_.insert(QLatin1String(entryPoint));
}

} // namespace quellpad::ui
