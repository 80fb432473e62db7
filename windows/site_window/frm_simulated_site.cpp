#include "frm_simulated_site.h"

#include "ui/controls.h"
#include "ui/window_memory.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quellpad::site_window {

namespace {

constexpr int kRefreshMs = 33;

QPlainTextEdit* MakeLog(QWidget* parent, const char* name) {
    auto* log = new QPlainTextEdit(parent);
    log->setObjectName(QLatin1String(name));
    log->setReadOnly(true);
    log->setUndoRedoEnabled(false);
    log->setMaximumBlockCount(static_cast<int>(site::Site::kLogLines));
    log->setLineWrapMode(QPlainTextEdit::NoWrap);
    log->setFixedHeight(log->fontMetrics().lineSpacing() * 7 + 8);
    return log;
}

QString Lines(const std::deque<std::string>& log) {
    QStringList lines;
    for (const std::string& line : log) {
        lines << QString::fromStdString(line);
    }
    return lines.join(u'\n');
}

void Show(QPlainTextEdit* box, const QString& text) {
    if (box->toPlainText() != text) {
        box->setPlainText(text);
        box->moveCursor(QTextCursor::End);
    }
}

QString Numbers(const std::set<std::int64_t>& numbers) {
    if (numbers.empty()) {
        return QObject::tr("none");
    }
    QStringList out;
    for (const std::int64_t n : numbers) {
        out << QString::number(n);
    }
    return out.join(QStringLiteral(", "));
}

} // namespace

SitePanel::SitePanel(site::SimulatedLine& line, QWidget* parent) : QWidget(parent), line_(line) {
    auto* layout = new QVBoxLayout(this);

    // How the equipment is wired: an installer sets the addresses and line settings of
    // the site being commissioned, to try a scan or a listen line against it.
    auto* wiring = new QHBoxLayout;
    auto* camerasLabel = new QLabel(tr("Camera &addresses:"), this);
    camerasBox_ = new QLineEdit(this);
    camerasBox_->setObjectName(QStringLiteral("SiteCamerasTextBox"));
    camerasBox_->setToolTip(tr("Such as 1-8 or 3,17,200; each from 1 to 255"));
    ui::SetBuddy(camerasLabel, camerasBox_);
    auto* formatLabel = new QLabel(tr("&Line settings:"), this);
    formatBox_ = new QLineEdit(this);
    formatBox_->setObjectName(QStringLiteral("SiteLineSettingsTextBox"));
    formatBox_->setToolTip(tr("Baud, parity, data bits, stop bits, such as 4800,n,8,1"));
    ui::SetBuddy(formatLabel, formatBox_);
    auto* apply = new QPushButton(tr("Re&wire"), this);
    apply->setObjectName(QStringLiteral("RewireSiteButton"));
    wiringNote_ = new QLabel(this);
    wiringNote_->setObjectName(QStringLiteral("SiteWiringLabel"));
    for (QWidget* w : std::initializer_list<QWidget*>{camerasLabel, camerasBox_, formatLabel,
                                                      formatBox_, apply, wiringNote_}) {
        wiring->addWidget(w);
    }
    wiring->addStretch(1);
    layout->addLayout(wiring);
    connect(apply, &QPushButton::clicked, this, &SitePanel::ApplyWiring);
    connect(camerasBox_, &QLineEdit::returnPressed, this, &SitePanel::ApplyWiring);
    connect(formatBox_, &QLineEdit::returnPressed, this, &SitePanel::ApplyWiring);

    auto* top = new QHBoxLayout;
    grid_ = new QGridLayout;
    grid_->setSpacing(4);
    top->addLayout(grid_, 1);

    auto* side = new QVBoxLayout;
    auto* switcherBox = new QGroupBox(tr("Switcher (ASCII)"), this);
    switcher_ = new QLabel(switcherBox);
    switcher_->setObjectName(QStringLiteral("SwitcherStateLabel"));
    switcher_->setTextFormat(Qt::RichText);
    switcher_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    (new QVBoxLayout(switcherBox))->addWidget(switcher_);
    auto* muxBox = new QGroupBox(tr("Multiplexer (MUX ASCII)"), this);
    multiplexer_ = new QLabel(muxBox);
    multiplexer_->setObjectName(QStringLiteral("MultiplexerStateLabel"));
    (new QVBoxLayout(muxBox))->addWidget(multiplexer_);
    side->addWidget(switcherBox, 1);
    side->addWidget(muxBox);
    top->addLayout(side);
    layout->addLayout(top, 1);

    // The last commands each device decoded, side by side under the pictures.
    auto* logs = new QGridLayout;
    cameraLogLabel_ = new QLabel(this);
    cameraLog_ = MakeLog(this, "CameraLogTextBox");
    cameraLogLabel_->setBuddy(cameraLog_);
    auto* switcherLogLabel = new QLabel(tr("Last commands of the &switcher"), this);
    switcherLog_ = MakeLog(this, "SwitcherLogTextBox");
    switcherLogLabel->setBuddy(switcherLog_);
    auto* muxLogLabel = new QLabel(tr("Last commands of the &multiplexer"), this);
    multiplexerLog_ = MakeLog(this, "MultiplexerLogTextBox");
    muxLogLabel->setBuddy(multiplexerLog_);
    logs->addWidget(cameraLogLabel_, 0, 0);
    logs->addWidget(cameraLog_, 1, 0);
    logs->addWidget(switcherLogLabel, 0, 1);
    logs->addWidget(switcherLog_, 1, 1);
    logs->addWidget(muxLogLabel, 0, 2);
    logs->addWidget(multiplexerLog_, 1, 2);
    layout->addLayout(logs);
    ShowWiring();
}

