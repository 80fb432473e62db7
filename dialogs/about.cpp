#include "about.h"

#include "dialogs/build_version.h"
#include "dialogs/dialog_parts.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quellpad {

namespace {
const QString kCrLf = QStringLiteral("\r\n");
}

QString AboutDescription() {
    return QStringLiteral("This application is designed to send the ASCII,") + kCrLf +
           QStringLiteral("Direct D and Direct P Protocols via serial port.") + kCrLf +
           QStringLiteral("To use this application select a mode of operation,") + kCrLf +
           QStringLiteral("a port to use and the proper baud rate/parity") + kCrLf +
           QStringLiteral("settings for your application.");
}

QString AboutDisclaimer() {
    return QStringLiteral("Warning:  Use this software at your own risk.  This") + kCrLf +
           QStringLiteral("application has never been formally tested.  The") + kCrLf +
           QStringLiteral("ASCII commands supported will vary from application") + kCrLf +
           QStringLiteral("to application.");
}

QString VersionCaption(int major, int minor, int revision) {
    return QStringLiteral("Quellpad-  Version %1.%2.%3A").arg(major).arg(minor).arg(revision);
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    dialog_parts::SetUpWindow(this, "frmAbout", QStringLiteral("About ") + kApplicationTitle);
    auto* description = ui::MakeLabel(this, "lblDescription", AboutDescription());
    auto* disclaimer = ui::MakeLabel(this, "lblDisclaimer", AboutDisclaimer());
    auto* version = ui::MakeLabel(this, "lblVersion",
                                  VersionCaption(kVersionMajor, kVersionMinor, kVersionRevision));
    auto* ok = dialog_parts::DialogButton(this, "cmdOK", QStringLiteral("OK"));
    ok->setDefault(true);
    auto* sysInfo = dialog_parts::DialogButton(this, "cmdSysInfo", QStringLiteral("System Info"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(sysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(sysInfo);
    auto* column = new QVBoxLayout(this);
    column->addWidget(description);
    column->addWidget(disclaimer);
    column->addWidget(version);
    column->addLayout(buttons);
    ok->setFocus();
}

void frmAbout::cmdSysInfo_Click() {
    if (!StartSysInfo()) {
        ui::ShowMessage(this,
                        {QStringLiteral("System Information Is Unavailable At This Time"), {}});
    }
}

} // namespace quellpad
