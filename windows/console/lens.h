#pragma once

#include "engine/keyboard_state.h"

#include <QString>

namespace quellpad {

enum class LensButton { FocusNear, FocusFar, IrisOpen, IrisClose, ZoomIn, ZoomOut };

inline constexpr LensButton kLensButtons[] = {LensButton::FocusNear, LensButton::FocusFar,
                                              LensButton::IrisOpen,  LensButton::IrisClose,
                                              LensButton::ZoomIn,    LensButton::ZoomOut};

// The button's name, also its objectName ("FocusNear").
const char* LensButtonName(LensButton button);
// "Focus Near"; with Control Lock the captions add " On" or " Off".
QString LensPlainCaption(LensButton button);
// "Focus Near On" and "Focus Near Off", as Control Lock shows the button.
QString LensOnCaption(LensButton button);
QString LensOffCaption(LensButton button);
// "Focus Near" in every language, as files keep it.
QString LensEnglishCaption(LensButton button);
// The opposing action: near and far, open and close, in and out.
LensButton LensPartner(LensButton button);

// Starts the button's action in the current mode: its bit (and the partner's cleared),
// and in "ASCII" its text. A one-shot command left in the registers is cleared first.
void SwitchLensOn(Quellpad_Support_Func& keyboard, LensButton button);
// Stops the button's action: its bit cleared, and in "ASCII" its stop text.
void SwitchLensOff(Quellpad_Support_Func& keyboard, LensButton button);

} // namespace quellpad
