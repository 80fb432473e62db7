#include "frm_joystick.h"

#include "ui/controls.h"
#include "ui/window_memory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace quellpad {

namespace {
constexpr int kOfferedAxes = 8;
}

QComboBox* FrmJoystick::AxisList(const char* name, bool offerNone, int axis) {
    auto* list = new QComboBox(this);
    list->setObjectName(QLatin1String(name));
    if (offerNone) {
        list->addItem(tr("None"), kNoAxis);
    }
    for (int i = 0; i < kOfferedAxes; ++i) {
        list->addItem(tr("Axis %1").arg(i + 1), i);
    }
    list->setCurrentIndex(std::max(0, list->findData(axis)));
    return list;
}

FrmJoystick::FrmJoystick(const GamepadBindings& b, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FrmJoystick"));
    setWindowTitle(tr("Joystick"));
    setModal(false);

    ControllerLabel = new QLabel(this);
    ControllerLabel->setObjectName(QStringLiteral("ControllerLabel"));
    ShowController({});

    auto* stick = new QGroupBox(tr("Stick"), this);
    auto* axes = new QGridLayout(stick);
    PanAxisList = AxisList("PanAxisList", false, b.panAxis);
    TiltAxisList = AxisList("TiltAxisList", false, b.tiltAxis);
    ZoomAxisList = AxisList("ZoomAxisList", true, b.zoomAxis);
    InvertPanCheck = new QCheckBox(tr("Invert"), stick);
    InvertTiltCheck = new QCheckBox(tr("Invert"), stick);
    InvertZoomCheck = new QCheckBox(tr("Invert"), stick);
    const struct {
        const char* caption;
        QComboBox* list;
        QCheckBox* invert;
        const char* invertName;
        bool inverted;
    } rows[] = {
        {QT_TR_NOOP("&Pan"), PanAxisList, InvertPanCheck, "InvertPanCheck", b.invertPan},
        {QT_TR_NOOP("&Tilt"), TiltAxisList, InvertTiltCheck, "InvertTiltCheck", b.invertTilt},
        {QT_TR_NOOP("&Zoom"), ZoomAxisList, InvertZoomCheck, "InvertZoomCheck", b.invertZoom}};
    int row = 0;
    for (const auto& r : rows) {
        auto* label = new QLabel(tr(r.caption), stick);
        ui::SetBuddy(label, r.list);
        r.invert->setObjectName(QLatin1String(r.invertName));
        r.invert->setChecked(r.inverted);
        r.invert->setAccessibleName(tr("%1 Invert").arg(label->text().remove(QLatin1Char('&'))));
        axes->addWidget(label, row, 0);
        axes->addWidget(r.list, row, 1);
        axes->addWidget(r.invert, row, 2);
        ++row;
    }
    DeadZoneBox = new QSpinBox(stick);
    DeadZoneBox->setObjectName(QStringLiteral("DeadZoneBox"));
    DeadZoneBox->setRange(0, 90);
    DeadZoneBox->setSuffix(QStringLiteral(" %"));
    DeadZoneBox->setValue(static_cast<int>(std::lround(b.deadZone * 100)));
    auto* deadLabel = new QLabel(tr("&Dead zone"), stick);
    ui::SetBuddy(deadLabel, DeadZoneBox);
    axes->addWidget(deadLabel, row, 0);
    axes->addWidget(DeadZoneBox, row++, 1);
    CurveList = new QComboBox(stick);
    CurveList->setObjectName(QStringLiteral("CurveList"));
    CurveList->addItems({tr("Linear"), tr("Squared")});
    CurveList->setCurrentIndex(b.curve == StickCurve::Squared ? 1 : 0);
    auto* curveLabel = new QLabel(tr("&Response"), stick);
    ui::SetBuddy(curveLabel, CurveList);
    axes->addWidget(curveLabel, row, 0);
    axes->addWidget(CurveList, row, 1);

    auto* buttons = new QGroupBox(tr("Buttons"), this);
    auto* buttonRows = new QGridLayout(buttons);
    const QList<GamepadAction> actions = AllGamepadActions();
    for (int i = 0; i < kMappedButtons; ++i) {
        auto* list = new QComboBox(buttons);
        list->setObjectName(QStringLiteral("Button%1List").arg(i + 1));
        for (const GamepadAction& action : actions) {
            list->addItem(GamepadActionCaption(action));
        }
        list->setCurrentIndex(static_cast<int>(std::max<qsizetype>(
            0, actions.indexOf(i < b.buttons.size() ? b.buttons[i] : GamepadAction{}))));
        auto* label = new QLabel(tr("Button %1").arg(i + 1), buttons);
        ui::SetBuddy(label, list);
        // Two columns of eight keep the window short.
        buttonRows->addWidget(label, i % 8, (i / 8) * 2);
        buttonRows->addWidget(list, i % 8, (i / 8) * 2 + 1);
        buttonLists_[static_cast<std::size_t>(i)] = list;
        connect(list, &QComboBox::currentIndexChanged, this,
                [this] { emit BindingsChanged(CurrentBindings()); });
    }

    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::close);

    // What the window holds scrolls within it where the screen is too small for all of it
    // (a laptop's screen at a large scale); Close stays in view.
    auto* held = new QWidget;
    auto* heldLayout = new QVBoxLayout(held);
    heldLayout->setContentsMargins(0, 0, 0, 0);
    heldLayout->addWidget(ControllerLabel);
    heldLayout->addWidget(stick);
    heldLayout->addWidget(buttons);
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("JoystickScroll"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(held);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll, 1);
    layout->addWidget(close);

    auto changed = [this] {
        emit BindingsChanged(CurrentBindings());
    };
    for (QComboBox* list : {PanAxisList, TiltAxisList, ZoomAxisList, CurveList}) {
        connect(list, &QComboBox::currentIndexChanged, this, changed);
    }
    for (QCheckBox* check : {InvertPanCheck, InvertTiltCheck, InvertZoomCheck}) {
        connect(check, &QCheckBox::toggled, this, changed);
    }
    connect(DeadZoneBox, &QSpinBox::valueChanged, this, changed);
    ui::SizeWithinScreen(this, held->sizeHint() + QSize(40, close->sizeHint().height() + 40));
    ui::RememberWindow(this, QStringLiteral("Joystick"));
}

void FrmJoystick::ShowController(const QString& name) {
    ControllerLabel->setText(name.isEmpty() ? tr("No joystick connected")
                                            : tr("Controller: ") + name);
}

GamepadBindings FrmJoystick::CurrentBindings() const {
    GamepadBindings b;
    b.panAxis = PanAxisList->currentData().toInt();
    b.tiltAxis = TiltAxisList->currentData().toInt();
    b.zoomAxis = ZoomAxisList->currentData().toInt();
    b.invertPan = InvertPanCheck->isChecked();
    b.invertTilt = InvertTiltCheck->isChecked();
    b.invertZoom = InvertZoomCheck->isChecked();
    b.deadZone = DeadZoneBox->value() / 100.0;
    b.curve = CurveList->currentIndex() == 1 ? StickCurve::Squared : StickCurve::Linear;
    const QList<GamepadAction> actions = AllGamepadActions();
    for (const QComboBox* list : buttonLists_) {
        b.buttons.append(actions.value(list->currentIndex()));
    }
    return b;
}

} // namespace quellpad
