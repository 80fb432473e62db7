#include "engine/settings_location.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellpad::test {
namespace {

TEST(SettingsLocationTest, NamedFolderThenWritableAppFolderThenUserFolder) {
    struct Case {
        const char* name;
        SettingsCandidates candidates;
        QSet<QString> writable;
        QString chosen;
    };
    const QString named = QStringLiteral("/srv/quellpad");
    const QString app = QStringLiteral("/usr/bin");
    const QString user = QStringLiteral("/home/op/.config/Quellpad");
    const Case cases[] = {
        {"named folder wins even when read-only", {named, app, user}, {app}, named},
        {"unpacked copy keeps its settings beside it", {{}, app, user}, {app, user}, app},
        {"installed program uses the user's folder", {{}, app, user}, {user}, user},
        {"user folder not yet created", {{}, app, user}, {}, user},
        {"no user folder known", {{}, app, {}}, {}, app},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(ChooseSettingsDir(c.candidates,
                                    [&](const QString& dir) { return c.writable.contains(dir); })
                      .toStdString(),
                  c.chosen.toStdString());
    }
}

TEST(SettingsLocationTest, SharedProgramFoldersAreNeverSettingsFolders) {
    for (const char* shared : {"/usr/bin", "/usr/bin/", "/tmp/root/usr/bin", "/usr/local/bin"}) {
        EXPECT_TRUE(IsSharedProgramFolder(QLatin1String(shared))) << shared;
    }
    for (const char* own : {"/home/op/quellpad", "/opt/quellpad/bin", "/home/op/usr/binaries"}) {
        EXPECT_FALSE(IsSharedProgramFolder(QLatin1String(own))) << own;
    }
}

// `quellpad --settings-dir ~/site-a`, as the README shows it, on a first start: the folder
// is made, and the settings are kept there.
TEST(SettingsLocationTest, ANamedFolderThatDoesNotExistYetIsMade) {
    QTemporaryDir home;
    const QString named = home.filePath(QStringLiteral("site-a"));
    qputenv("QUELLPAD_SETTINGS_DIR", QFile::encodeName(named));
    const QString chosen = SettingsDir();
    qunsetenv("QUELLPAD_SETTINGS_DIR");
    EXPECT_EQ(chosen, named);
    EXPECT_TRUE(QFileInfo(named).isDir());
}

} // namespace
} // namespace quellpad::test
