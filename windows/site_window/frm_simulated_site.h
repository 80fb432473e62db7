#pragma once

#include "camera_view.h"

#include "engine/keyboard_state.h"
#include "site/simulated_line.h"
#include "site/site_setup.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <QWidget>

#include <vector>

namespace quellpad::site_window {

// The equipment on one simulated line: how it is wired (camera addresses, line settings),
// the cameras' pictures, the switcher's routes and alarms, the multiplexer's display, and
// the last commands each of them decoded.
class SitePanel : public QWidget {
    Q_OBJECT
public:
    SitePanel(site::SimulatedLine& line, QWidget* parent = nullptr);
    // Brings the panel up to the site's present state; cheap when nothing changed.
    void Refresh();

signals:
    // The operator rewired the equipment from the panel.
    void Rewired(const site::SiteSetup& setup);

private:
    void Choose(int address);
    void ShowWiring();
    void ApplyWiring();

    site::SimulatedLine& line_;
    QLineEdit* camerasBox_ = nullptr;
    QLineEdit* formatBox_ = nullptr;
    QLabel* wiringNote_ = nullptr;
    QGridLayout* grid_ = nullptr;
    // One picture per wired camera, in the order of their addresses.
    std::vector<CameraView*> cameras_;
    std::vector<int> shownCameras_;
    QLabel* switcher_ = nullptr;
    QLabel* multiplexer_ = nullptr;
    QLabel* cameraLogLabel_ = nullptr;
    QPlainTextEdit* cameraLog_ = nullptr;
    QPlainTextEdit* switcherLog_ = nullptr;
    QPlainTextEdit* multiplexerLog_ = nullptr;
    int chosen_ = 1;
    std::uint64_t shownVersion_ = ~std::uint64_t{0};
};

// "Simulated Site": sits beside the keyboard (not modal) and shows the equipment of every
// COM port bound to the simulated site, one tab per port.
class FrmSimulatedSite : public QWidget {
    Q_OBJECT
public:
    explicit FrmSimulatedSite(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SiteRefreshTimer_Timer();

    std::vector<SitePanel*> panels_;
    // Runs only while the window is shown: a hidden window costs nothing.
    QTimer* SiteRefreshTimer = nullptr;
};

} // namespace quellpad::site_window
