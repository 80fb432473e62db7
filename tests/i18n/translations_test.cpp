#include "i18n/translations.h"
#include "protocol/commands.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <functional>

namespace quellpad::test {
namespace {

struct Message {
    QString context;
    QString source;
    QString translation;
    bool finished = false;
};

// The catalogue as the sources mark their texts today: a copy brought up to date by lupdate
// exactly as the build's update_translations target does it.
std::vector<Message> CatalogueOfTheSources(QString& problems) {
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("quellpad_de.ts"));
    if (!QFile::copy(QStringLiteral(QUELLPAD_SOURCE_DIR "/i18n/quellpad_de.ts"), copy)) {
        problems = QStringLiteral("the catalogue i18n/quellpad_de.ts cannot be read");
        return {};
    }
    // The project's root as include path, as the build gives it: without it a class declared
    // in a header goes unrecognised and its texts land in the wrong context.
    QStringList arguments = {QStringLiteral("-I"),           QStringLiteral(QUELLPAD_SOURCE_DIR),
                             QStringLiteral("-no-obsolete"), QStringLiteral("-locations"),
                             QStringLiteral("none"),         QStringLiteral("-silent")};
    for (const QString& folderName : QStringLiteral(QUELLPAD_TRANSLATED_FOLDERS).split(u',')) {
        arguments << QStringLiteral(QUELLPAD_SOURCE_DIR "/") + folderName;
    }
    arguments << QStringLiteral("-ts") << copy;
    QProcess lupdate;
    lupdate.start(QStringLiteral(QUELLPAD_LUPDATE), arguments);
    if (!lupdate.waitForFinished(120000) || lupdate.exitCode() != 0) {
        problems =
            QStringLiteral("lupdate failed: ") + QString::fromUtf8(lupdate.readAllStandardError());
        return {};
    }
    // Warnings such as a tr() lupdate cannot read mean a text that never reaches the catalogue.
    problems = QString::fromUtf8(lupdate.readAllStandardError()).trimmed();

    QFile file(copy);
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    std::vector<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        if (!xml.readNextStartElement()) {
            continue;
        }
        if (xml.name() == u"name") {
            context = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (xml.name() == u"message") {
            messages.push_back({context, {}, {}, false});
        } else if (xml.name() == u"source") {
            messages.back().source = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (xml.name() == u"translation") {
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            messages.back().finished = type.isEmpty();
            messages.back().translation =
                xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    return messages;
}

QStringList Placeholders(const QString& text) {
    static const QRegularExpression placeholder(QStringLiteral("%L?\\d"));
    QStringList found;
    for (const auto& match : placeholder.globalMatch(text)) {
        found << match.captured();
    }
    found.sort();
    found.removeDuplicates();
    return found;
}

bool HasAccessKey(const QString& text) {
    return QString(text).remove(QStringLiteral("&&")).contains(u'&');
}

// Every marked text has German that an operator can use in its place: nothing left
// unfinished, the same values filled in, an access key where the English has one, the
// same spaces where the text is joined to others, and "..." where it opens a window.
TEST(Catalogue, EveryMarkedTextHasGermanThatFitsWhereTheEnglishStands) {
    QString problems;
    const std::vector<Message> messages = CatalogueOfTheSources(problems);
    EXPECT_TRUE(problems.isEmpty()) << problems.toStdString();
    ASSERT_GT(messages.size(), 500U) << "the catalogue lost its texts";

    const std::pair<const char*, std::function<bool(const Message&)>> rules[] = {
        {"has no German",
         [](const Message& m) {
             return m.finished && !m.translation.isEmpty();
         }},
        {"fills in other values",
         [](const Message& m) {
             return Placeholders(m.source) == Placeholders(m.translation);
         }},
        {"loses or gains its access key",
         [](const Message& m) {
             return HasAccessKey(m.source) == HasAccessKey(m.translation);
         }},
        {"is joined to other words without the English's spaces",
         [](const Message& m) {
             return m.source.startsWith(u' ') == m.translation.startsWith(u' ') &&
                    m.source.endsWith(u' ') == m.translation.endsWith(u' ');
         }},
        {"no longer says that it opens a window",
         [](const Message& m) {
             return !m.source.endsWith(QStringLiteral("...")) ||
                    m.translation.endsWith(QStringLiteral("..."));
         }},
    };
    for (const Message& message : messages) {
        for (const auto& [fault, holds] : rules) {
            EXPECT_TRUE(holds(message))
                << message.context.toStdString() << ": \"" << message.source.toStdString() << "\" "
                << fault << " (\"" << message.translation.toStdString() << "\")";
        }
    }
}

// German for a German locale, wherever it is spoken; English, the language the program is
// written in, for any other.
TEST(Translations, TheLocaleChoosesTheLanguageOfTextsAndOfCommandWords) {
    const auto english = qScopeGuard([] { RemoveTranslations(); });
    protocol::Command preset;
    preset.kind = protocol::Kind::GoPreset;
    preset.number = 5;
    const struct {
        const char* locale;
        bool german;
    } cases[] = {{"de_DE", true},  {"de_AT", true}, {"de_CH", true},
                 {"en_US", false}, {"C", false},    {"fr_FR", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.locale);
        EXPECT_EQ(InstallTranslations(QLocale(QLatin1String(c.locale))), c.german);
        EXPECT_EQ(QCoreApplication::translate("CommandLine", "Displays this help and exits."),
                  c.german ? QStringLiteral("Zeigt diese Hilfe an und beendet das Programm.")
                           : QStringLiteral("Displays this help and exits."));
        EXPECT_EQ(preset.Describe(), c.german ? "Preset anfahren 5" : "go to preset 5");
        RemoveTranslations();
        EXPECT_EQ(preset.Describe(), "go to preset 5") << "English again once taken back";
    }
}

} // namespace
} // namespace quellpad::test
