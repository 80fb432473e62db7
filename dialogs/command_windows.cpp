#include "command_windows.h"

#include "ui/controls.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quellpad {

namespace {

void Name(QDialog* window, const char* name, const QString& caption) {
    window->setObjectName(QLatin1String(name));
    window->setWindowTitle(caption);
    window->setModal(true);
}

// Windows whose commands come with a later release of the keyboard.
void ShellContent(QDialog* window) {
    auto* column = new QVBoxLayout(window);
    column->addWidget(new QLabel(QStringLiteral("These commands are not available yet."), window));
    window->resize(360, 120);
}

const QString kCrLf = QStringLiteral("\r\n");
const QString kQuote = QStringLiteral("\"");

} // namespace

FrmAdvancedCommands::FrmAdvancedCommands(QWidget* parent) : QDialog(parent) {
    Name(this, "FrmAdvancedCommands", QStringLiteral("Advanced Commands"));
    ShellContent(this);
}

FrmExtendedCommands::FrmExtendedCommands(QWidget* parent) : QDialog(parent) {
    Name(this, "FrmExtendedCommands", QStringLiteral("Extended Commands"));
    ShellContent(this);
}

frmMenuControl::frmMenuControl(QWidget* parent) : QDialog(parent) {
    Name(this, "frmMenuControl", QStringLiteral("Arrow/Menu Control"));
    ShellContent(this);
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    Name(this, "frmAbout", QStringLiteral("About Quellpad"));
    auto* description = ui::MakeLabel(
        this, "lblDescription",
        QStringLiteral("This application is designed to send the ASCII,") + kCrLf +
            QStringLiteral("Direct D and Direct P Protocols via serial port.") + kCrLf +
            QStringLiteral("To use this application select a mode of operation,") + kCrLf +
            QStringLiteral("a port to use and the proper baud rate/parity") + kCrLf +
            QStringLiteral("settings for your application."));
    auto* disclaimer = ui::MakeLabel(
        this, "lblDisclaimer",
        QStringLiteral("Warning:  Use this software at your own risk.  This") + kCrLf +
            QStringLiteral("application has never been formally tested.  The") + kCrLf +
            QStringLiteral("ASCII commands supported will vary from application") + kCrLf +
            QStringLiteral("to application."));
    auto* version = ui::MakeLabel(this, "lblVersion",
                                  QStringLiteral("Quellpad-  Version ") +
                                      QCoreApplication::applicationVersion() + u'A');
    auto* ok = ui::MakeButton(this, "cmdOK", QStringLiteral("OK"));
    ok->setFocusPolicy(Qt::StrongFocus);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->addWidget(description);
    column->addWidget(disclaimer);
    column->addWidget(version);
    column->addWidget(ok, 0, Qt::AlignRight);
}

FrmTypeCmnds::FrmTypeCmnds(QWidget* parent) : QDialog(parent) {
    Name(this, "FrmTypeCmnds", QStringLiteral("Type Commands"));
    instruction_ = ui::MakeLabel(this, "InstructionLabel");
    auto* toSendLabel =
        ui::MakeLabel(this, "CommandToSendLabel", QStringLiteral("Command To Send"));
    commandToSend_ = ui::MakeTextBox(this, "CommandToSendTextBox", toSendLabel->text());
    auto* responseLabel =
        ui::MakeLabel(this, "CommandResponseLabel", QStringLiteral("Command Response"));
    response_ = new QPlainTextEdit(this);
    response_->setObjectName(QStringLiteral("CommandResponseTextBox"));
    response_->setAccessibleName(responseLabel->text());
    response_->setReadOnly(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(instruction_);
    column->addWidget(toSendLabel);
    column->addWidget(commandToSend_);
    column->addWidget(responseLabel);
    column->addWidget(response_);
    resize(520, 300);
}

void FrmTypeCmnds::Prepare(const QString& mode) {
    if (IsAsciiMode(mode)) {
        instruction_->setText(kCrLf +
                              QStringLiteral("Type ASCII bytes and send them by pressing the") +
                              kQuote + QStringLiteral("Enter") + kQuote +
                              QStringLiteral(" key.  For example; 1Ma would represent") + kCrLf +
                              QStringLiteral("the monitor 1 select command.  ASCII command") +
                              kCrLf + QStringLiteral("responses will appear below."));
    } else {
        instruction_->setText(
            kCrLf + QStringLiteral("Type Hexadecimal bytes and send them by pressing the") +
            kQuote + QStringLiteral("Enter") + kQuote +
            QStringLiteral(" key.  For example; FF 01 00 00 00 00 01 would") + kCrLf +
            QStringLiteral("represent the camera 1 stop command in D Protocol.") + kCrLf +
            QStringLiteral("The command response will appear below."));
    }
    response_->clear();
}

void FrmTypeCmnds::AppendResponse(const QString& response) {
    // The box holds one short reply at a time; a long history is of no use here.
    constexpr qsizetype kLimit = 50;
    const QString box = response_->toPlainText();
    response_->setPlainText((box.size() >= kLimit ? QString() : box) + response);
}

} // namespace quellpad
