#pragma once

#include "engine/keyboard_state.h"

#include <QDialog>

class QLineEdit;

namespace quellpad {

// The one-line editor of the label that the preset, zone and camera title commands send.
// What is in the box is the label: every change is copied into LabelText at once.
class FrmLabel : public QDialog {
    Q_OBJECT
public:
    explicit FrmLabel(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

    // Capital letters, digits and blanks: what a receiver's character generator shows.
    static bool LabelCharacter(QChar character, const QString& before);
    static constexpr int kMaximumLength = 20;

    // The window's size for a screen of the given height, both in twips: 0.8 and 0.3 of
    // a small screen's height, a fixed 9600 by 3600 on a taller one.
    static QSizeF SizeForScreen(double screenHeightTwips);

private:
    Quellpad_Support_Func& keyboard_;
    QLineEdit* LabelTextBox;
};

} // namespace quellpad
