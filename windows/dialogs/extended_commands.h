#pragma once

#include "dialogs/dialog_parts.h"
#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"

#include <QDialog>
#include <QStringList>

#include <array>
#include <optional>

class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTimer;

namespace quellpad {

// A fixed button of the extended commands window and the command it loads.
struct ExtendedFixedButton {
    const char* name;
    CommandBytes bytes;
};
extern const std::array<ExtendedFixedButton, 12> kExtendedFixedButtons;

// The shutter speeds in the order of their lists.
extern const QStringList kNtscShutterSpeeds;
extern const QStringList kPalShutterSpeeds;
// The Data2 code of a shutter speed; nothing for text that is no entry of the list.
// NTSC "100" is code 10, after all the others, although the list shows it after "60".
std::optional<std::uint8_t> ShutterSpeedCode(bool ntsc, const QString& text);

enum class AdjustTarget { IrisLevel, IrisPeak, RedGain, BlueGain };
enum class AdjustSign { Up, Down };

// The four press-and-hold level adjusters. Each tick of the held button steps the level
// and hands back the command to load; the gains step by 10 once the button has been held
// for 50 ticks, and the iris adjusters stop their timer at a bound.
class LevelAdjusters {
public:
    struct Step {
        CommandBytes bytes;
        int level = 0;
        bool stopTimer = false;
    };

    void Press(AdjustTarget target, AdjustSign sign);
    void Release() { HoldTicks = 0; }
    // One tick of AdjustTimer.
    Step Tick();

    Step AdjustIrisLevel(AdjustSign sign);
    Step AdjustIrisPeak(AdjustSign sign);
    Step AdjustRedGain(AdjustSign sign);
    Step AdjustBlueGain(AdjustSign sign);

    AdjustTarget Target = AdjustTarget::IrisLevel;
    AdjustSign Sign = AdjustSign::Up;
    int HoldTicks = 0;
    int IrisLevel = 0;
    int IrisPeak = 0;
    int RedGain = 0;
    int BlueGain = 0;
    CommandBytes AdjustBytes;

private:
    Step AdjustIris(int& level, int top, std::uint8_t command2, AdjustSign sign);
    Step AdjustGain(int& gain, std::uint8_t command2, AdjustSign sign);
};

// Camera set-up commands of the binary protocols. Its controls load the registers; the
// main window's dispatcher sends them. Closing clears every register.
class FrmExtendedCommands : public QDialog {
    Q_OBJECT
public:
    // The levels live as long as the keyboard runs, so that each opening goes on from the
    // levels last sent.
    FrmExtendedCommands(Quellpad_Support_Func& keyboard, LevelAdjusters& levels,
                        QWidget* parent = nullptr);

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Adjuster_MouseDown(AdjustTarget target, AdjustSign sign);
    void Adjuster_MouseUp();
    void AdjustTimer_Timer();
    void OptionNTSC_Click();
    void OptionPAL_Click();
    void SetShutterSpeedButton_Click();
    QLabel* Display(AdjustTarget target) const;

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    LevelAdjusters& adjusters_;
    QTimer* AdjustTimer = nullptr;
    std::array<QLabel*, 4> displays_{};
    struct Adjuster {
        QPushButton* button;
        AdjustTarget target;
        AdjustSign sign;
    };
    std::array<Adjuster, 8> adjusterButtons_{};
    // The adjuster button that is down, by mouse or Space.
    QPushButton* held_ = nullptr;
    QRadioButton* OptionNTSC = nullptr;
    QRadioButton* OptionPAL = nullptr;
    QComboBox* ComboNTSC = nullptr;
    QComboBox* ComboPAL = nullptr;
    QPushButton* SetShutterSpeedButton = nullptr;
};

} // namespace quellpad
