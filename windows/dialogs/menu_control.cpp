#include "menu_control.h"

#include "dialogs/dialog_parts.h"
#include "engine/words.h"
#include "ui/controls.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace quellpad {

namespace {

// The keys that have pictures, in the order of frmMenuControl::pictures_.
constexpr MenuKey kPictured[] = {MenuKey::Right, MenuKey::Left,     MenuKey::Up,
                                 MenuKey::Down,  MenuKey::IrisOpen, MenuKey::IrisClose};

int PictureIndex(MenuKey key) {
    for (int i = 0; i < 6; ++i) {
        if (kPictured[i] == key) {
            return i;
        }
    }
    return -1;
}

bool Pictured(MenuKey key) {
    return PictureIndex(key) >= 0;
}

void LoadRegisters(Quellpad_Support_Func& k, std::uint8_t command1, std::uint8_t command2,
                   std::uint8_t data1, std::uint8_t data2, const QString& ascii) {
    k.Command1 = command1;
    k.Command2 = command2;
    k.Data1 = data1;
    k.Data2 = data2;
    k.AsciiCommand = ascii;
}

// The iris commands have different bits in the two protocols; in the ASCII modes the
// frame registers keep their first byte, which no frame then uses.
std::uint8_t IrisBit(const Quellpad_Support_Func& k, std::uint8_t d, std::uint8_t p) {
    return k.CurrentMode == kModeD ? d : k.CurrentMode == kModeP ? p : k.Command1;
}

} // namespace

MenuKey MenuKeyOf(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Right:
        return MenuKey::Right;
    case Qt::Key_Left:
        return MenuKey::Left;
    case Qt::Key_Up:
        return MenuKey::Up;
    case Qt::Key_Down:
        return MenuKey::Down;
    case Qt::Key_O:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return MenuKey::IrisOpen;
    case Qt::Key_C:
        return MenuKey::IrisClose;
    case Qt::Key_M:
        return MenuKey::Menu;
    case Qt::Key_Escape:
        return MenuKey::Escape;
    default:
        return MenuKey::None;
    }
}

QString MenuControlInstructions() {
    return QCoreApplication::translate("frmMenuControl",
                                       "Enter menu commands via the arrow keys,\r\nthe \"O\" key "
                                       "for iris open, and the \"C\"\r\nkey for iris close.  Use "
                                       "the \"M\" key to\r\nobtain access to the menus.");
}

namespace {

namespace bit = protocol::bit;
using D = protocol::Direction;

// The ASCII texts of the arrows carry a speed of their own.
const QString kMenuSpeed = QStringLiteral("20");

QString Start(protocol::Direction direction) {
    return DirectionWord(protocol::Language::Ascii, direction, true);
}

} // namespace

MenuKeyOutcome MenuKeyDown(Quellpad_Support_Func& k, MenuKey key) {
    MenuKeyOutcome outcome;
    if (k.MenuKeyHeld || key == MenuKey::None) {
        return outcome;
    }
    // Pan and tilt at speed 32 in the frames; the ASCII texts carry their own 20.
    switch (key) {
    case MenuKey::Right:
        LoadRegisters(k, 0, bit::kPanRight, 32, 0, kMenuSpeed + Start(D::PanRight));
        break;
    case MenuKey::Left:
        LoadRegisters(k, 0, bit::kPanLeft, 32, 0, kMenuSpeed + Start(D::PanLeft));
        break;
    case MenuKey::Up:
        LoadRegisters(k, 0, bit::kTiltUp, 0, 32, kMenuSpeed + Start(D::TiltUp));
        break;
    case MenuKey::Down:
        LoadRegisters(k, 0, bit::kTiltDown, 0, 32, kMenuSpeed + Start(D::TiltDown));
        break;
    case MenuKey::IrisOpen:
        LoadRegisters(k, IrisBit(k, bit::kDIrisOpen, bit::kPIrisOpen), 0, 0, 0, Start(D::IrisOpen));
        break;
    case MenuKey::IrisClose:
        LoadRegisters(k, IrisBit(k, bit::kDIrisClose, bit::kPIrisClose), 0, 0, 0,
                      Start(D::IrisClose));
        break;
    case MenuKey::Menu:
        LoadRegisters(k, 0, protocol::code::kSetPreset, 0, protocol::preset::kMenu,
                      QString::number(protocol::preset::kMenu) + Word(protocol::Kind::SetPreset));
        break;
    case MenuKey::Escape:
        k.MenuKeyHeld = false;
        outcome.close = true;
        return outcome;
    case MenuKey::None:
        return outcome;
    }
    k.MenuKeyHeld = true;
    outcome.send = true;
    if (Pictured(key)) {
        outcome.showOn = key;
    }
    return outcome;
}

