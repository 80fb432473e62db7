// Settings.dat as any file may hold it: whatever is read is plain text of sensible
// length, and what is written reads back as the same six fields.
#include "fuzz_support.h"

#include "engine/settings_file.h"

#include <array>

using quellpad::fuzz::Require;

namespace {

std::array<const QString*, 6> Fields(const quellpad::SettingsFields& f) {
    return {&f.BaudRate, &f.Parity, &f.HoldRts, &f.AvailablePorts, &f.CurrentMode, &f.EnabledPorts};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray content = quellpad::fuzz::Bytes(data, size);
    const quellpad::SettingsRead read = quellpad::ParseSettingsContent(content);
    for (const QString* field : Fields(read.fields)) {
        Require(field->size() <= quellpad::kLongestSettingsLine, "a field fits one line");
        for (const QChar c : *field) {
            Require(c.unicode() >= 32 && c.unicode() != 127, "a field is plain text");
        }
    }
    const QByteArray written = quellpad::SettingsContent(read.fields);
    const quellpad::SettingsRead again = quellpad::ParseSettingsContent(written);
    Require(again.damage.isEmpty(), "a written file reads without damage");
    const auto before = Fields(read.fields);
    const auto after = Fields(again.fields);
    for (std::size_t i = 0; i < before.size(); ++i) {
        Require(*before[i] == *after[i], "a written file reads back to the same six fields");
    }
    Require(quellpad::SettingsContent(again.fields) == written, "writing is stable");
    return 0;
}