// One picture per wired camera, four to a row, the first camera's log shown.
void SitePanel::ShowWiring() {
    const site::Site::Wiring& wired = line_.Equipment().Wired();
    camerasBox_->setText(QString::fromStdString(site::CameraAddressesText(wired.cameras)));
    formatBox_->setText(site::LineFormatText(line_.EquipmentFormat()));
    qDeleteAll(cameras_);
    cameras_.clear();
    shownCameras_ = wired.cameras;
    for (const int address : wired.cameras) {
        auto* view = new CameraView(this);
        view->setObjectName(QStringLiteral("Camera%1View").arg(address));
        connect(view, &CameraView::Chosen, this, &SitePanel::Choose);
        const int i = static_cast<int>(cameras_.size());
        grid_->addWidget(view, i / 4, i % 4);
        cameras_.push_back(view);
    }
    Choose(wired.cameras.empty() ? 0 : wired.cameras.front());
}

void SitePanel::ApplyWiring() {
    site::SiteSetup setup;
    setup.wiring = line_.Equipment().Wired();
    if (!site::ParseCameraAddresses(camerasBox_->text().trimmed().toStdString(),
                                    setup.wiring.cameras)) {
        wiringNote_->setText(tr("Not rewired: \"%1\" are not camera addresses from 1 to 255.")
                                 .arg(camerasBox_->text()));
        return;
    }
    if (!site::ParseLineFormat(formatBox_->text(), setup.format)) {
        wiringNote_->setText(
            tr("Not rewired: \"%1\" are not line settings.").arg(formatBox_->text()));
        return;
    }
    site::ApplySiteSetup(line_, setup);
    wiringNote_->setText(tr("Rewired: the equipment is at rest."));
    ShowWiring();
    emit Rewired(setup);
}

void SitePanel::Choose(int address) {
    chosen_ = address;
    cameraLogLabel_->setText(
        tr("Last commands of &camera %1 (click a picture for another)").arg(address));
    for (std::size_t i = 0; i < cameras_.size(); ++i) {
        cameras_[i]->SetChosen(shownCameras_[i] == address);
    }
    shownVersion_ = ~std::uint64_t{0};
    Refresh();
}

