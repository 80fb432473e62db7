#include "quellpad/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

namespace quellpad {

namespace {

const QString kCom1 = QStringLiteral("com1");
const QString kCom2 = QStringLiteral("com2");
const QString kSettingsDir = QStringLiteral("settings-dir");

// Options that QGuiApplication takes out of the arguments itself; they are known here only
// so that they are not refused. The first take a value.
const char* const kQtValueOptions[] = {"platform",        "platformpluginpath",
                                       "platformtheme",   "plugin",
                                       "qwindowgeometry", "qwindowicon",
                                       "qwindowtitle",    "display",
                                       "geometry",        "style",
                                       "stylesheet",      "session"};
const char* const kQtFlagOptions[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

void Describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(QCoreApplication::translate(
        "CommandLine", "Control keyboard for CCTV cameras, switchers and multiplexers."));
    // "-platform offscreen" is one option, as Qt's own options are written.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    // Not addHelpOption(): its --help-all would list Qt's options, which this program
    // leaves to Qt unannounced.
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")},
                      QCoreApplication::translate("CommandLine", "Displays this help and exits.")});
    parser.addVersionOption();
    const QString binding = QCoreApplication::translate(
        "CommandLine",
        "Bind COM %1 to this device for this run: a serial device, \"sim\" for the simulated site, "
        "or tcp://host:port or rfc2217://host:port for a serial server. Wins over "
        "QUELLPAD_COM%1 and over the device chosen in the settings window.");
    const QString device = QCoreApplication::translate("CommandLine", "device");
    parser.addOption({kCom1, binding.arg(1), device});
    parser.addOption({kCom2, binding.arg(2), device});
    parser.addOption(
        {kSettingsDir,
         QCoreApplication::translate("CommandLine",
                                     "Keep Settings.dat and Bindings.ini in this folder. Wins over "
                                     "QUELLPAD_SETTINGS_DIR."),
         QCoreApplication::translate("CommandLine", "dir")});
    for (const char* name : kQtValueOptions) {
        QCommandLineOption option(QLatin1String(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : kQtFlagOptions) {
        QCommandLineOption option{QLatin1String(name)};
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

} // namespace

CommandLine ParseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    Describe(parser);
    CommandLine line;
    auto refuse = [&line](const QString& error) {
        line.action = CommandLine::Action::Refuse;
        line.error = error;
        return line;
    };
    if (!parser.parse(arguments)) {
        return refuse(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        line.action = CommandLine::Action::ShowHelp;
        return line;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        line.action = CommandLine::Action::ShowVersion;
        return line;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return refuse(QCoreApplication::translate("CommandLine", "Unexpected argument '%1'.")
                          .arg(parser.positionalArguments().constFirst()));
    }
    for (const QString& name : {kCom1, kCom2, kSettingsDir}) {
        // A blank value would leave the variable, or the default, in force unnoticed.
        if (parser.isSet(name) && parser.value(name).trimmed().isEmpty()) {
            return refuse(
                QCoreApplication::translate("CommandLine", "The value after '--%1' is empty.")
                    .arg(name));
        }
    }
    line.com1 = parser.value(kCom1).trimmed();
    line.com2 = parser.value(kCom2).trimmed();
    line.settingsDir = parser.value(kSettingsDir);
    return line;
}

QString CommandLineHelp() {
    QCommandLineParser parser;
    Describe(parser);
    return parser.helpText();
}

void ApplyCommandLine(const CommandLine& line) {
    const std::pair<const char*, const QString&> overrides[] = {
        {"QUELLPAD_COM1", line.com1},
        {"QUELLPAD_COM2", line.com2},
        {"QUELLPAD_SETTINGS_DIR", line.settingsDir}};
    for (const auto& [variable, value] : overrides) {
        if (!value.isEmpty()) {
            qputenv(variable, QFile::encodeName(value));
        }
    }
}

} // namespace quellpad
