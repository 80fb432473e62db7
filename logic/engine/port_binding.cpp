#include "port_binding.h"

#include "errors.h"
#include "plain_file.h"
#include "settings_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QSerialPortInfo>
#include <QSettings>
#include <QUrl>

namespace quellpad {

namespace {

const QString kPortsGroup = QStringLiteral("Ports");

QString BindingKey(int portNumber) {
    return QStringLiteral("COM%1").arg(portNumber);
}

QString SchemeOf(const QString& binding) {
    const QString text = binding.trimmed();
    const qsizetype end = text.indexOf(QStringLiteral("://"));
    return end > 0 ? text.left(end).toLower() : QString();
}

} // namespace

QString BindingVariable(int portNumber) {
    return QStringLiteral("QUELLPAD_COM%1").arg(portNumber);
}

QString DefaultDevice(int portNumber) {
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(portNumber);
#else
    return QStringLiteral("/dev/ttyS%1").arg(portNumber - 1);
#endif
}

PortBinding ResolvePortBinding(int portNumber, const QString& bindingsPath) {
    const QString fromEnvironment =
        qEnvironmentVariable(BindingVariable(portNumber).toLatin1().constData()).trimmed();
    if (!fromEnvironment.isEmpty()) {
        return {fromEnvironment, BindingSource::Environment};
    }
    // What is no plain file is never opened (start-up would wait on a FIFO for ever); the
    // start-up problems tell the operator of it.
    if (!IsNoPlainFile(bindingsPath)) {
        const QSettings file(bindingsPath, QSettings::IniFormat);
        const QString chosen =
            file.value(kPortsGroup + u'/' + BindingKey(portNumber)).toString().trimmed();
        if (!chosen.isEmpty()) {
            return {chosen, BindingSource::BindingsFile};
        }
    }
    return {DefaultDevice(portNumber), BindingSource::Default};
}

PortBinding ResolvePortBinding(int portNumber) {
    return ResolvePortBinding(portNumber, BindingsFilePath());
}

void SavePortBinding(const QString& bindingsPath, int portNumber, const QString& binding) {
    if (IsNoPlainFile(bindingsPath)) {
        throw SettingsError(
            QCoreApplication::translate("PortBinding",
                                        "The choice of device for COM %1 could not be kept: "
                                        "%2.")
                .arg(portNumber)
                .arg(NotPlainFileText(QStringLiteral("Bindings.ini"), bindingsPath)));
    }
    QSettings file(bindingsPath, QSettings::IniFormat);
    file.setValue(kPortsGroup + u'/' + BindingKey(portNumber), binding.trimmed());
    file.sync();
    if (file.status() != QSettings::NoError) {
        throw SettingsError(
            QCoreApplication::translate(
                "PortBinding", "The choice of device for COM %1 could not be kept: %2 could not be "
                               "written. Check that its folder may be written.")
                .arg(portNumber)
                .arg(QDir::toNativeSeparators(bindingsPath)));
    }
}

bool IsSimulatedSiteBinding(const QString& binding) {
    return binding.trimmed().compare(kSimulatedSiteBinding, Qt::CaseInsensitive) == 0;
}

bool IsNetworkBinding(const QString& binding) {
    const QString scheme = SchemeOf(binding);
    return scheme == u"tcp" || scheme == u"rfc2217";
}

std::optional<NetworkAddress> ParseNetworkBinding(const QString& binding) {
    if (!IsNetworkBinding(binding)) {
        return std::nullopt;
    }
    const QUrl url(binding.trimmed(), QUrl::StrictMode);
    const int port = url.port();
    if (!url.isValid() || url.host().isEmpty() || port <= 0 || !url.path().isEmpty()) {
        return std::nullopt;
    }
    return NetworkAddress{SchemeOf(binding) == u"rfc2217", url.host(), static_cast<quint16>(port)};
}

std::optional<QString> BindingProblem(int portNumber, const QString& binding) {
    if (binding.trimmed().isEmpty()) {
        return QCoreApplication::translate(
                   "PortBinding", "Choose what COM %1 is bound to: a serial device, the simulated "
                                  "site, or a network server as tcp://host:port or "
                                  "rfc2217://host:port.")
            .arg(portNumber);
    }
    if (IsNetworkBinding(binding) && !ParseNetworkBinding(binding)) {
        return QCoreApplication::translate(
                   "PortBinding", "COM %1: \"%2\" names no server. Write it as tcp://host:port or "
                                  "rfc2217://host:port, with a port number from 1 to 65535.")
            .arg(portNumber)
            .arg(QuoteValue(binding.trimmed()));
    }
    return std::nullopt;
}

QString DeviceCaption(const QString& path, const QString& description,
                      std::optional<quint16> vendor, std::optional<quint16> product) {
    QString caption = path;
    if (!description.isEmpty()) {
        caption += QStringLiteral(" \u2014 ") + description;
    }
    if (vendor && product) {
        auto hex = [](quint16 id) {
            return QStringLiteral("%1").arg(id, 4, 16, QLatin1Char('0'));
        };
        caption += QStringLiteral(" (%1:%2)").arg(hex(*vendor), hex(*product));
    }
    return caption;
}

QList<DeviceChoice> AvailableDevices() {
    QList<DeviceChoice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        const QString path = info.systemLocation();
        devices.append({path, DeviceCaption(path, info.description(),
                                            info.hasVendorIdentifier()
                                                ? std::optional<quint16>(info.vendorIdentifier())
                                                : std::nullopt,
                                            info.hasProductIdentifier()
                                                ? std::optional<quint16>(info.productIdentifier())
                                                : std::nullopt)});
    }
    return devices;
}

} // namespace quellpad