void SitePanel::Refresh() {
    const site::Site& site = line_.Equipment();
    if (site.Wired().cameras != shownCameras_) {
        ShowWiring(); // rewired elsewhere, as a served site's command line does
        return;
    }
    if (site.Version() == shownVersion_) {
        return;
    }
    shownVersion_ = site.Version();
    const site::SimSwitcher& switcher = site.Switcher();
    for (std::size_t i = 0; i < cameras_.size(); ++i) {
        const int address = shownCameras_[i];
        const site::SimCamera& camera = site.Camera(address);
        CameraPicture picture;
        picture.address = address;
        picture.view = {camera.Azimuth(), camera.Tilt(), camera.Magnification(), camera.Iris()};
        picture.pan = camera.Pan();
        picture.tilt = camera.Tilt();
        picture.moving = camera.Busy();
        const auto title = switcher.Titles().find(address);
        if (title != switcher.Titles().end()) {
            picture.title = QString::fromStdString(title->second);
        }
        if (camera.MenuOpen()) {
            for (const std::string& line : camera.MenuLines()) {
                picture.menu << QString::fromStdString(line);
            }
            picture.menuCursor = camera.MenuCursor();
        }
        picture.presetLabel = QString::fromStdString(camera.PresetLabel());
        picture.zoneLabel = QString::fromStdString(camera.ZoneLabel());
        picture.aux = camera.Aux();
        picture.onSelectedMonitor = switcher.SelectedCamera() == address;
        cameras_[i]->SetPicture(picture);
    }

    QString routes;
    for (int monitor = 1; monitor <= site::SimSwitcher::kMonitors; ++monitor) {
        const QString entry =
            tr("Mon %1 \u2190 Cam %2").arg(monitor).arg(switcher.CameraOn(monitor));
        routes += monitor == switcher.SelectedMonitor()
                      ? QStringLiteral("<b>&#9654; %1</b><br>").arg(entry)
                      : QStringLiteral("&nbsp;&nbsp;&nbsp;%1<br>").arg(entry);
    }
    QString sequences;
    for (const auto& [monitor, sequence] : switcher.Sequences()) {
        sequences += tr(" %1 on Mon %2").arg(sequence).arg(monitor);
    }
    routes += tr("<br>Active alarms: %1<br>Locked cameras: %2<br>Aux on: %3 &nbsp; GPI on: %4")
                  .arg(Numbers(switcher.Alarms()), Numbers(switcher.LockedCameras()),
                       Numbers(switcher.AuxesOn()), Numbers(switcher.GpisOn()));
    routes += tr("<br>Macro: %1 &nbsp; Tour: %2 &nbsp; Sequences:%3")
                  .arg(switcher.Macro() != 0 ? QString::number(switcher.Macro()) : tr("none"),
                       switcher.Tour() != 0 ? QString::number(switcher.Tour()) : tr("none"),
                       sequences.isEmpty() ? tr(" none") : sequences);
    if (!switcher.Time().empty()) {
        routes += tr("<br>Clock set to %1").arg(QString::fromStdString(switcher.Time()));
    }
    if (switcher_->text() != routes) {
        switcher_->setText(routes);
    }

    const site::SimMultiplexer& mux = site.Multiplexer();
    const QString muxText = tr("Display: %1, camera %2\nVCR: %3")
                                .arg(QCoreApplication::translate(
                                    "SiteWords", site::SimMultiplexer::DisplayName(mux.Mode())))
                                .arg(mux.Camera())
                                .arg(QCoreApplication::translate(
                                    "SiteWords", site::SimMultiplexer::VcrName(mux.Tape())));
    if (multiplexer_->text() != muxText) {
        multiplexer_->setText(muxText);
    }
    Show(cameraLog_, site.HasCamera(chosen_) ? Lines(site.CameraLog(chosen_)) : QString());
    Show(switcherLog_, Lines(site.SwitcherLog()));
    Show(multiplexerLog_, Lines(site.MultiplexerLog()));
}

FrmSimulatedSite::FrmSimulatedSite(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("FrmSimulatedSite"));
    setWindowTitle(tr("Simulated Site"));
    auto* layout = new QVBoxLayout(this);
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("SiteTabs"));
    for (int port = 1; port <= 2; ++port) {
        if (auto* line = dynamic_cast<site::SimulatedLine*>(&keyboard.Port(port))) {
            auto* panel = new SitePanel(*line, tabs);
            panel->setObjectName(QStringLiteral("COM%1SitePanel").arg(port));
            // On a small screen or at a large scale the window may be smaller than all the
            // equipment: the panel scrolls rather than pushing the window off the screen.
            auto* scroll = new QScrollArea(tabs);
            scroll->setFrameShape(QFrame::NoFrame);
            scroll->setWidgetResizable(true);
            scroll->setWidget(panel);
            tabs->addTab(scroll, tr("COM %1").arg(port));
            panels_.push_back(panel);
            connect(panel, &SitePanel::Rewired, this,
                    [port](const site::SiteSetup& setup) { site::KeepSiteSetup(port, setup); });
        }
    }
    if (panels_.empty()) {
        auto* none = new QLabel(tr("No COM port is on the simulated site. Choose \"Simulated "
                                   "site\" for a COM port in Options > Settings..., or start "
                                   "Quellpad with QUELLPAD_COM1=sim or QUELLPAD_COM2=sim "
                                   "(scripts/run does)."),
                                this);
        none->setObjectName(QStringLiteral("NoSiteLabel"));
        none->setWordWrap(true);
        layout->addWidget(none);
        tabs->hide();
    }
    layout->addWidget(tabs);
    SiteRefreshTimer = new QTimer(this);
    SiteRefreshTimer->setObjectName(QStringLiteral("SiteRefreshTimer"));
    SiteRefreshTimer->setInterval(kRefreshMs);
    connect(SiteRefreshTimer, &QTimer::timeout, this, &FrmSimulatedSite::SiteRefreshTimer_Timer);
    ui::SizeWithinScreen(this, {1200, 700});
    ui::RememberWindow(this, QStringLiteral("SimulatedSite"));
}

void FrmSimulatedSite::SiteRefreshTimer_Timer() {
    for (SitePanel* panel : panels_) {
        if (panel->isVisible()) {
            panel->Refresh();
        }
    }
}

void FrmSimulatedSite::showEvent(QShowEvent* event) {
    SiteRefreshTimer->start();
    SiteRefreshTimer_Timer();
    QWidget::showEvent(event);
}

void FrmSimulatedSite::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

void FrmSimulatedSite::hideEvent(QHideEvent* event) {
    SiteRefreshTimer->stop();
    QWidget::hideEvent(event);
}

} // namespace quellpad::site_window
