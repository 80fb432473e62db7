#include "frm_scan.h"

#include "ui/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include <cmath>

namespace quellpad::scan_window {

namespace {

constexpr std::array kBauds = {2400, 4800, 9600, 19200};

QSpinBox* MakeSpin(QWidget* parent, const char* name, QLabel* label, int low, int high, int value) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setRange(low, high);
    box->setValue(value);
    ui::SetBuddy(label, box);
    return box;
}

QComboBox* MakeCombo(QWidget* parent, const char* name, QLabel* label, const QStringList& items) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QLatin1String(name));
    box->addItems(items);
    ui::SetBuddy(label, box);
    return box;
}

} // namespace

FrmScan::FrmScan(Quellpad_Support_Func& keyboard, std::function<void(int)> pause, QWidget* parent)
    : QWidget(parent, Qt::Window), keyboard_(keyboard), pause_(std::move(pause)), boundary_(this) {
    setObjectName(QStringLiteral("FrmScan"));
    setWindowTitle(tr("Scan for Receivers"));
    auto* grid = new QGridLayout(this);
    int row = 0;
    QLabel* portLabel = ui::MakeLabel(this, "PortLabel", tr("&Port:"));
    PortBox = MakeCombo(this, "PortBox", portLabel, {tr("COM 1"), tr("COM 2")});
    grid->addWidget(portLabel, row, 0);
    grid->addWidget(PortBox, row++, 1, 1, 4);
    QLabel* languageLabel = ui::MakeLabel(this, "LanguageLabel", tr("&Language:"));
    LanguageBox = MakeCombo(this, "LanguageBox", languageLabel, {"D", "P", "ASCII"});
    grid->addWidget(languageLabel, row, 0);
    grid->addWidget(LanguageBox, row++, 1, 1, 4);
    grid->addWidget(ui::MakeLabel(this, "BaudLabel", tr("Bauds:")), row, 0);
    for (std::size_t i = 0; i < kBauds.size(); ++i) {
        const QByteArray name = "Baud" + QByteArray::number(kBauds[i]) + "Box";
        BaudBoxes[i] = ui::MakeCheckBox(this, name.constData(), QString::number(kBauds[i]));
        BaudBoxes[i]->setChecked(true);
        grid->addWidget(BaudBoxes[i], row, static_cast<int>(i) + 1);
    }
    ++row;
    QLabel* firstLabel = ui::MakeLabel(this, "FirstAddressLabel", tr("&From address:"));
    FirstAddressBox = MakeSpin(this, "FirstAddressBox", firstLabel, 1, 255, 1);
    QLabel* lastLabel = ui::MakeLabel(this, "LastAddressLabel", tr("&To address:"));
    LastAddressBox = MakeSpin(this, "LastAddressBox", lastLabel, 1, 255, 255);
    grid->addWidget(firstLabel, row, 0);
    grid->addWidget(FirstAddressBox, row, 1);
    grid->addWidget(lastLabel, row, 2);
    grid->addWidget(LastAddressBox, row++, 3);
    QLabel* waitLabel = ui::MakeLabel(this, "WaitLabel", tr("&Wait for an answer (ms):"));
    WaitBox = MakeSpin(this, "WaitBox", waitLabel, 10, 2000, 50);
    grid->addWidget(waitLabel, row, 0);
    grid->addWidget(WaitBox, row++, 1);
    WarningLabel = ui::MakeLabel(this, "WarningLabel");
    WarningLabel->setWordWrap(true);
    grid->addWidget(WarningLabel, row++, 0, 1, 5);

    auto* buttons = new QHBoxLayout;
    ScanButton = ui::MakeButton(this, "ScanButton", tr("&Scan"));
    CancelButton = ui::MakeButton(this, "CancelButton", tr("&Cancel"));
    CancelButton->setEnabled(false);
    ScanProgressBar = new QProgressBar(this);
    ScanProgressBar->setObjectName(QStringLiteral("ScanProgressBar"));
    ScanProgressBar->setAccessibleName(tr("Scan progress"));
    TimeLeftLabel = ui::MakeReadout(this, "TimeLeftLabel", tr("Time left"));
    buttons->addWidget(ScanButton);
    buttons->addWidget(CancelButton);
    buttons->addWidget(ScanProgressBar, 1);
    buttons->addWidget(TimeLeftLabel);
    grid->addLayout(buttons, row++, 0, 1, 5);

    ResultsTable = new QTableWidget(0, 5, this);
    ResultsTable->setObjectName(QStringLiteral("ResultsTable"));
    ResultsTable->setAccessibleName(tr("Receivers that answered"));
    ResultsTable->setHorizontalHeaderLabels(
        {tr("Port"), tr("Baud"), tr("Address"), tr("Answer time (ms)"), tr("Answer")});
    ResultsTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ResultsTable->setTabKeyNavigation(false);
    ResultsTable->verticalHeader()->hide();
    ResultsTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ResultsTable->horizontalHeader()->setStretchLastSection(true);
    grid->addWidget(ResultsTable, row, 0, 1, 5);
    grid->setRowStretch(row, 1);

    connect(ScanButton, &QPushButton::clicked, this,
            [this] { boundary_.Run("ScanButton_Click", [&] { ScanButton_Click(); }); });
    connect(CancelButton, &QPushButton::clicked, this, &FrmScan::CancelButton_Click);
    connect(PortBox, &QComboBox::currentIndexChanged, this, &FrmScan::ShowWarning);
    connect(LanguageBox, &QComboBox::currentIndexChanged, this, &FrmScan::ShowWarning);
    ShowWarning();
    // Placed, like the program's other windows, whole within the screen.
    ui::SizeWithinScreen(this, sizeHint());
}

