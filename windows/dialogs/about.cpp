#include "about.h"

#include "dialogs/build_version.h"
#include "dialogs/dialog_parts.h"
#include "ui/controls.h"
#include "ui/messages.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quellpad {

namespace {
const QString kCrLf = QStringLiteral("\r\n");
}

QString AboutDescription() {
    return QCoreApplication::translate("frmAbout",
                                       "This application is designed to send the ASCII,\r\n"
                                       "Direct D and Direct P Protocols via serial port.\r\n"
                                       "To use this application select a mode of operation,\r\n"
                                       "a port to use and the proper baud rate/parity\r\n"
                                       "settings for your application.");
}

QString AboutDisclaimer() {
    return QCoreApplication::translate("frmAbout",
                                       "Warning:  Use this software at your own risk.  This\r\n"
                                       "application has never been formally tested.  The\r\n"
                                       "ASCII commands supported will vary from application\r\n"
                                       "to application.");
}

QString VersionCaption(int major, int minor, int revision) {
    return QCoreApplication::translate("frmAbout", "Quellpad-  Version %1.%2.%3A")
        .arg(major)
        .arg(minor)
        .arg(revision);
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    dialog_parts::SetUpWindow(this, "frmAbout", tr("About %1").arg(kApplicationTitle));
    auto* description = ui::MakeLabel(this, "lblDescription", AboutDescription());
    auto* disclaimer = ui::MakeLabel(this, "lblDisclaimer", AboutDisclaimer());
    auto* version = ui::MakeLabel(this, "lblVersion",
                                  VersionCaption(kVersionMajor, kVersionMinor, kVersionRevision));
    auto* ok = dialog_parts::DialogButton(this, "cmdOK", tr("OK"));
    ok->setDefault(true);
    auto* sysInfo = dialog_parts::DialogButton(this, "cmdSysInfo", tr("System Info"));
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
        ui::ShowMessage(this, {tr("System Information Is Unavailable At This Time"), {}});
    }
}

} // namespace quellpad