MenuKeyOutcome MenuKeyUp(Quellpad_Support_Func& k, MenuKey key) {
    MenuKeyOutcome outcome;
    if (!k.MenuKeyHeld || key == MenuKey::None) {
        return outcome;
    }
    k.MenuKeyHeld = false;
    if (key == MenuKey::Menu) {
        return outcome;
    }
    LoadRegisters(k, 0, 0, 0, 0, Word(protocol::Kind::StopAll));
    outcome.send = true;
    if (Pictured(key)) {
        outcome.showOff = key;
    }
    return outcome;
}

// ---------------------------------------------------------------------------------------
// The key pictures

MenuKeyPicture::MenuKeyPicture(QWidget* parent, const char* name, MenuKey key, bool on)
    : QWidget(parent), key_(key), on_(on) {
    setObjectName(QLatin1String(name));
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    static const char* const names[] = {QT_TR_NOOP("Right arrow"), QT_TR_NOOP("Left arrow"),
                                        QT_TR_NOOP("Up arrow"),    QT_TR_NOOP("Down arrow"),
                                        QT_TR_NOOP("Iris open"),   QT_TR_NOOP("Iris close")};
    const QString keyName = tr(names[PictureIndex(key)]);
    setAccessibleName(on ? tr("%1 held").arg(keyName) : keyName);
}

void MenuKeyPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(width(), height()) - 6.0;
    // A held key sits lower, as a pressed key cap does.
    const qreal sink = on_ ? 2.0 : 0.0;
    const QRectF cap((width() - side) / 2, (height() - side) / 2 + sink, side, side - 2);
    const qreal radius = side * 0.16;

    if (!on_) {
        QPainterPath shadow;
        shadow.addRoundedRect(cap.translated(0, 3), radius, radius);
        painter.fillPath(shadow, QColor(0x70, 0x70, 0x70));
    }
    QLinearGradient face(cap.topLeft(), cap.bottomLeft());
    if (on_) {
        face.setColorAt(0, QColor(0x3c, 0xd0, 0x5a));
        face.setColorAt(1, QColor(0x12, 0x88, 0x2c));
    } else {
        face.setColorAt(0, QColor(0xfa, 0xfa, 0xfa));
        face.setColorAt(1, QColor(0xd4, 0xd4, 0xd4));
    }
    QPainterPath body;
    body.addRoundedRect(cap, radius, radius);
    painter.fillPath(body, face);
    painter.setPen(QPen(on_ ? QColor(0x0b, 0x5c, 0x1d) : QColor(0x55, 0x55, 0x55), 1.5));
    painter.drawPath(body);

    const QColor ink = on_ ? Qt::white : QColor(0x30, 0x30, 0x30);
    const QPointF c = cap.center();
    const qreal r = side * 0.26;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    if (key_ == MenuKey::IrisOpen || key_ == MenuKey::IrisClose) {
        QFont letter = font();
        letter.setBold(true);
        letter.setPixelSize(std::max(8, static_cast<int>(side * 0.38)));
        painter.setFont(letter);
        painter.setPen(ink);
        const QRectF top(cap.left(), cap.top() + side * 0.08, cap.width(), cap.height() * 0.55);
        painter.drawText(top, Qt::AlignCenter,
                         key_ == MenuKey::IrisOpen ? QStringLiteral("O") : QStringLiteral("C"));
        QFont small = font();
        small.setPixelSize(std::max(6, static_cast<int>(side * 0.15)));
        painter.setFont(small);
        const QRectF bottom(cap.left(), cap.top() + cap.height() * 0.6, cap.width(),
                            cap.height() * 0.3);
        painter.drawText(bottom, Qt::AlignCenter,
                         key_ == MenuKey::IrisOpen ? tr("Iris Open") : tr("Iris Close"));
        return;
    }
    // An arrow head and shaft pointing right, turned to the key's direction.
    painter.translate(c);
    painter.rotate(key_ == MenuKey::Right  ? 0
                   : key_ == MenuKey::Down ? 90
                   : key_ == MenuKey::Left ? 180
                                           : 270);
    QPainterPath arrow;
    arrow.moveTo(r, 0);
    arrow.lineTo(0, -r * 0.85);
    arrow.lineTo(0, -r * 0.35);
    arrow.lineTo(-r, -r * 0.35);
    arrow.lineTo(-r, r * 0.35);
    arrow.lineTo(0, r * 0.35);
    arrow.lineTo(0, r * 0.85);
    arrow.closeSubpath();
    painter.drawPath(arrow);
}

