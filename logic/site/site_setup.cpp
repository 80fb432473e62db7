#include "site_setup.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace quellpad::site {

namespace {

QString Group(int portNumber) {
    return QStringLiteral("COM%1").arg(portNumber);
}

} // namespace

QString SiteSetupPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Quellpad/Site.conf"));
}

std::optional<SiteSetup> StoredSiteSetup(int portNumber) {
    // Most keyboards never rewire their site: no file, nothing more to read at start-up.
    if (!QFileInfo::exists(SiteSetupPath())) {
        return std::nullopt;
    }
    QSettings stored(SiteSetupPath(), QSettings::IniFormat);
    stored.beginGroup(Group(portNumber));
    const QString cameras = stored.value(QStringLiteral("Cameras")).toString();
    const QString format = stored.value(QStringLiteral("LineSettings")).toString();
    SiteSetup setup;
    if (!ParseCameraAddresses(cameras.toStdString(), setup.wiring.cameras) ||
        !ParseLineFormat(format, setup.format)) {
        return std::nullopt;
    }
    return setup;
}

void KeepSiteSetup(int portNumber, const SiteSetup& setup) {
    QSettings stored(SiteSetupPath(), QSettings::IniFormat);
    stored.beginGroup(Group(portNumber));
    stored.setValue(QStringLiteral("Cameras"),
                    QString::fromStdString(CameraAddressesText(setup.wiring.cameras)));
    stored.setValue(QStringLiteral("LineSettings"), LineFormatText(setup.format));
}

void ApplySiteSetup(SimulatedLine& line, const SiteSetup& setup) {
    line.Rewire(setup.wiring);
    line.SetEquipmentFormat(setup.format);
}

} // namespace quellpad::site
