#pragma once

#include <QDialog>
#include <QString>

namespace quellpad {

inline const QString kApplicationTitle = QStringLiteral("Quellpad");

QString AboutDescription();
QString AboutDisclaimer();
// "Quellpad-  Version 1.0.3A" for version 1.0.3.
QString VersionCaption(int major, int minor, int revision);

// Starts the system's information tool where the system has one; false when it has none.
bool StartSysInfo();

// The program's description, a warning and its version.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

private:
    void cmdSysInfo_Click();
};

} // namespace quellpad
