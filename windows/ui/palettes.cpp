#include "palettes.h"

#include <utility>

namespace quellpad::ui {

QPalette DarkPalette() {
    QPalette dark;
    const QColor window(0x2d, 0x2f, 0x33);
    const QColor base(0x1e, 0x20, 0x23);
    const QColor text(0xe8, 0xe8, 0xe8);
    for (const auto& [role, colour] : {std::pair{QPalette::Window, window},
                                       {QPalette::WindowText, text},
                                       {QPalette::Base, base},
                                       {QPalette::AlternateBase, window},
                                       {QPalette::Text, text},
                                       {QPalette::Button, QColor(0x3a, 0x3d, 0x42)},
                                       {QPalette::ButtonText, text},
                                       {QPalette::Highlight, QColor(0x3d, 0x7a, 0xd6)},
                                       {QPalette::HighlightedText, text},
                                       {QPalette::ToolTipBase, base},
                                       {QPalette::ToolTipText, text}}) {
        dark.setColor(role, colour);
    }
    // Greyed out, as a dark desktop greys what cannot be used now.
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x83, 0x88));
    }
    return dark;
}

QPalette HighContrastPalette() {
    QPalette contrast;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                            QPalette::Button, QPalette::ToolTipBase}) {
        contrast.setColor(role, Qt::black);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        contrast.setColor(role, Qt::white);
    }
    contrast.setColor(QPalette::Highlight, QColor(0x00, 0x00, 0xc0));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        contrast.setColor(QPalette::Disabled, role, QColor(0x9a, 0x9a, 0x9a));
    }
    return contrast;
}

} // namespace quellpad::ui