FrmScan::~FrmScan() = default;

void FrmScan::ShowWarning() {
    const auto language = static_cast<protocol::Language>(LanguageBox->currentIndex());
    const QString cannot = bus::CannotScan(language);
    ScanButton->setEnabled(cannot.isEmpty() && !Scanning());
    if (!cannot.isEmpty()) {
        WarningLabel->setText(cannot);
        return;
    }
    const int port = PortBox->currentIndex() + 1;
    WarningLabel->setText(
        tr("Scan sends a pan query to every address of the range on COM %1 (%2), which the "
           "keyboard stops using meanwhile; nothing moves, but the line is busy with it.")
            .arg(port)
            .arg(keyboard_.Port(port).Device()));
}

void FrmScan::ScanButton_Click() {
    const int port = PortBox->currentIndex() + 1;
    bus::ScanPlan plan;
    plan.language = static_cast<protocol::Language>(LanguageBox->currentIndex());
    plan.bauds.clear();
    for (std::size_t i = 0; i < kBauds.size(); ++i) {
        if (BaudBoxes[i]->isChecked()) {
            plan.bauds.push_back(kBauds[i]);
        }
    }
    plan.first = FirstAddressBox->value();
    plan.last = std::max(plan.first, LastAddressBox->value());
    plan.waitMs = WaitBox->value();
    if (plan.bauds.empty()) {
        return;
    }
    ResultsTable->setRowCount(0);
    scanner_ = std::make_unique<bus::Scanner>(keyboard_.Port(port), keyboard_.LineSettingsText());
    scanner_->SetPause([this, port](bool on) { pause_(on ? port : 0); });
    connect(scanner_.get(), &bus::Scanner::Found, this, &FrmScan::AddResult);
    connect(scanner_.get(), &bus::Scanner::Finished, this, &FrmScan::OnFinished);
    connect(scanner_.get(), &bus::Scanner::Progress, this,
            [this](int done, int total, double msLeft) {
                ScanProgressBar->setMaximum(total);
                ScanProgressBar->setValue(done);
                TimeLeftLabel->setText(tr("%1 s left").arg(std::ceil(msLeft / 1000)));
            });
    ScanButton->setEnabled(false);
    CancelButton->setEnabled(true);
    scanner_->Start(plan);
}

void FrmScan::CancelButton_Click() {
    if (scanner_) {
        scanner_->Cancel();
    }
}

void FrmScan::AddResult(const bus::ScanResult& result) {
    const int row = ResultsTable->rowCount();
    ResultsTable->insertRow(row);
    const QStringList cells = {tr("COM %1").arg(result.port), QString::number(result.baud),
                               QString::number(result.address),
                               QString::number(result.answerMs, 'f', 1),
                               QString::fromStdString(result.answer)};
    for (int c = 0; c < cells.size(); ++c) {
        ResultsTable->setItem(row, c, new QTableWidgetItem(cells[c]));
    }
}

void FrmScan::OnFinished(bool cancelled, const QString& failure) {
    CancelButton->setEnabled(false);
    ShowWarning();
    if (!failure.isEmpty()) {
        TimeLeftLabel->setText(failure);
        boundary_.ReportAbout(tr("Scan for Receivers"), failure);
    } else {
        TimeLeftLabel->setText(cancelled ? tr("Cancelled.") : tr("Done."));
    }
}

} // namespace quellpad::scan_window
