#include "listen_panel.h"

#include "engine/errors.h"
#include "engine/keyboard_state.h"
#include "engine/serial_device.h"
#include "netline/network_line.h"
#include "traffic/traffic_row.h"
#include "ui/controls.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

namespace quellpad::traffic_window {

namespace {

bool IsNetwork(const QString& binding) {
    return binding.startsWith(QStringLiteral("tcp://")) ||
           binding.startsWith(QStringLiteral("rfc2217://"));
}

QString ModeOf(protocol::Language language) {
    switch (language) {
    case protocol::Language::D:
        return kModeD;
    case protocol::Language::P:
        return kModeP;
    case protocol::Language::Ascii:
        return kModeAscii;
    case protocol::Language::MuxAscii:
        break;
    }
    return kModeMuxAscii;
}

} // namespace

ListenPanel::ListenPanel(std::function<void(const QByteArray&, const QString&)> heard,
                         ui::ErrorBoundary& boundary, QWidget* parent)
    : QWidget(parent), heard_(std::move(heard)), boundary_(boundary) {
    setObjectName(QStringLiteral("ListenPanel"));
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QLabel* label = ui::MakeLabel(this, "ListenDeviceLabel", tr("Listen o&n:"));
    ListenDeviceBox = ui::MakeTextBox(this, "ListenDeviceBox", label);
    ListenDeviceBox->setPlaceholderText(tr("/dev/ttyUSB1, tcp://host:port, rfc2217://host:port"));
    ListenButton = ui::MakeButton(this, "ListenButton", tr("Lis&ten"));
    ListenButton->setCheckable(true);
    ListenButton->setAutoDefault(false);
    CopyAddressesButton = ui::MakeButton(this, "CopyAddressesButton", tr("Copy a&ddresses"));
    CopyAddressesButton->setAutoDefault(false);
    ListenVerdictLabel = ui::MakeLabel(this, "ListenVerdictLabel");
    ListenVerdictLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    ListenDiagnosisLabel = ui::MakeLabel(this, "ListenDiagnosisLabel");
    ListenDiagnosisLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    ListenDiagnosisLabel->setWordWrap(true);
    AddressTableWidget = new QTableWidget(0, bus::kAddressColumns, this);
    AddressTableWidget->setObjectName(QStringLiteral("AddressTableWidget"));
    AddressTableWidget->setAccessibleName(tr("Addresses heard"));
    AddressTableWidget->setHorizontalHeaderLabels(bus::AddressHeaders());
    AddressTableWidget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    AddressTableWidget->setSelectionBehavior(QAbstractItemView::SelectRows);
    AddressTableWidget->setTabKeyNavigation(false);
    AddressTableWidget->setSortingEnabled(true);
    AddressTableWidget->verticalHeader()->hide();
    // Each column as wide as what it shows: a time of day reads on one line.
    AddressTableWidget->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    AddressTableWidget->horizontalHeader()->setStretchLastSection(true);
    AddressTableWidget->setMaximumHeight(fontMetrics().height() * 8);
    layout->addWidget(label, 0, 0);
    layout->addWidget(ListenDeviceBox, 0, 1);
    layout->addWidget(ListenButton, 0, 2);
    layout->addWidget(CopyAddressesButton, 0, 3);
    layout->addWidget(ListenVerdictLabel, 1, 0, 1, 4);
    layout->addWidget(ListenDiagnosisLabel, 2, 0, 1, 4);
    layout->addWidget(AddressTableWidget, 3, 0, 1, 4);
    layout->setColumnStretch(1, 1);

    connect(ListenButton, &QPushButton::clicked, this, [this](bool on) {
        ListenButton->setChecked(false);
        if (!on) {
            Stop();
            return;
        }
        boundary_.Run("ListenButton_Click", [&] { Start(ListenDeviceBox->text().trimmed()); });
    });
    connect(CopyAddressesButton, &QPushButton::clicked, this, [this] {
        QApplication::clipboard()->setText(
            bus::AddressText(table_.Sorted(bus::AddressColumn::Address, true)));
    });
    ListenVerdictLabel->setText(tr("Not listening."));
    tick_.setInterval(1000);
    connect(&tick_, &QTimer::timeout, this, [this] {
        diagnosis_.Elapsed(tick_.interval() / 1000.0);
        ShowAddresses();
    });
}

ListenPanel::~ListenPanel() = default;

void ListenPanel::Start(const QString& binding) {
    Stop();
    binding_ = binding;
    serialDevice_ = !IsNetwork(binding);
    table_.Clear();
    detector_ = std::make_unique<bus::Detector>();
    search_ = serialDevice_ ? std::make_unique<bus::SettingsSearch>() : nullptr;
    diagnosis_ = bus::BusDiagnosis();
    diagnosis_.SetSearching(search_ != nullptr);
    diagnosis_.SetSettings(search_ ? QString::fromStdString(search_->Current()) : QString());
    Open();
    tick_.start();
    ListenButton->setChecked(true);
    ShowAddresses();
}

void ListenPanel::Open() {
    std::unique_ptr<SerialLine> line =
        serialDevice_ ? std::make_unique<SerialDevice>(traffic::kListenPort, binding_)
                      : MakeNetworkLine(traffic::kListenPort, binding_);
    auto listen = std::make_unique<bus::ListenLine>(std::move(line));
    if (search_) {
        listen->SetSettings(QString::fromStdString(search_->Current()));
    }
    listen->Open();
    connect(listen.get(), &bus::ListenLine::Heard, this, &ListenPanel::Hear);
    // The line is not deleted while it is raising its own signal: both act a moment later.
    connect(listen.get(), &bus::ListenLine::Failed, this, [this](const QString& message) {
        boundary_.ReportAbout(binding_, message);
        QTimer::singleShot(0, this, &ListenPanel::Stop);
    });
    line_ = std::move(listen);
}

void ListenPanel::Stop() {
    line_.reset();
    tick_.stop();
    ListenButton->setChecked(false);
    ShowAddresses();
}

void ListenPanel::Hear(const QByteArray& bytes) {
    const std::span<const std::uint8_t> span(
        reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()));
    scratch_.clear();
    bool reopen = false;
    // A byte at a time, so that the diagnosis knows what came between two frames; bytes
    // after settings are given up on were heard at the old ones.
    for (std::size_t i = 0; i < span.size() && !reopen; ++i) {
        reopen = HearOne(span.subspan(i, 1));
    }
    const bus::Detector* hearing = search_ ? &search_->Hearing() : detector_.get();
    const auto language = hearing ? hearing->Spoken() : std::nullopt;
    heard_(bytes, language ? ModeOf(*language) : QString());
    const QDateTime now = QDateTime::currentDateTime();
    for (const bus::Heard& heard : scratch_) {
        if (!language || heard.command.language == *language) {
            table_.Add(heard, now);
        }
    }
    if (reopen && line_) {
        // Garbage under these settings: the next ones are tried on a fresh line.
        table_.Clear();
        QTimer::singleShot(0, this, [this] {
            if (line_) {
                line_.reset();
                boundary_.Run("ListenPanel_Reopen", [&] { Open(); });
            }
        });
    }
    ShowAddresses();
}

