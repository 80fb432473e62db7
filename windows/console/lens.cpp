#include "lens.h"

#include "engine/words.h"

#include <array>

#include <QCoreApplication>

namespace quellpad {

namespace {

namespace bit = protocol::bit;

enum class Register { Command1, Command2 };

struct Bits {
    Register setRegister;
    std::uint8_t setBit;
    Register clearRegister; // the partner's bit, cleared in the same step
    std::uint8_t clearBit;
};

struct LensAction {
    const char* name;
    const char* caption;
    LensButton partner;
    Bits d;
    Bits p; // also what "ASCII" sets, so that the dispatcher sees when all has stopped
    protocol::Direction direction; // its start and stop texts in "ASCII"
    bool zoom;                     // zoom bits change in every mode, even where no text is sent
};

using R = Register;
const std::array<LensAction, 6> kActions{{
    {"FocusNear",
     QT_TRANSLATE_NOOP("Lens", "Focus Near"),
     LensButton::FocusFar,
     {R::Command1, bit::kDFocusNear, R::Command2, bit::kDFocusFar},
     {R::Command1, bit::kPFocusNear, R::Command1, bit::kPFocusFar},
     protocol::Direction::FocusNear,
     false},
    {"FocusFar",
     QT_TRANSLATE_NOOP("Lens", "Focus Far"),
     LensButton::FocusNear,
     {R::Command2, bit::kDFocusFar, R::Command1, bit::kDFocusNear},
     {R::Command1, bit::kPFocusFar, R::Command1, bit::kPFocusNear},
     protocol::Direction::FocusFar,
     false},
    {"IrisOpen",
     QT_TRANSLATE_NOOP("Lens", "Iris Open"),
     LensButton::IrisClose,
     {R::Command1, bit::kDIrisOpen, R::Command1, bit::kDIrisClose},
     {R::Command1, bit::kPIrisOpen, R::Command1, bit::kPIrisClose},
     protocol::Direction::IrisOpen,
     false},
    {"IrisClose",
     QT_TRANSLATE_NOOP("Lens", "Iris Close"),
     LensButton::IrisOpen,
     {R::Command1, bit::kDIrisClose, R::Command1, bit::kDIrisOpen},
     {R::Command1, bit::kPIrisClose, R::Command1, bit::kPIrisOpen},
     protocol::Direction::IrisClose,
     false},
    {"ZoomIn",
     QT_TRANSLATE_NOOP("Lens", "Zoom In"),
     LensButton::ZoomOut,
     {R::Command2, bit::kZoomIn, R::Command2, bit::kZoomOut},
     {R::Command2, bit::kZoomIn, R::Command2, bit::kZoomOut},
     protocol::Direction::ZoomIn,
     true},
    {"ZoomOut",
     QT_TRANSLATE_NOOP("Lens", "Zoom Out"),
     LensButton::ZoomIn,
     {R::Command2, bit::kZoomOut, R::Command2, bit::kZoomIn},
     {R::Command2, bit::kZoomOut, R::Command2, bit::kZoomIn},
     protocol::Direction::ZoomOut,
     true},
}};

const LensAction& ActionOf(LensButton button) {
    return kActions[static_cast<std::size_t>(button)];
}

std::uint8_t& RegisterOf(Quellpad_Support_Func& k, Register r) {
    return r == Register::Command1 ? k.Command1 : k.Command2;
}

// The bits that apply in the current mode, or none where the button does nothing.
const Bits* BitsFor(const Quellpad_Support_Func& k, const LensAction& action) {
    if (k.CurrentMode == kModeD) {
        return &action.d;
    }
    if (k.CurrentMode == kModeP || k.CurrentMode == kModeAscii) {
        return &action.p;
    }
    return action.zoom ? &action.d : nullptr;
}

} // namespace

const char* LensButtonName(LensButton button) {
    return ActionOf(button).name;
}

QString LensPlainCaption(LensButton button) {
    return QCoreApplication::translate("Lens", ActionOf(button).caption);
}

QString LensOnCaption(LensButton button) {
    return QCoreApplication::translate("Lens", "%1 On").arg(LensPlainCaption(button));
}

QString LensOffCaption(LensButton button) {
    return QCoreApplication::translate("Lens", "%1 Off").arg(LensPlainCaption(button));
}

QString LensEnglishCaption(LensButton button) {
    return QString::fromLatin1(ActionOf(button).caption);
}

LensButton LensPartner(LensButton button) {
    return ActionOf(button).partner;
}

void SwitchLensOn(Quellpad_Support_Func& k, LensButton button) {
    if (k.Command2 & bit::kOneShot) {
        k.Command1 = k.Command2 = k.Data1 = k.Data2 = 0;
    }
    const LensAction& action = ActionOf(button);
    if (const Bits* bits = BitsFor(k, action)) {
        RegisterOf(k, bits->setRegister) |= bits->setBit;
        RegisterOf(k, bits->clearRegister) &= static_cast<std::uint8_t>(~bits->clearBit);
    }
    if (k.CurrentMode == kModeAscii) {
        k.AsciiCommand = DirectionWord(protocol::Language::Ascii, action.direction, true);
    }
}

void SwitchLensOff(Quellpad_Support_Func& k, LensButton button) {
    const LensAction& action = ActionOf(button);
    if (const Bits* bits = BitsFor(k, action)) {
        RegisterOf(k, bits->setRegister) &= static_cast<std::uint8_t>(~bits->setBit);
    }
    if (k.CurrentMode == kModeAscii) {
        k.AsciiCommand = DirectionWord(protocol::Language::Ascii, action.direction, false);
    }
}

} // namespace quellpad
