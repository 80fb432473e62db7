#pragma once

#include "console/frm_main_parts.h"
#include "console/lens.h"

#include <QCoreApplication>
#include <QObject>

#include <array>

class QEvent;
class QLabel;
class QListWidget;
class QPushButton;

namespace quellpad {

// The six lens buttons under the joystick and the lens speed list above it. Held down,
// a button drives its lens until it comes up; under Control Lock each click latches it
// on or off.
class LensButtons : public QObject {
    Q_DECLARE_TR_FUNCTIONS(quellpad::FrmMain)
public:
    explicit LensButtons(const frm_main_parts::PartContext& context);

    // The buttons' mouse downs and ups, and their clicks, reach the keyboard.
    void Connect();

    QPushButton* LensControl(LensButton button) const;
    // Lets go of every button whose left button is down, as if it had come up. Whether any
    // was held.
    bool ReleaseHeld();
    // The captions without On or Off, as when Control Lock ends.
    void ShowPlainCaptions();

    void Lens_MouseDown(LensButton button);
    void Lens_MouseUp(LensButton button);
    void Lens_Click(LensButton button);

    QLabel* LensSpeedLabel = nullptr;
    QListWidget* LensSpeedList = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Mouse down and up of the left button on a lens button, wherever the release lands.
    void LensButton_MouseEvent(LensButton button, const QEvent& event);

    frm_main_parts::PartContext context_;
    std::array<QPushButton*, 6> lensButtons_{};
    // The buttons whose left button is down now (press and hold only).
    std::array<bool, 6> lensHeld_{};
};

} // namespace quellpad