bool ListenPanel::HearOne(std::span<const std::uint8_t> byte) {
    oneScratch_.clear();
    bool reopen = false;
    if (search_) {
        reopen = search_->Feed(byte, oneScratch_);
    } else if (detector_) {
        detector_->Feed(byte, oneScratch_);
    }
    scratch_.insert(scratch_.end(), oneScratch_.begin(), oneScratch_.end());
    if (!reopen) {
        diagnosis_.Feed(byte, oneScratch_);
        return false;
    }
    // Frames heard at settings given up on say nothing of the bus; bytes that formed none
    // at any settings add up to a line no settings cure.
    if (diagnosis_.HeardFrames()) {
        diagnosis_.Reset();
    }
    diagnosis_.SetSettings(QString::fromStdString(search_->Current()));
    diagnosis_.SetSearching(!search_->AllGarbage());
    return true;
}

QString ListenPanel::Verdict() const {
    const bus::Detector* hearing = search_ ? &search_->Hearing() : detector_.get();
    if (!hearing) {
        return tr("Not listening.");
    }
    const QString settings =
        search_ ? QStringLiteral(" ") + tr("at %1").arg(QString::fromStdString(search_->Current()))
                : QString();
    if (search_ && search_->AllGarbage() && hearing->Current() != bus::Verdict::Language) {
        return tr("Garbage under every line setting from 2400 to 19200 baud: no command "
                  "language decodes what is heard.");
    }
    switch (hearing->Current()) {
    case bus::Verdict::Listening:
        return tr("Still listening%1: %2 valid frames so far.")
            .arg(settings)
            .arg(hearing->ValidFrames());
    case bus::Verdict::Garbage:
        return tr("Garbage%1: no command language decodes what is heard.").arg(settings);
    case bus::Verdict::Language:
        break;
    }
    QStringList addresses;
    for (const int address : hearing->Addresses()) {
        addresses << QString::number(address);
    }
    return tr("Language %1%2; addresses spoken to: %3.")
        .arg(bus::LanguageName(*hearing->Spoken()), settings,
             addresses.isEmpty() ? tr("none") : addresses.join(QStringLiteral(", ")));
}

void ListenPanel::ShowAddresses() {
    ListenVerdictLabel->setText(Verdict());
    const bus::BusVerdict diagnosis = diagnosis_.Current();
    const QString text = line_ || detector_
                             ? tr("%1 (sure: %2 %)")
                                   .arg(diagnosis.text)
                                   .arg(static_cast<int>(diagnosis.confidence * 100 + 0.5))
                             : QString();
    ListenDiagnosisLabel->setText(text);
    ListenDiagnosisLabel->setAccessibleName(text);
    AddressTableWidget->setSortingEnabled(false);
    const auto rows = table_.Sorted(bus::AddressColumn::Address, true);
    AddressTableWidget->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const bus::AddressRow& row = rows[static_cast<std::size_t>(r)];
        const QStringList cells = bus::AddressCells(row);
        for (int c = 0; c < bus::kAddressColumns; ++c) {
            auto* item = new QTableWidgetItem;
            const bool number = c == 0 || (c >= 2 && c <= 4);
            if (number) {
                item->setData(Qt::DisplayRole, cells[c].toLongLong());
            } else {
                item->setText(cells[c]);
            }
            AddressTableWidget->setItem(r, c, item);
        }
    }
    AddressTableWidget->setSortingEnabled(true);
}

} // namespace quellpad::traffic_window
