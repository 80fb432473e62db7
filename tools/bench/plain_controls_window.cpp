// The keyboard's main window as plain Qt draws it, with none of the program in it: the same
// menus, controls and status bar, shown at the size the keyboard starts at. Set beside the
// bare window by scripts/measure-startup, it says what these controls cost on their own.
#include "console/window_size.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStatusBar>

namespace {

// As many of each as the main window has in the "D" mode; `hidden` more that a mode hides.
struct Controls {
    int labels, boxes, lists, buttons, hiddenLabels, hiddenBoxes, hiddenButtons;
};
constexpr Controls kMainWindow{13, 5, 3, 14, 5, 4, 15};
constexpr int kMenus = 8;
constexpr int kItemsPerMenu = 10;

} // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Plain controls"));
    for (int m = 0; m < kMenus; ++m) {
        QMenu* menu = window.menuBar()->addMenu(QStringLiteral("Menu &%1").arg(m + 1));
        for (int i = 0; i < kItemsPerMenu; ++i) {
            menu->addAction(QStringLiteral("Item %1...").arg(i + 1));
        }
    }
    auto* central = new QWidget;
    auto* grid = new QGridLayout(central);
    int placed = 0;
    const auto add = [&](QWidget* control, bool shown = true) {
        grid->addWidget(control, placed / 6, placed % 6);
        ++placed;
        control->setVisible(shown);
    };
    const Controls& c = kMainWindow;
    for (int i = 0; i < c.labels + c.hiddenLabels; ++i) {
        add(new QLabel(QStringLiteral("Label %1\nNumber").arg(i)), i < c.labels);
    }
    for (int i = 0; i < c.boxes + c.hiddenBoxes; ++i) {
        add(new QLineEdit(QString::number(i)), i < c.boxes);
    }
    for (int i = 0; i < c.lists; ++i) {
        auto* list = new QListWidget;
        for (int item = 0; item < 10; ++item) {
            list->addItem(QString::number(item));
        }
        add(list);
    }
    auto* log = new QPlainTextEdit;
    log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    add(log);
    for (int i = 0; i < c.buttons + c.hiddenButtons; ++i) {
        add(new QPushButton(QStringLiteral("Button %1").arg(i)), i < c.buttons);
    }
    for (const int options : {5, 4}) {
        auto* frame = new QGroupBox(QStringLiteral("Group"));
        auto* column = new QVBoxLayout(frame);
        for (int i = 0; i < options; ++i) {
            column->addWidget(new QRadioButton(QStringLiteral("Option %1").arg(i)));
        }
        add(frame);
    }
    add(new QWidget); // the joystick
    window.setCentralWidget(central);
    for (int port = 1; port <= 2; ++port) {
        window.statusBar()->addWidget(new QLabel(QStringLiteral("COM %1: closed").arg(port)), 1);
    }
    window.statusBar()->addPermanentWidget(new QLabel(QStringLiteral("Settings in ~/.config")));
    const double twips = 1440.0 / std::max(1, window.logicalDpiX());
    const QSize available = window.screen()->availableGeometry().size();
    window.resize(quellpad::StartWindowSize(available, twips));
    window.show();
    return QApplication::exec();
}
