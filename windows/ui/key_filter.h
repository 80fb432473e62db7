#pragma once

#include <QString>

#include <functional>

class QLineEdit;
class QWidget;

namespace quellpad::ui {

// Whether `character` may enter a box whose text before it is `before`.
using CharacterRule = std::function<bool(QChar character, const QString& before)>;

// Runs for a typed character before the rule; returns false to drop the key. This is
// where a box acts on a key of its own (a message, emptying the box, closing a window).
using TypedKeyHook = std::function<bool(QChar character)>;

// Filters the characters that enter the box, not the keys that edit it: Tab, arrows,
// Home/End, Backspace, Delete, Enter and the standard shortcuts (select all, copy, cut,
// paste, undo) always pass. Typed characters go through `hook` and then `rule`; pasted or
// dropped text is accepted only when each of its characters passes `rule` in turn, so no
// text reaches the box that the keys could not have typed.
void FilterCharacters(QLineEdit* box, CharacterRule rule, TypedKeyHook hook = {});

// Whether typing `character` into `control`, as it stands, would enter it: false for
// anything that is not a text box, a read-only box, or a box whose filter refuses it.
bool AcceptsCharacter(const QWidget* control, QChar character);

// Rules shared by the number boxes.
bool DigitsOnly(QChar character, const QString& before);
// Digits and at most one ".".
bool DecimalNumber(QChar character, const QString& before);

} // namespace quellpad::ui
