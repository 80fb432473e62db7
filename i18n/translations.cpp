#include "i18n/translations.h"

#include "protocol/commands.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace quellpad {

namespace {

// Children of the application object, found again by this name when taken back.
const char* const kTranslatorName = "QuellpadTranslator";

bool Install(const QLocale& locale, const QString& catalogue, const QString& folder) {
    auto* translator = new QTranslator(QCoreApplication::instance());
    translator->setObjectName(QLatin1String(kTranslatorName));
    // Tries each language the locale lists, most particular first: de_AT, then de.
    if (!translator->load(locale, catalogue, QStringLiteral("_"), folder) ||
        !QCoreApplication::installTranslator(translator)) {
        delete translator;
        return false;
    }
    return true;
}

std::string CommandWord(const char* english) {
    return QCoreApplication::translate("CommandWords", english).toStdString();
}

} // namespace

bool InstallTranslations(const QLocale& locale) {
    if (QCoreApplication::instance() == nullptr) {
        return false;
    }
    RemoveTranslations();
    Install(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!Install(locale, QStringLiteral("quellpad"), QStringLiteral(":/i18n"))) {
        return false;
    }
    // The decoders know no Qt; what they tell of a command comes through here.
    protocol::SetWordTranslator(&CommandWord);
    return true;
}

void RemoveTranslations() {
    protocol::SetWordTranslator(nullptr);
    if (QCoreApplication::instance() == nullptr) {
        return;
    }
    const auto translators = QCoreApplication::instance()->findChildren<QTranslator*>(
        QLatin1String(kTranslatorName), Qt::FindDirectChildrenOnly);
    for (QTranslator* translator : translators) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

} // namespace quellpad
