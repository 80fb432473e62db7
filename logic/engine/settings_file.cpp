#include "settings_file.h"

#include "errors.h"
#include "plain_file.h"
#include "settings_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

namespace quellpad {

namespace {

constexpr int kBackupNames = 10;

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

SettingsRead ParseSettingsContent(const QByteArray& content, bool whole) {
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
    bool lastCut = false;
    if (lines.size() < 6 && start < content.size()) {
        lines.append(content.mid(start)); // a last line without its line end
        lastCut = !whole;
    }
    SettingsRead read;
    std::array<QString*, 6> targets{&read.fields.BaudRate,    &read.fields.Parity,
                                    &read.fields.HoldRts,     &read.fields.AvailablePorts,
                                    &read.fields.CurrentMode, &read.fields.EnabledPorts};
    QStringList damage;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool last = i == lines.size() - 1;
        if (lines[i].size() > kLongestSettingsLine || (last && lastCut)) {
            damage << QCoreApplication::translate("SettingsFile",
                                                  "line %1 is longer than %2 characters")
                          .arg(i + 1)
                          .arg(kLongestSettingsLine);
        } else if (HasControlCharacters(lines[i])) {
            damage << QCoreApplication::translate(
                          "SettingsFile", "line %1 holds characters that are not plain text")
                          .arg(i + 1);
        } else {
            *targets[static_cast<std::size_t>(i)] = QString::fromLatin1(lines[i]);
        }
    }
    read.damage = damage.join(QStringLiteral(", "));
    return read;
}

SettingsRead InspectSettingsFile(const QString& path) {
    if (IsNoPlainFile(path)) {
        SettingsRead refused;
        refused.notPlainFile = true;
        return refused;
    }
    QFile file(path);
    if (!file.exists()) {
        // Opening for append creates the file; a folder we cannot write to leaves it absent
        // and the defaults are used all the same.
        if (file.open(QIODevice::Append)) {
            file.close();
        }
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        SettingsRead unreadable;
        unreadable.damage = QCoreApplication::translate("SettingsFile", "it cannot be read: %1")
                                .arg(file.errorString());
        return unreadable;
    }
    // Six lines of the longest sensible length with their line ends; whatever follows is
    // ignored.
    const QByteArray content = file.read(6 * (kLongestSettingsLine + 2) + 1);
    return ParseSettingsContent(content, file.atEnd());
}

SettingsFields ReadSettingsFile(const QString& path) {
    return InspectSettingsFile(path).fields;
}

QByteArray SettingsContent(const SettingsFields& fields) {
    const QString text = QStringList{fields.BaudRate,       fields.Parity,      fields.HoldRts,
                                     fields.AvailablePorts, fields.CurrentMode, fields.EnabledPorts}
                             .join(QStringLiteral("\r\n")) +
                         QStringLiteral("\r\n");
    return text.toLatin1();
}

void WriteSettingsFile(const QString& path, const SettingsFields& fields) {
    if (IsNoPlainFile(path)) {
        throw SettingsError(NotPlainFileText(QStringLiteral("Settings.dat"), path) +
                            QCoreApplication::translate("SettingsFile", " and was not written."));
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw SettingsError(QCoreApplication::translate(
                                "SettingsFile", "Settings.dat could not be written to %1: %2.")
                                .arg(QDir::toNativeSeparators(path), file.errorString()));
    }
    file.write(SettingsContent(fields));
    if (!file.commit()) {
        throw SettingsError(QCoreApplication::translate(
                                "SettingsFile", "Settings.dat could not be written to %1: %2.")
                                .arg(QDir::toNativeSeparators(path), file.errorString()));
    }
}

QString KeepSettingsBackup(const QString& path) {
    for (int n = 0; n < kBackupNames; ++n) {
        const QString backup =
            path + (n == 0 ? QStringLiteral(".bak") : QStringLiteral(".bak.%1").arg(n));
        if (QFileInfo::exists(backup) || QFileInfo(backup).isSymLink()) {
            continue;
        }
        // Moved, not copied: a file this user may only write is kept all the same.
        QFile file(path);
        if (!file.rename(backup)) {
            throw SettingsError(
                QCoreApplication::translate("SettingsFile", "it could not be kept as %1 (%2)")
                    .arg(QFileInfo(backup).fileName(), file.errorString()));
        }
        return QFileInfo(backup).fileName();
    }
    throw SettingsError(QCoreApplication::translate(
                            "SettingsFile", "Settings.dat.bak to Settings.dat.bak.%1 are all taken")
                            .arg(kBackupNames - 1));
}

} // namespace quellpad
