#pragma once

#include "shown_messages.h"

#include <QPushButton>

#include <cstdint>
#include <memory>

namespace quellpad::test {

// Four command bytes as one array, to compare with what a window loaded.
inline QByteArray Bytes(std::uint8_t c1, std::uint8_t c2, std::uint8_t d1, std::uint8_t d2) {
    const char bytes[] = {char(c1), char(c2), char(d1), char(d2)};
    return QByteArray(bytes, 4);
}
inline QByteArray Registers(const Quellpad_Support_Func& k) {
    return Bytes(k.Command1, k.Command2, k.Data1, k.Data2);
}

// One of the keyboard's windows on the fixture's keyboard; the test makes it, TearDown ends it
// before the keyboard.
template <class Window> class WindowFixture : public KeyboardFixture {
protected:
    void TearDown() override {
        window_.reset();
        KeyboardFixture::TearDown();
    }
    template <class T = QPushButton> T* Child(const char* name) const {
        T* child = window_->template findChild<T*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }

    std::unique_ptr<Window> window_;
};

} // namespace quellpad::test
