#include "netline/tcp_link.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QStringList>

namespace quellpad {

namespace {

// Beside the program, or in the private library folder next to its own: the
// architecture's, ../lib/x86_64-linux-gnu/quellpad from bin/, once installed (a module
// there needs no ldconfig at installation), and ../lib/quellpad in the build tree.
QStringList ModuleCandidates() {
    const QString here = QCoreApplication::applicationDirPath();
    const QString name = QStringLiteral("quellpad_netline_module");
    return {here + QStringLiteral("/../lib/" QUELLPAD_LIBRARY_ARCHITECTURE "/quellpad/") + name,
            here + QStringLiteral("/../lib/quellpad/") + name, here + u'/' + name};
}

struct LoadedModule {
    TcpLinkFactory factory = nullptr;
    QString reason;
};

const LoadedModule& Module() {
    // Loaded once for the whole run: links made from it may live as long. The library
    // object going at exit leaves the module loaded.
    static QLibrary library;
    static const LoadedModule module = [] {
        LoadedModule loaded;
        QStringList tried;
        for (const QString& candidate : ModuleCandidates()) {
            library.setFileName(candidate);
            loaded.factory = reinterpret_cast<TcpLinkFactory>(library.resolve(kTcpLinkFactory));
            if (loaded.factory != nullptr) {
                return loaded;
            }
            tried << library.errorString();
        }
        loaded.reason = QCoreApplication::translate("NetworkLine",
                                                    "the network module could not be loaded (%1)")
                            .arg(tried.join(QStringLiteral("; ")));
        return loaded;
    }();
    return module;
}

} // namespace

std::unique_ptr<TcpLink> MakeTcpLink(TcpLink::Events events, QString& reason) {
    const LoadedModule& module = Module();
    if (module.factory == nullptr) {
        reason = module.reason;
        return nullptr;
    }
    return std::unique_ptr<TcpLink>(module.factory(&events));
}

} // namespace quellpad
