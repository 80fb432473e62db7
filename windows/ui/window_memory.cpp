#include "window_memory.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>

namespace quellpad::ui {

namespace {

QString GeometryKey(const QString& key) {
    return key + QStringLiteral("/Geometry");
}

QString FolderKey(const QString& key) {
    return key + QStringLiteral("/LastFolder");
}

void KeepGeometry(const QWidget* window, const QString& key) {
    WindowMemory()->setValue(GeometryKey(key), window->saveGeometry());
}

// Keeps the window's place each time it is hidden (closed by the operator, or with the
// keyboard).
class GeometryKeeper : public QObject {
public:
    GeometryKeeper(QWidget* window, const QString& key) : QObject(window), key_(key) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && watched == parent()) {
            KeepGeometry(static_cast<QWidget*>(watched), key_);
        }
        return false;
    }

private:
    QString key_;
};

} // namespace

QString WindowMemoryPath() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Quellpad/Windows.conf"));
}

std::unique_ptr<QSettings> WindowMemory() {
    // Read anew each time from the current location: the file is small and read rarely,
    // and the tests move the configuration folder.
    return std::make_unique<QSettings>(WindowMemoryPath(), QSettings::IniFormat);
}

void RememberWindow(QWidget* window, const QString& key) {
    const QByteArray geometry = WindowMemory()->value(GeometryKey(key)).toByteArray();
    if (!geometry.isEmpty()) {
        window->restoreGeometry(geometry);
    }
    window->installEventFilter(new GeometryKeeper(window, key));
    // The program ends with the window still up: no Hide reaches it before it goes.
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, window,
                     [window, key] {
                         if (window->isVisible()) {
                             KeepGeometry(window, key);
                         }
                     });
}

QString LastFolder(const QString& key) {
    const QString kept = WindowMemory()->value(FolderKey(key)).toString();
    if (!kept.isEmpty() && QFileInfo(kept).isDir()) {
        return kept;
    }
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void KeepLastFolder(const QString& key, const QString& chosenFile) {
    WindowMemory()->setValue(FolderKey(key), QFileInfo(chosenFile).absolutePath());
}

} // namespace quellpad::ui
