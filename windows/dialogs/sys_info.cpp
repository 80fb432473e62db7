#include "about.h"

#include <QFileInfo>
#include <QProcess>

#ifdef Q_OS_WIN
#include <windows.h>

#include <cstring>
#endif

namespace quellpad {

#ifdef Q_OS_WIN
// The system's key handles are casts written in its own headers' style.
#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wold-style-cast"
#endif

namespace {

// A value of a machine-wide key: a string without its terminating zero, a 32-bit
// number as "&h" and its hexadecimal digits. The key is closed in every case.
bool GetKeyValue(HKEY root, const char* keyName, const char* valueName, QString& result) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, keyName, 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return false;
    }
    char buffer[1024] = {};
    DWORD type = 0;
    DWORD size = sizeof buffer;
    const LONG status =
        RegQueryValueExA(key, valueName, nullptr, &type, reinterpret_cast<LPBYTE>(buffer), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS) {
        return false;
    }
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        const DWORD length = size > 0 && buffer[size - 1] == '\0' ? size - 1 : size;
        result = QString::fromLocal8Bit(buffer, static_cast<qsizetype>(length));
        return true;
    }
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number = 0;
        std::memcpy(&number, buffer, sizeof number);
        result = QStringLiteral("&h") + QString::number(number, 16);
        return true;
    }
    return false;
}

} // namespace

bool StartSysInfo() {
    QString path;
    if (!GetKeyValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH",
                     path)) {
        QString folder;
        if (GetKeyValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO",
                        folder) &&
            QFileInfo::exists(folder + QStringLiteral("\\MSINFO32.EXE"))) {
            path = folder + QStringLiteral("\\MSINFO32.EXE");
        }
    }
    return !path.isEmpty() && QProcess::startDetached(path, {});
}

#else

// Other systems keep no such tool in a registry.
bool StartSysInfo() {
    return false;
}

#endif

} // namespace quellpad
