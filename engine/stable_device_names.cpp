#include "stable_device_names.h"

#include <QDir>
#include <QFileInfo>

namespace quellpad {

namespace {

// The device a path leads to, through any links; empty when nothing is there.
QString DeviceBehind(const QString& path) {
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

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
