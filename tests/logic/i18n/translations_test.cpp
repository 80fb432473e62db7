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

// A text of a catalogue; a text with a count has one translation per form of its number.
struct Message {
    QString context;
    QString source;
    QStringList translations;
    bool finished = false;
};

// A catalogue as the sources mark their texts today: a copy brought up to date by lupdate
// exactly as the build's update_translations target does it.
std::vector<Message> CatalogueOfTheSources(const QString& name, QString& problems,
                                           const QStringList& options = {}) {
    QTemporaryDir folder;
    const QString copy = folder.filePath(name);
    if (!QFile::copy(QStringLiteral(QUELLPAD_SOURCE_DIR "/logic/i18n/") + name, copy)) {
        problems = QStringLiteral("the catalogue logic/i18n/%1 cannot be read").arg(name);
        return {};
    }
    // The floors' roots as include paths, as the build gives them: without them a class
    // declared in a header goes unrecognised and its texts land in the wrong context.
    QStringList arguments = {QStringLiteral("-no-obsolete"), QStringLiteral("-locations"),
                             QStringLiteral("none"), QStringLiteral("-silent")};
    for (const char* floor : {"/logic", "/windows", "/programs"}) {
        arguments << QStringLiteral("-I") << QStringLiteral(QUELLPAD_SOURCE_DIR) + floor;
    }
    arguments << options;
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
            Message& message = messages.back();
            message.finished = xml.attributes().value(QLatin1String("type")).isEmpty();
            // Either the text itself or one <numerusform> per form of the number.
            QString text;
            while (
                !(xml.readNext() == QXmlStreamReader::EndElement && xml.name() == u"translation") &&
                !xml.atEnd()) {
                if (xml.isCharacters()) {
                    text += xml.text();
                } else if (xml.name() == u"numerusform") {
                    message.translations
                        << xml.readElementText(QXmlStreamReader::IncludeChildElements);
                }
            }
            if (message.translations.isEmpty()) {
                message.translations << text;
            }
        }
    }
    return messages;
}

QStringList Placeholders(const QString& text) {
    static const QRegularExpression placeholder(QStringLiteral("%(L?\\d|n)"));
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

// What the catalogue's each translation, or each form of it, must keep of its English.
using Rule = std::function<bool(const QString& source, const QString& translation)>;

void ExpectEveryTranslationKeeps(const std::vector<Message>& messages,
                                 const std::vector<std::pair<const char*, Rule>>& rules) {
    for (const Message& message : messages) {
        const QString where = message.context + QStringLiteral(": \"") + message.source + u'"';
        EXPECT_TRUE(message.finished) << where.toStdString() << " is unfinished";
        for (const QString& translation : message.translations) {
            for (const auto& [fault, holds] : rules) {
                EXPECT_TRUE(holds(message.source, translation))
                    << where.toStdString() << " " << fault << " (\"" << translation.toStdString()
                    << "\")";
            }
        }
    }
}

// Every marked text has German that an operator can use in its place: nothing left
// unfinished, the same values filled in, an access key where the English has one, the
// same spaces where the text is joined to others, and "..." where it opens a window.
TEST(Catalogue, EveryMarkedTextHasGermanThatFitsWhereTheEnglishStands) {
    QString problems;
    const std::vector<Message> messages =
        CatalogueOfTheSources(QStringLiteral("quellpad_de.ts"), problems);
    EXPECT_TRUE(problems.isEmpty()) << problems.toStdString();
    ASSERT_GT(messages.size(), 500U) << "the catalogue lost its texts";
    ExpectEveryTranslationKeeps(
        messages,
        {{"has no German",
          [](const QString&, const QString& t) {
              return !t.isEmpty();
          }},
         {"fills in other values",
          [](const QString& s, const QString& t) {
              return Placeholders(s) == Placeholders(t);
          }},
         {"loses or gains its access key",
          [](const QString& s, const QString& t) {
              return HasAccessKey(s) == HasAccessKey(t);
          }},
         {"is joined to other words without the English's spaces",
          [](const QString& s, const QString& t) {
              return s.startsWith(u' ') == t.startsWith(u' ') &&
                     s.endsWith(u' ') == t.endsWith(u' ');
          }},
         {"no longer says that it opens a window", [](const QString& s, const QString& t) {
              return !s.endsWith(QStringLiteral("...")) || t.endsWith(QStringLiteral("..."));
          }}});
}

// A text with a count reads "1 row" and "2 rows" in English too: English has a catalogue
// of its counts, and every counted text of the sources is in it with both its forms.
TEST(Catalogue, EveryCountedTextHasItsEnglishSingularAndPlural) {
    QString problems;
    const std::vector<Message> messages = CatalogueOfTheSources(
        QStringLiteral("quellpad_en.ts"), problems, {QStringLiteral("-pluralonly")});
    EXPECT_TRUE(problems.isEmpty()) << problems.toStdString();
    ASSERT_GE(messages.size(), 7U) << "the counted texts left the catalogue";
    for (const Message& message : messages) {
        ASSERT_EQ(message.translations.size(), 2) << message.source.toStdString();
        EXPECT_NE(message.translations[0], message.translations[1])
            << message.source.toStdString() << ": one is said as many";
        EXPECT_EQ(message.translations[1], message.source) << "the plural is the source";
    }
    ExpectEveryTranslationKeeps(messages,
                                {{"fills in other values", [](const QString& s, const QString& t) {
                                      return Placeholders(s) == Placeholders(t) ||
                                             Placeholders(t).isEmpty(); // "once" for "%n times"
                                  }}});
}

// The traffic window's count of its rows, as it reads in the language installed.
std::string Rows(int count) {
    return QCoreApplication::translate("quellpad::traffic_window::FrmTraffic",
                                       "%n rows, %1 dropped%2", nullptr, count)
        .arg(0)
        .arg(QString())
        .toStdString();
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
        EXPECT_EQ(Rows(1), c.german ? "1 Zeile, 0 verworfen" : "1 row, 0 dropped");
        EXPECT_EQ(Rows(2), c.german ? "2 Zeilen, 0 verworfen" : "2 rows, 0 dropped");
        RemoveTranslations();
        EXPECT_EQ(preset.Describe(), "go to preset 5") << "English again once taken back";
        EXPECT_EQ(Rows(1), "1 row, 0 dropped") << "English keeps its counts";
    }
}

} // namespace
} // namespace quellpad::test