// ---------------------------------------------------------------------------------------
// The window

frmMenuControl::frmMenuControl(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this) {
    dialog_parts::SetUpWindow(this, "frmMenuControl", tr("Arrow/Menu Control"));
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);

    InstructionsLabel = ui::MakeLabel(this, "InstructionsLabel", MenuControlInstructions());
    InstructionsLabel->setAlignment(Qt::AlignHCenter | Qt::AlignTop);

    static const char* const names[6][2] = {
        {"RightArrowOff", "RightArrowOn"}, {"LeftArrowOff", "LeftArrowOn"},
        {"UpArrowOff", "UpArrowOn"},       {"DownArrowOff", "DownArrowOn"},
        {"IrisOpenOff", "IrisOpenOn"},     {"IrisCloseOff", "IrisCloseOn"},
    };
    // The arrows surround the centre of a three-by-three field; the iris keys stand
    // apart on the right, open above close.
    static const int cells[6][2] = {{1, 2}, {1, 0}, {0, 1}, {2, 1}, {0, 4}, {2, 4}};
    auto* keys = new QGridLayout;
    keys->setColumnMinimumWidth(3, 24);
    for (int i = 0; i < 6; ++i) {
        for (int on = 0; on < 2; ++on) {
            auto* picture = new MenuKeyPicture(this, names[i][on], kPictured[i], on == 1);
            picture->setVisible(on == 0);
            pictures_[static_cast<std::size_t>(i)][static_cast<std::size_t>(on)] = picture;
            keys->addWidget(picture, cells[i][0], cells[i][1]);
        }
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(InstructionsLabel);
    column->addLayout(keys, 1);
    resize(460, 360);
}

void frmMenuControl::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    setFocus();
}

void frmMenuControl::keyPressEvent(QKeyEvent* event) {
    // The keyboard's own repeats of a held key are not presses of the operator.
    if (!event->isAutoRepeat()) {
        const MenuKey key = MenuKeyOf(event->key());
        boundary_.Run("Form_KeyDown", [&] { Form_KeyDown(key); });
    }
    event->accept();
}

void frmMenuControl::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) {
        const MenuKey key = MenuKeyOf(event->key());
        boundary_.Run("Form_KeyUp", [&] { Form_KeyUp(key); });
    }
    event->accept();
}

bool frmMenuControl::event(QEvent* event) {
    // Another window took the keys: the release of the held key would go to it, or
    // nowhere, and the camera would go on moving.
    if ((event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate) &&
        held_ != MenuKey::None) {
        boundary_.Run("Form_Deactivate", [&] { Form_KeyUp(held_); });
    }
    return QDialog::event(event);
}

void frmMenuControl::Form_KeyDown(MenuKey key) {
    const bool wasHeld = keyboard_.MenuKeyHeld;
    Apply(MenuKeyDown(keyboard_, key));
    if (!wasHeld && keyboard_.MenuKeyHeld) {
        held_ = key;
    }
}

void frmMenuControl::Form_KeyUp(MenuKey key) {
    if (keyboard_.MenuKeyHeld && key != MenuKey::None) {
        held_ = MenuKey::None;
    }
    Apply(MenuKeyUp(keyboard_, key));
}

void frmMenuControl::Apply(const MenuKeyOutcome& outcome) {
    if (outcome.showOn != MenuKey::None) {
        ShowPicture(outcome.showOn, true);
    }
    if (outcome.showOff != MenuKey::None) {
        ShowPicture(outcome.showOff, false);
    }
    if (outcome.send) {
        keyboard_.SendCommand();
    }
    if (outcome.close) {
        reject();
    }
}

void frmMenuControl::ShowPicture(MenuKey key, bool held) {
    const auto& pair = pictures_[static_cast<std::size_t>(PictureIndex(key))];
    pair[0]->setVisible(!held);
    pair[1]->setVisible(held);
}

} // namespace quellpad
