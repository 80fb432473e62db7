#include "error_boundary.h"

#include "engine/errors.h"
#include "messages.h"

namespace quellpad::ui {

QString ErrorBoundary::Describe(const std::exception& error) {
    if (const auto* own = dynamic_cast<const QuellpadError*>(&error)) {
        return own->Message();
    }
    return QStringLiteral("An unexpected error ended the last action: %1")
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
        ShowMessage(owner_, {message, QStringLiteral("Error"), MessageButtons::Ok});
    } catch (...) {
        // Nothing is left to tell the operator with; the program goes on.
    }
}

void ErrorBoundary::SetRepeating(const char* entryPoint) {
    repeating_.insert(QLatin1String(entryPoint));
}

} // namespace quellpad::ui
