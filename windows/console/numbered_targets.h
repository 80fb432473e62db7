#pragma once

#include "console/frm_main_parts.h"

#include <QCoreApplication>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTimer;

namespace quellpad {

class MainMenus;

// The numbered targets on either side of the joystick: presets, patterns, aux, macros and
// zones on the left; the switcher's camera, monitor and alarm, or the receiver's
// miscellaneous commands, on the right. Their buttons and the menu items that name a
// target only load the command; the dispatcher sends it.
class NumberedTargets {
    Q_DECLARE_TR_FUNCTIONS(quellpad::FrmMain)
public:
    explicit NumberedTargets(const frm_main_parts::PartContext& context);

    // The boxes' filters and checks, and the buttons and items that load the commands:
    // the item captions that follow a box, the dispatcher's pace for a range of alarms,
    // and the lens speed the miscellaneous commands carry.
    void Connect(const MainMenus& menus, QTimer* commandChangeTimer, QListWidget* lensSpeedList);

    QLabel* PresetNumberLabel = nullptr;
    QLineEdit* PresetNumberTextBox = nullptr;
    QPushButton* PresetGoButton = nullptr;
    QPushButton* PresetSetButton = nullptr;
    QPushButton* PresetClearButton = nullptr;
    QLabel* PatternNumberLabel = nullptr;
    QListWidget* PatternNumberListBox = nullptr;
    QPushButton* StartPatternButton = nullptr;
    QPushButton* EndPatternButton = nullptr;
    QPushButton* RunPatternButton = nullptr;
    QLabel* AuxNumberLabel = nullptr;
    QLineEdit* AuxNumberTextBox = nullptr;
    QLabel* MacroNumberLabel = nullptr;
    QLineEdit* MacroNumberTextBox = nullptr;
    QLabel* CameraNumberLabel = nullptr;
    QLineEdit* CameraNumberTextBox = nullptr;
    QPushButton* CameraButton = nullptr;
    QPushButton* CamBackwardStepButton = nullptr;
    QPushButton* CamForwardStepButton = nullptr;
    QLabel* MonitorNumberLabel = nullptr;
    QLineEdit* MonitorNumberTextBox = nullptr;
    QPushButton* MonitorButton = nullptr;
    QLabel* AlarmNumberLabel = nullptr;
    QLineEdit* AlarmNumberTextBox = nullptr;
    QPushButton* TriggerAlarmButton = nullptr;
    QPushButton* ResetAlarmButton = nullptr;
    QPushButton* Alarm_Backward_Step_Button = nullptr;
    QPushButton* Alarm_Forward_Step_Button = nullptr;
    QGroupBox* ZoneFrame = nullptr;
    QRadioButton* ZoneStartOption = nullptr;
    QRadioButton* ZoneEndOption = nullptr;
    QRadioButton* ZoneScanOnOption = nullptr;
    QRadioButton* ZoneScanOffOption = nullptr;
    QLabel* ZoneNumberLabel = nullptr;
    QListWidget* ZoneNumberList = nullptr;
    QPushButton* ZoneButton = nullptr;
    QGroupBox* MiscFrame = nullptr;
    QRadioButton* FlipOption = nullptr;
    QRadioButton* RemoteResetOption = nullptr;
    QRadioButton* ClearScreenOption = nullptr;
    QRadioButton* ZoomSpeedOption = nullptr;
    QRadioButton* FocusSpeedOption = nullptr;
    QPushButton* MiscSendButton = nullptr;

private:
    frm_main_parts::PartContext context_;
};

} // namespace quellpad
