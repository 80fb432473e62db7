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

QString SettingsDir() {
    const SettingsCandidates candidates{
        qEnvironmentVariable("QUELLPAD_SETTINGS_DIR"), QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)};
    const QString dir = ChooseSettingsDir(candidates, [](const QString& path) {
        const QFileInfo info(path);
        return info.isDir() && info.isWritable();
    });
    if (dir == candidates.userDir) {
        // A first start after installation: the folder does not exist yet.
        QDir().mkpath(dir);
    }
    return dir;
}

QString BindingsFilePath() {
    return QDir(SettingsDir()).filePath(QStringLiteral("Bindings.ini"));
}

} // namespace quellpad
