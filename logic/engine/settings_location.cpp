#include "settings_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace quellpad {

QString ChooseSettingsDir(const SettingsCandidates& candidates,
                          const std::function<bool(const QString&)>& writable) {
    if (!candidates.namedDir.isEmpty()) {
        return candidates.namedDir;
    }
    if (!candidates.appDir.isEmpty() && writable(candidates.appDir)) {
        return candidates.appDir;
    }
    return candidates.userDir.isEmpty() ? candidates.appDir : candidates.userDir;
}

bool IsSharedProgramFolder(const QString& path) {
    const QString clean = QDir::cleanPath(path);
    if (clean == QLatin1String("/bin") || clean == QLatin1String("/sbin")) {
        return true;
    }
    for (const char* shared : {"/usr/bin", "/usr/sbin", "/usr/local/bin", "/usr/games"}) {
        if (clean.endsWith(QLatin1String(shared))) {
            return true;
        }
    }
    return false;
}

QString SettingsDir() {
    const SettingsCandidates candidates{
        qEnvironmentVariable("QUELLPAD_SETTINGS_DIR"), QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)};
    const QString dir = ChooseSettingsDir(candidates, [](const QString& path) {
        const QFileInfo info(path);
        return info.isDir() && info.isWritable() && !IsSharedProgramFolder(path);
    });
    if (dir == candidates.userDir || dir == candidates.namedDir) {
        // A first start after installation, or in a folder the operator names for a site:
        // the folder does not exist yet.
        QDir().mkpath(dir);
    }
    return dir;
}

QString BindingsFilePath() {
    return QDir(SettingsDir()).filePath(QStringLiteral("Bindings.ini"));
}

} // namespace quellpad
