#include "frm_traffic.h"

#include "capture/traffic_capture.h"
#include "ui/controls.h"
#include "ui/window_memory.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <optional>

namespace quellpad::traffic_window {

using traffic::Way;

namespace {

QString FileFilters() {
    return QCoreApplication::translate("FrmTraffic", "Text files (*.txt);;CSV files (*.csv)");
}
// A saved file may also be a capture, which Wireshark opens.
QString SaveFilters() {
    return FileFilters() +
           QCoreApplication::translate("FrmTraffic", ";;pcapng captures (*.pcapng)");
}
// What the window remembers, under this group of the user's configuration.
const QString kMemoryKey = QStringLiteral("Traffic");

} // namespace

FrmTraffic::FrmTraffic(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QWidget(parent, Qt::Window), keyboard_(keyboard), boundary_(this), filter_(model_) {
    setObjectName(QStringLiteral("FrmTraffic"));
    setWindowTitle(tr("Traffic"));

    auto* layout = new QVBoxLayout(this);
    auto* controls = new QHBoxLayout;
    controls->addWidget(ui::MakeLabel(this, "ShowLabel", tr("Show:")));
    Com1FilterCheckBox = ui::MakeCheckBox(this, "Com1FilterCheckBox", tr("COM &1"));
    Com2FilterCheckBox = ui::MakeCheckBox(this, "Com2FilterCheckBox", tr("COM &2"));
    ListenFilterCheckBox = ui::MakeCheckBox(this, "ListenFilterCheckBox", tr("Listen"));
    SentFilterCheckBox = ui::MakeCheckBox(this, "SentFilterCheckBox", tr("&Sent"));
    ReceivedFilterCheckBox = ui::MakeCheckBox(this, "ReceivedFilterCheckBox", tr("&Received"));
    for (QCheckBox* box : {Com1FilterCheckBox, Com2FilterCheckBox, ListenFilterCheckBox,
                           SentFilterCheckBox, ReceivedFilterCheckBox}) {
        box->setChecked(true);
        controls->addWidget(box);
    }
    connect(Com1FilterCheckBox, &QCheckBox::toggled, this,
            [this](bool on) { filter_.SetPortShown(1, on); });
    connect(Com2FilterCheckBox, &QCheckBox::toggled, this,
            [this](bool on) { filter_.SetPortShown(2, on); });
    connect(ListenFilterCheckBox, &QCheckBox::toggled, this,
            [this](bool on) { filter_.SetPortShown(traffic::kListenPort, on); });
    connect(SentFilterCheckBox, &QCheckBox::toggled, this,
            [this](bool on) { filter_.SetWayShown(Way::Sent, on); });
    connect(ReceivedFilterCheckBox, &QCheckBox::toggled, this,
            [this](bool on) { filter_.SetWayShown(Way::Received, on); });
    // The filters as the operator left them, in the user's configuration.
    for (QCheckBox* box : {Com1FilterCheckBox, Com2FilterCheckBox, ListenFilterCheckBox,
                           SentFilterCheckBox, ReceivedFilterCheckBox}) {
        const QString key = kMemoryKey + u'/' + box->objectName();
        box->setChecked(ui::WindowMemory()->value(key, true).toBool());
        connect(box, &QCheckBox::toggled, this,
                [key](bool on) { ui::WindowMemory()->setValue(key, on); });
    }
    controls->addStretch(1);

    PauseButton = ui::MakeButton(this, "PauseButton", tr("&Pause"));
    PauseButton->setCheckable(true);
    connect(PauseButton, &QPushButton::toggled, this, [this](bool on) {
        model_.SetPaused(on);
        ShowStatus();
    });
    QPushButton* clear = ui::MakeButton(this, "ClearButton", tr("Cl&ear"));
    connect(clear, &QPushButton::clicked, this, &FrmTraffic::ClearButton_Click);
    QPushButton* copy = ui::MakeButton(this, "CopyButton", tr("&Copy"));
    connect(copy, &QPushButton::clicked, this, &FrmTraffic::CopyButton_Click);
    QPushButton* save = ui::MakeButton(this, "SaveButton", tr("Sa&ve..."));
    connect(save, &QPushButton::clicked, this,
            [this] { boundary_.Run("SaveButton_Click", [&] { SaveButton_Click(); }); });
    QPushButton* timeline = ui::MakeButton(this, "TimelineButton", tr("Ti&meline..."));
    connect(timeline, &QPushButton::clicked, this, [this] {
        if (Timeline == nullptr) {
            Timeline = new TimelineView(this);
        }
        Timeline->Show(filter_.ShownRows());
    });
    LogToFileButton = ui::MakeButton(this, "LogToFileButton", tr("&Log to file..."));
    LogToFileButton->setCheckable(true);
    connect(LogToFileButton, &QPushButton::clicked, this,
            [this] { boundary_.Run("LogToFileButton_Click", [&] { LogToFileButton_Click(); }); });
    // The buttons on a line of their own below the filters, so that the window can be made
    // as narrow as a small screen at a large scale.
    auto* actions = new QHBoxLayout;
    for (QPushButton* button : {PauseButton, clear, copy, save, timeline, LogToFileButton}) {
        button->setAutoDefault(false);
        actions->addWidget(button);
    }
    actions->addStretch(1);
    layout->addLayout(controls);
    layout->addLayout(actions);

    TrafficTableView = new QTableView(this);
    TrafficTableView->setObjectName(QStringLiteral("TrafficTableView"));
    // No caption on screen: the window's own title is what the table holds.
    TrafficTableView->setAccessibleName(tr("Traffic rows"));
    TrafficTableView->setModel(&filter_);
    TrafficTableView->setSelectionBehavior(QAbstractItemView::SelectRows);
    TrafficTableView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // The arrows move among the rows; Tab leaves the table like any other control.
    TrafficTableView->setTabKeyNavigation(false);
    TrafficTableView->setWordWrap(false);
    TrafficTableView->setAlternatingRowColors(true);
    TrafficTableView->verticalHeader()->hide();
    // Rows of one height, fixed: a hundred thousand rows are never measured one by one.
    TrafficTableView->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    TrafficTableView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    QHeaderView* header = TrafficTableView->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setStretchLastSection(true);
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    header->resizeSection(traffic::kTime, digit * 14);
    header->resizeSection(traffic::kSince, digit * 10);
    header->resizeSection(traffic::kPort, digit * 8);
    header->resizeSection(traffic::kDirection, digit * 11);
    header->resizeSection(traffic::kHex, digit * 30);
    header->resizeSection(traffic::kText, digit * 14);
    TrafficTableView->installEventFilter(this);
    layout->addWidget(TrafficTableView, 1);
    Listen = new ListenPanel(
        [this](const QByteArray& bytes, const QString& mode) {
            recorder_.Received(traffic::kListenPort, mode,
                               {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                static_cast<std::size_t>(bytes.size())});
        },
        boundary_, this);
    layout->addWidget(Listen);

    auto* status = new QHBoxLayout;
    TrafficStatusLabel = ui::MakeReadout(this, "TrafficStatusLabel", tr("Rows"));
    LogFileLabel = ui::MakeReadout(this, "LogFileLabel", tr("Log file"));
    status->addWidget(TrafficStatusLabel);
    status->addStretch(1);
    status->addWidget(LogFileLabel);
    layout->addLayout(status);

    TrafficTimer = ui::MakeTimer(this, "TrafficTimer");
    TrafficTimer->setInterval(kBatchMs);
    boundary_.SetRepeating("TrafficTimer_Timer");
    connect(TrafficTimer, &QTimer::timeout, this,
            [this] { boundary_.Run("TrafficTimer_Timer", [&] { TrafficTimer_Timer(); }); });
    TrafficTimer->start();
    keyboard_.Tap = &recorder_;

    ShowStatus();
    ui::SizeWithinScreen(this, {digit * 150, 480});
    ui::RememberWindow(this, kMemoryKey);
}

FrmTraffic::~FrmTraffic() {
    keyboard_.Tap = nullptr;
}

void FrmTraffic::TrafficTimer_Timer() {
    std::vector<traffic::TrafficRow> rows = recorder_.Drain();
    if (rows.empty()) {
        return;
    }
    const auto shown = qScopeGuard([this] { ShowStatus(); });
    // Logged first, while the rows are still here; shown whatever became of the log.
    std::optional<traffic::TrafficFileError> logFailure;
    if (log_) {
        try {
            log_->Write(rows);
        } catch (const traffic::TrafficFileError& error) {
            // Told once; the log stops rather than failing again every tick.
            StopLog();
            logFailure = error;
        }
    }
    // Follows the newest row unless the operator has scrolled away from it.
    const QScrollBar* bar = TrafficTableView->verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    model_.Append(std::move(rows));
    if (following && !model_.Paused()) {
        TrafficTableView->scrollToBottom();
    }
    if (logFailure) {
        throw *logFailure;
    }
}

void FrmTraffic::StartLog(const QString& path) {
    QStringList ports;
    for (int number = 1; number <= 2; ++number) {
        ports << QStringLiteral("COM %1 (%2) %3")
                     .arg(number)
                     .arg(keyboard_.Port(number).Device(), keyboard_.LineSettingsText());
    }
    log_ = std::make_unique<traffic::TrafficLogFile>(
        path, traffic::LogStartLine(QDateTime::currentDateTime(), ports));
    LogToFileButton->setChecked(true);
    LogFileLabel->setText(tr("Logging to %1").arg(QDir::toNativeSeparators(path)));
}

void FrmTraffic::StopLog() {
    log_.reset();
    LogToFileButton->setChecked(false);
    LogFileLabel->clear();
}

void FrmTraffic::LogToFileButton_Click() {
    if (log_) {
        StopLog();
        return;
    }
    // The button shows whether a log is being written, whatever happens below.
    const auto sync = qScopeGuard([this] { LogToFileButton->setChecked(log_ != nullptr); });
    const QString path = QFileDialog::getSaveFileName(this, tr("Log Traffic to File"),
                                                      ui::LastFolder(kMemoryKey), FileFilters());
    if (!path.isEmpty()) {
        ui::KeepLastFolder(kMemoryKey, path);
        StartLog(path);
    }
}

void FrmTraffic::SaveButton_Click() {
    QString chosen;
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Traffic"), ui::LastFolder(kMemoryKey), SaveFilters(), &chosen);
    if (!path.isEmpty()) {
        ui::KeepLastFolder(kMemoryKey, path);
        const traffic::FileFormat format = traffic::FormatFor(path, chosen);
        if (format == traffic::FileFormat::Pcapng) {
            const QString settings = keyboard_.LineSettingsText();
            capture::SaveCapture(path, filter_.ShownRows(),
                                 {{1, keyboard_.Port(1).Device(), settings},
                                  {2, keyboard_.Port(2).Device(), settings},
                                  {traffic::kListenPort, Listen->Binding(), QString()}});
            return;
        }
        // What the listen line heard per address goes with the rows it explains.
        const auto& addresses = Listen->Addresses();
        traffic::SaveRows(
            path, format, filter_.ShownRows(),
            addresses.Size() == 0
                ? QString()
                : bus::AddressText(addresses.Sorted(bus::AddressColumn::Address, true),
                                   format == traffic::FileFormat::Csv));
    }
}

void FrmTraffic::CopyButton_Click() {
    const QModelIndexList selected = TrafficTableView->selectionModel()->selectedRows();
    if (selected.isEmpty()) {
        return;
    }
    QStringList lines;
    for (const traffic::TrafficRow* row : filter_.ShownRows(selected)) {
        lines << traffic::TextLine(*row);
    }
    QApplication::clipboard()->setText(lines.join(u'\n') + u'\n');
}

void FrmTraffic::ClearButton_Click() {
    model_.Clear();
    ShowStatus();
}

void FrmTraffic::ShowStatus() {
    ui::ShowReading(TrafficStatusLabel, tr("%n rows, %1 dropped%2", nullptr, model_.rowCount())
                                            .arg(model_.Dropped())
                                            .arg(model_.Paused() ? tr(" (paused)") : QString()));
}

bool FrmTraffic::eventFilter(QObject* watched, QEvent* event) {
    // The table's own copy takes one cell; the operator wants the rows.
    if (watched == TrafficTableView && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        CopyButton_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void FrmTraffic::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace quellpad::traffic_window
