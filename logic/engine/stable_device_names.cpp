#include "stable_device_names.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <sys/sysmacros.h>
#endif

namespace quellpad {

namespace {

// The device a path leads to, through any links; empty when nothing is there.
QString DeviceBehind(const QString& path) {
    return QFileInfo(path).canonicalFilePath();
}

// The device itself, with no link on the way; a path whose device has gone (a dangling
// link) is followed as far as it leads.
QString ResolvedPath(const QString& path) {
    if (const QString device = DeviceBehind(path); !device.isEmpty()) {
        return device;
    }
    const QFileInfo info(path);
    return info.isSymLink() ? info.symLinkTarget() : path;
}

bool IsPseudoTerminal(const QString& device) {
#ifdef Q_OS_LINUX
    // The kernel's pseudo-terminal devices, however they are reached.
    constexpr unsigned kFirstPtyMajor = 136;
    constexpr unsigned kLastPtyMajor = 143;
    struct stat info {};
    if (::stat(QFile::encodeName(device).constData(), &info) == 0 && S_ISCHR(info.st_mode)) {
        return major(info.st_rdev) >= kFirstPtyMajor && major(info.st_rdev) <= kLastPtyMajor;
    }
#endif
    return device.startsWith(QLatin1String("/dev/pts/"));
}

// The device's place in the system's device tree and the serial number of the nearest
// device above it that has one (a USB adapter's); empty where the system tells nothing.
QString HardwareOf(const QString& device) {
#ifdef Q_OS_LINUX
    const QString place =
        DeviceBehind(QStringLiteral("/sys/class/tty/%1/device").arg(QFileInfo(device).fileName()));
    if (place.isEmpty()) {
        return {};
    }
    for (QDir dir(place); dir.path() != QLatin1String("/sys") && dir.cdUp();) {
        QFile serial(dir.filePath(QStringLiteral("serial")));
        if (serial.open(QIODevice::ReadOnly)) {
            return place + u' ' + QString::fromLatin1(serial.readAll().trimmed());
        }
    }
    return place;
#else
    Q_UNUSED(device);
    return {};
#endif
}

} // namespace

DeviceIdentity IdentifyDevice(const QString& binding, const QList<StableName>& names) {
    const QString path = binding.trimmed();
    if (!path.startsWith(u'/')) {
        return {}; // the simulated site, a server: nothing to mistake for another
    }
    DeviceIdentity identity;
    const QString device = ResolvedPath(path);
    identity.pseudoTerminal = IsPseudoTerminal(device);
    for (const StableName& name : names) {
        if (name.target == device || name.path == path) {
            identity.stableNames << name.path;
        }
    }
    if (!identity.pseudoTerminal && !DeviceBehind(path).isEmpty()) {
        identity.hardware = HardwareOf(device);
    }
    return identity;
}

DeviceIdentity IdentifyDevice(const QString& binding) {
    return IdentifyDevice(binding, StableNames(StableNameFolder()));
}

bool SameDevice(const DeviceIdentity& before, const DeviceIdentity& now) {
    if (!before.stableNames.isEmpty()) {
        for (const QString& name : before.stableNames) {
            if (now.stableNames.contains(name)) {
                return true;
            }
        }
        return false;
    }
    if (before.pseudoTerminal || now.pseudoTerminal) {
        return false;
    }
    return before.hardware.isEmpty() || before.hardware == now.hardware;
}

QString StableNameFolder() {
    const QString named = qEnvironmentVariable("QUELLPAD_SERIAL_BY_ID_DIR");
    return named.isEmpty() ? QStringLiteral("/dev/serial/by-id") : named;
}

QList<StableName> StableNames(const QString& folder) {
    QList<StableName> names;
    const QDir dir(folder);
    // A link whose adapter is unplugged is gone from the system's folder; in a folder of
    // links for the tests it dangles, and is left out alike.
    for (const QString& entry : dir.entryList(QDir::System | QDir::Files, QDir::Name)) {
        const QString path = dir.filePath(entry);
        if (const QString target = DeviceBehind(path); !target.isEmpty()) {
            names.append({path, target});
        }
    }
    return names;
}

QList<DeviceChoice> WithStableNames(const QList<DeviceChoice>& devices,
                                    const QList<StableName>& names) {
    QList<DeviceChoice> stable;
    for (const StableName& name : names) {
        // The caption of the device the name points to, its own path replaced; a device
        // the system does not list (a link to a pseudo-terminal) is named by its path.
        QString described = QStringLiteral(" \u2014 ") + name.target;
        for (const DeviceChoice& device : devices) {
            if (DeviceBehind(device.path) == name.target || device.path == name.target) {
                described = device.caption.mid(device.path.size());
                break;
            }
        }
        stable.append({name.path, name.path + described});
    }
    return stable + devices;
}

QString PreferStableName(const QString& binding, const QList<StableName>& names) {
    const QString path = binding.trimmed();
    if (!path.startsWith(u'/')) {
        return binding; // the simulated site, a server, a Windows port name
    }
    for (const StableName& name : names) {
        if (name.path == path) {
            return binding;
        }
    }
    const QString device = DeviceBehind(path);
    for (const StableName& name : names) {
        if (name.target == device || name.target == path) {
            return name.path;
        }
    }
    return binding;
}

QList<DeviceChoice> ChooserDevices() {
    return WithStableNames(AvailableDevices(), StableNames(StableNameFolder()));
}

QString PreferStableName(const QString& binding) {
    return PreferStableName(binding, StableNames(StableNameFolder()));
}

} // namespace quellpad
