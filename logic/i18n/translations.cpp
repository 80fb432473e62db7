#include "i18n/translations.h"

#include "protocol/commands.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace quellpad {

namespace {

// Children of the application object, found again by this name when taken back.
const char* const kTranslatorName = "QuellpadTranslator";

// The catalogue's language once installed; empty when there is none for the locale.
QString Install(const QLocale& locale, const QString& catalogue, const QString& folder) {
    auto* translator = new QTranslator(QCoreApplication::instance());
    translator->setObjectName(QLatin1String(kTranslatorName));
    // Tries each language the locale lists, most particular first: de_AT, then de.
    if (!translator->load(locale, catalogue, QStringLiteral("_"), folder) ||
        !QCoreApplication::installTranslator(translator)) {
        delete translator;
        return {};
    }
    return translator->language();
}

bool IsEnglish(const QString& language) {
    return language == u"en" || language.startsWith(u"en_");
}

void TakeBack() {
    protocol::SetWordTranslator(nullptr);
    const auto translators = QCoreApplication::instance()->findChildren<QTranslator*>(
        QLatin1String(kTranslatorName), Qt::FindDirectChildrenOnly);
    for (QTranslator* translator : translators) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

// English has a catalogue too, for its counts only: "1 row", "2 rows".
void InstallEnglishCounts() {
    Install(QLocale(QLocale::English), QStringLiteral("quellpad"), QStringLiteral(":/i18n"));
}

std::string CommandWord(const char* english) {
    return QCoreApplication::translate("CommandWords", english).toStdString();
}

} // namespace

bool InstallTranslations(const QLocale& locale) {
    if (QCoreApplication::instance() == nullptr) {
        return false;
    }
    TakeBack();
    Install(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    const QString language = Install(locale, QStringLiteral("quellpad"), QStringLiteral(":/i18n"));
    if (language.isEmpty()) {
        InstallEnglishCounts();
        return false;
    }
    if (IsEnglish(language)) {
        return false;
    }
    // The decoders know no Qt; what they tell of a command comes through here.
    protocol::SetWordTranslator(&CommandWord);
    return true;
}

void RemoveTranslations() {
    if (QCoreApplication::instance() != nullptr) {
        TakeBack();
        InstallEnglishCounts();
    }
}

} // namespace quellpad
