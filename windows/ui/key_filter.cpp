#include "key_filter.h"

#include <QAbstractSpinBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QValidator>

namespace quellpad::ui {

namespace {

bool InsertsText(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste) || key.matches(QKeySequence::Copy) ||
        key.matches(QKeySequence::Cut) || key.matches(QKeySequence::SelectAll) ||
        key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
        return false;
    }
    if (key.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) {
        return false; // other shortcuts belong to the window's menus
    }
    const QString text = key.text();
    // Backspace (8), Tab, Enter and Delete (127) carry a control character: editing keys.
    return !text.isEmpty() && text[0].isPrint();
}

// Checks whole texts that arrive other than key by key: pasted, dropped, or undone.
class RuleValidator final : public QValidator {
public:
    RuleValidator(CharacterRule rule, QObject* parent)
        : QValidator(parent), rule_(std::move(rule)) {}

    State validate(QString& input, int&) const override {
        for (qsizetype i = 0; i < input.size(); ++i) {
            if (!rule_(input[i], input.left(i))) {
                return Invalid;
            }
        }
        return Acceptable;
    }

private:
    CharacterRule rule_;
};

class KeyFilter final : public QObject {
public:
    KeyFilter(QLineEdit* box, CharacterRule rule, TypedKeyHook hook)
        : QObject(box), box_(box), rule_(std::move(rule)), hook_(std::move(hook)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != box_ || event->type() != QEvent::KeyPress) {
            return false;
        }
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!InsertsText(*key)) {
            return false;
        }
        for (const QChar character : key->text()) {
            if (hook_ && !hook_(character)) {
                return true;
            }
            // The character is weighed against the text before the cursor, as typed.
            if (!rule_(character, box_->text().left(box_->cursorPosition()))) {
                return true;
            }
        }
        return false;
    }

private:
    QLineEdit* box_;
    CharacterRule rule_;
    TypedKeyHook hook_;
};

} // namespace

void FilterCharacters(QLineEdit* box, CharacterRule rule, TypedKeyHook hook) {
    box->setValidator(new RuleValidator(rule, box));
    box->installEventFilter(new KeyFilter(box, std::move(rule), std::move(hook)));
}

bool AcceptsCharacter(const QWidget* control, QChar character) {
    if (const auto* box = qobject_cast<const QLineEdit*>(control)) {
        if (box->isReadOnly()) {
            return false;
        }
        const QValidator* validator = box->validator();
        if (validator == nullptr) {
            return true;
        }
        QString text = box->text();
        int at = box->cursorPosition();
        if (box->hasSelectedText()) {
            at = box->selectionStart();
            text.remove(at, box->selectedText().size());
        }
        text.insert(at, character);
        return validator->validate(text, at) != QValidator::Invalid;
    }
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(control)) {
        return !edit->isReadOnly();
    }
    if (const auto* edit = qobject_cast<const QTextEdit*>(control)) {
        return !edit->isReadOnly();
    }
    return qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
}

bool DigitsOnly(QChar character, const QString&) {
    return character >= u'0' && character <= u'9';
}

bool DecimalNumber(QChar character, const QString& before) {
    return DigitsOnly(character, before) || (character == u'.' && !before.contains(u'.'));
}

} // namespace quellpad::ui
