#include "console/frm_main_parts.h"

#include "ui/error_boundary.h"
#include "ui/messages.h"

#include <QAbstractButton>
#include <QAction>
#include <QByteArray>
#include <QLineEdit>

namespace quellpad::frm_main_parts {

void OnControl(const PartContext& context, const char* name, std::function<void()> handler) {
    const QByteArray entry = QByteArray(name) + "_Click";
    auto run = [&boundary = context.boundary, entry, handler = std::move(handler)] {
        boundary.Run(entry.constData(), handler);
    };
    QWidget* window = context.window;
    if (auto* item = window->findChild<QAction*>(QLatin1String(name))) {
        QObject::connect(item, &QAction::triggered, window, run);
    } else if (auto* button = window->findChild<QAbstractButton*>(QLatin1String(name))) {
        QObject::connect(button, &QAbstractButton::clicked, window, run);
    } else {
        // A name that matches no control would leave its command silently unconnected.
        qFatal("No control is named %s", name);
    }
}

void OnChange(const PartContext& context, QLineEdit* box,
              std::function<std::optional<Refusal>()> check, std::function<void()> then) {
    const QByteArray entry = box->objectName().toLatin1() + "_Change";
    QWidget* window = context.window;
    QObject::connect(box, &QLineEdit::textChanged, window,
                     [&boundary = context.boundary, window, box, entry, check = std::move(check),
                      then = std::move(then)] {
                         boundary.Run(entry.constData(), [&] {
                             if (const std::optional<Refusal> refusal = check()) {
                                 ui::ShowMessage(window, refusal->message);
                                 // Emptying the box runs its check once more, on the empty text.
                                 box->clear();
                                 if (refusal->afterEmptying) {
                                     refusal->afterEmptying();
                                 }
                             }
                             if (then) {
                                 then();
                             }
                         });
                     });
}

} // namespace quellpad::frm_main_parts
