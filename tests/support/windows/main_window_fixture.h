#pragma once

#include "shown_messages.h"

#include "console/frm_main.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

#include <functional>

namespace quellpad::test {

// The main window on two pseudo-terminals, started from a Settings.dat of the test's.
class MainWindowFixture : public KeyboardFixture {
protected:
    void Start(const char* mode, const char* enabledPorts = "1") {
        WriteSettings(QByteArray("2400\r\nn\r\nFalse\r\n1 2\r\n") + mode + "\r\n" + enabledPorts +
                      "\r\n");
        Load();
    }
    void Load() {
        window_.reset();
        MakeKeyboard();
        window_ = std::make_unique<FrmMain>(*keyboard_);
        window_->Form_Load();
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get(), kExposeWait));
    }
    // The main window on a keyboard whose ports `makeLine` makes (a simulated site, a
    // device), shown; exposed when the test needs it so.
    void LoadOn(LineFactory makeLine) {
        window_.reset();
        keyboard_ = std::make_unique<Quellpad_Support_Func>(makeLine);
        window_ = std::make_unique<FrmMain>(*keyboard_);
        window_->Form_Load();
        window_->show();
    }
    // Offscreen a window is exposed at once; on a display a window manager maps it, which
    // takes its time when the whole suite shares the machine's two cores.
    static constexpr int kExposeWait = 30000;
    void TearDown() override {
        window_.reset();
        KeyboardFixture::TearDown();
    }
    template <class T = QWidget> T* Child(const char* name) const {
        T* child = window_->findChild<T*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
    void Choose(const char* item) { Child<QAction>(item)->trigger(); }
    // Runs `inside` on the modal window that `open` brings up, then closes the window;
    // false when none came up.
    static bool WhileOpen(const std::function<void()>& open,
                          const std::function<void(QDialog&)>& inside = {}) {
        bool opened = false;
        QTimer poll;
        poll.setInterval(10);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                poll.stop();
                opened = true;
                if (inside) {
                    inside(*dialog);
                }
                dialog->reject();
            }
        });
        poll.start();
        open();
        return opened;
    }
    bool Shown(const char* name) const { return Child(name)->isVisibleTo(window_.get()); }
    // A point of the joystick square, as fractions of its side from its centre.
    QPoint InSquare(double right, double down) const {
        QWidget* square = Child("Joystick_Square");
        return square->rect().center() + QPoint(static_cast<int>(right * square->width()),
                                                static_cast<int>(down * square->height()));
    }
    void MoveInSquare(QPoint at, Qt::MouseButtons held) {
        QWidget* square = Child("Joystick_Square");
        QMouseEvent move(QEvent::MouseMove, at, square->mapToGlobal(at), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(square, &move);
    }

    std::unique_ptr<FrmMain> window_;
};

} // namespace quellpad::test
