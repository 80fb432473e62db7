#include "settings_file.h"

#include "errors.h"
#include "settings_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringList>

namespace quellpad {

namespace {

constexpr qint64 kLargestSensibleFile = 4096;

bool HasControlCharacters(const QByteArray& line) {
    for (const char c : line) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127) {
            return true;
        }
    }
    return false;
}

} // namespace

QString SettingsFilePath() {
    return QDir(SettingsDir()).filePath(QStringLiteral("Settings.dat"));
}

SettingsFields ReadSettingsFile(const QString& path) {
    QFile file(path);
    if (!file.exists()) {
        // Opening for append creates the file; a folder we cannot write to leaves it absent
        // and the defaults are used all the same.
        if (file.open(QIODevice::Append)) {
            file.close();
        }
    }
    SettingsFields fields;
    if (!file.open(QIODevice::ReadOnly)) {
        return fields;
    }
    const QByteArray content = file.read(kLargestSensibleFile);
    QList<QByteArray> lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < content.size() && lines.size() < 6; ++i) {
        if (content[i] == '\r' || content[i] == '\n') {
            lines.append(content.mid(start, i - start));
            if (content[i] == '\r' && i + 1 < content.size() && content[i + 1] == '\n') {
                ++i;
            }
            start = i + 1;
        }
    }
    if (lines.size() < 6 && start < content.size()) {
        lines.append(content.mid(start)); // a last line without its line end
    }
    std::array<QString*, 6> targets{&fields.BaudRate,    &fields.Parity,
                                    &fields.HoldRts,     &fields.AvailablePorts,
                                    &fields.CurrentMode, &fields.EnabledPorts};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!HasControlCharacters(lines[i])) {
            *targets[static_cast<std::size_t>(i)] = QString::fromLatin1(lines[i]);
        }
    }
    return fields;
}

void WriteSettingsFile(const QString& path, const SettingsFields& fields) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw SettingsError(QStringLiteral("Settings.dat could not be written to %1: %2.")
                                .arg(QDir::toNativeSeparators(path), file.errorString()));
    }
    const QString text = QStringList{fields.BaudRate,       fields.Parity,      fields.HoldRts,
                                     fields.AvailablePorts, fields.CurrentMode, fields.EnabledPorts}
                             .join(QStringLiteral("\r\n")) +
                         QStringLiteral("\r\n");
    file.write(text.toLatin1());
    if (!file.commit()) {
        throw SettingsError(QStringLiteral("Settings.dat could not be written to %1: %2.")
                                .arg(QDir::toNativeSeparators(path), file.errorString()));
    }
}

} // namespace quellpad
