#pragma once

#include "dialogs/dialog_parts.h"
#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"
#include "ui/messages.h"

#include <QDialog>

#include <array>
#include <optional>

class QLineEdit;

namespace quellpad {

// A button of the advanced commands window that loads one fixed command.
struct AdvancedFixedButton {
    const char* frame; // objectName of its frame
    const char* label; // objectName of the label beside it
    const char* labelText;
    const char* name;
    const char* caption;
    CommandBytes bytes;
};
extern const std::array<AdvancedFixedButton, 11> kAdvancedFixedButtons;

// What a Set button does with the text of its boxes: the command to load, or the
// message that refuses it (and whether the box is emptied after the message).
struct SetRequest {
    std::optional<CommandBytes> bytes;
    std::optional<ui::Message> refusal;
    bool clearBox = false;
};

// The pan angle in hundredths of a degree (0 to 35999).
SetRequest SetPanRequest(const QString& text);
// A downward tilt goes out as the angle counted back from 360 (-10 as 350.00).
SetRequest SetTiltRequest(const QString& text);
// The magnification in hundredths (1 to 350 gives 100 to 35000).
SetRequest SetMagRequest(const QString& text);
// The wanted zoom as a fraction of full travel, 0 to 65535.
SetRequest SetZoomRequest(const QString& zoomLimit, const QString& setZoom);

// The checks made on every change of the pan, tilt and magnification boxes.
std::optional<ui::Message> PanBoxRefusal(const QString& text);
std::optional<ui::Message> TiltBoxRefusal(const QString& text);
std::optional<ui::Message> MagBoxRefusal(const QString& text);

// Absolute positions, queries and downloads of the binary protocols. Its buttons load the
// registers; the main window's dispatcher sends them. Closing clears every register.
class FrmAdvancedCommands : public QDialog {
    Q_OBJECT
public:
    explicit FrmAdvancedCommands(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

    void done(int result) override;

private:
    void SetButton_Click(const char* entry, const SetRequest& request, QLineEdit* box);
    void BoxChange(const char* entry, QLineEdit* box,
                   std::optional<ui::Message> (*check)(const QString&));

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    QLineEdit* SetPanTextBox = nullptr;
    QLineEdit* SetTiltTextBox = nullptr;
    QLineEdit* SetMagTextBox = nullptr;
    QLineEdit* ZoomLimitTextBox = nullptr;
    QLineEdit* SetZoomTextBox = nullptr;
    // The box is being emptied after a refusal; that change is not checked again.
    bool clearingBox_ = false;
};

} // namespace quellpad
