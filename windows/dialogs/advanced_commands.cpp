#include "advanced_commands.h"

#include "protocol/vocabulary.h"

#include "ui/controls.h"
#include "ui/key_filter.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include <cmath>

namespace quellpad {

namespace code = protocol::code;

using dialog_parts::DialogButton;

const std::array<AdvancedFixedButton, 11> kAdvancedFixedButtons{{
    {"Frame1",
     "Label1",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Set Zero Position"),
     "SetZeroButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Set"),
     {0x00, code::kSetZeroPosition, 0x00, 0x00}},
    {"Frame1",
     "Label15",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Go To Zero Pan"),
     "GoToZeroButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Go"),
     {0x00, code::kGoPreset, 0x00, protocol::preset::kZeroPan}},
    {"Frame2",
     "Label6",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Pan Position"),
     "QueryPanButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryPan, 0, 0}},
    {"Frame2",
     "Label7",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Tilt Position"),
     "QueryTiltButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryTilt, 0, 0}},
    {"Frame2",
     "Label8",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Zoom Position"),
     "QueryZoomButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryZoom, 0, 0}},
    {"Frame2",
     "Label9",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Magnification"),
     "QueryMagButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryMagnification, 0, 0}},
    {"Frame2",
     "Label10",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Device Type"),
     "QueryDeviceButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryDevice, 0, 0}},
    {"Frame2",
     "Label11",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query Diagnostic Info"),
     "QueryDiagnosticButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Query"),
     {0x00, code::kQueryDiagnostic, 0, 0}},
    {"Frame3",
     "Label12",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Activate Echo Mode"),
     "ActivateEchoButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Activate"),
     {0x00, code::kEchoMode, 0, 0}},
    {"Frame3",
     "Label13",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Prepare Download"),
     "DownloadButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Prepare"),
     {0x00, code::kPrepareDownload, 0, 0}},
    {"Frame3",
     "Label14",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Start Download"),
     "StartDownloadButton",
     QT_TRANSLATE_NOOP("quellpad::FrmAdvancedCommands", "Start"),
     {0x00, code::kStartDownload, 0, 0}},
}};

namespace {

QString PanExpected() {
    return QCoreApplication::translate("FrmAdvancedCommands",
                                       "A value from 0 to 359.99 is expected.");
}
QString TiltExpected() {
    return QCoreApplication::translate("FrmAdvancedCommands",
                                       "Please enter a value between -180 and 180");
}
QString MagExpected() {
    return QCoreApplication::translate("FrmAdvancedCommands",
                                       "Expected magnification values are from 1 to 350.");
}
QString WarningTitle() {
    return QCoreApplication::translate("FrmAdvancedCommands", "Warning!");
}
QString ErrorTitle() {
    return QCoreApplication::translate("FrmAdvancedCommands", "Error");
}

ui::Message Warning(const QString& text) {
    return {text, WarningTitle(), ui::MessageButtons::Ok, ui::MessageIcon::Critical};
}
ui::Message ChangeError(const QString& text) {
    return {text, ErrorTitle(), ui::MessageButtons::OkCancel};
}

// Only text the box's keys could have typed is a number here; pasted letters, a minus
// sign in a box without one, or an exponent never become a command.
bool Typeable(const QString& text, bool minus) {
    static const QRegularExpression unsigned_(QStringLiteral("^[0-9]*\\.?[0-9]*$"));
    static const QRegularExpression signed_(QStringLiteral("^-?[0-9]*\\.?[0-9]*$"));
    return (minus ? signed_ : unsigned_).match(text).hasMatch();
}

// The conversion of a whole text to a number, which refuses anything that is not one.
std::optional<double> StrictNumber(const QString& text) {
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

SetRequest Refused(ui::Message message, bool clearBox = false) {
    return {std::nullopt, std::move(message), clearBox};
}

SetRequest Loads(std::uint8_t command2, double hundredths) {
    return {WithValue(command2, RoundHalfEven(hundredths)), std::nullopt, false};
}

bool TiltKey(QChar c, const QString& before) {
    return ui::DecimalNumber(c, before) || (c == u'-' && before.isEmpty());
}

} // namespace

SetRequest SetPanRequest(const QString& text) {
    const ui::Message expected{PanExpected(), {}};
    if (text.isEmpty() || !Typeable(text, false)) {
        return Refused(expected);
    }
    const double p = Val(text);
    if (p > 359.99) {
        return Refused(expected);
    }
    return Loads(code::kSetPan, p * 100);
}

SetRequest SetTiltRequest(const QString& text) {
    if (text.isEmpty()) {
        return Refused(Warning(TiltExpected()));
    }
    const double t = Val(text);
    if (!Typeable(text, true) || t < -180 || t > 180) {
        return Refused(Warning(TiltExpected()), true);
    }
    return Loads(code::kSetTilt, (t >= 0 ? t : t + 360) * 100);
}

SetRequest SetMagRequest(const QString& text) {
    if (text.isEmpty()) {
        return Refused({QCoreApplication::translate("FrmAdvancedCommands",
                                                    "Please enter the magnification value."),
                        {}});
    }
    const double m = Val(text);
    if (!Typeable(text, false) || m < 1 || m > 350) {
        return Refused({MagExpected(), {}});
    }
    return Loads(code::kSetMagnification, m * 100);
}

SetRequest SetZoomRequest(const QString& zoomLimit, const QString& setZoom) {
    if (zoomLimit.isEmpty() || setZoom.isEmpty()) {
        return Refused(Warning(QCoreApplication::translate(
            "FrmAdvancedCommands",
            "Either Zoom Limit or Set Zoom is empty, please enter the value")));
    }
    const auto z = StrictNumber(setZoom);
    const auto limit = StrictNumber(zoomLimit);
    // A zero zoom is refused, a zero limit only by the zoom being above it.
    if (!z || !limit || *z <= 0 || *limit < 0 || *z > *limit) {
        return Refused(Warning(QCoreApplication::translate(
            "FrmAdvancedCommands", "Either Zoom limit's or Set Zoom's values is not valid")));
    }
    const double zoom = Val(setZoom);
    const double full = Val(zoomLimit);
    double n = 65535 * zoom / full;
    if (!std::isfinite(n)) {
        n = 65535 * (zoom / full); // a zoom so large that 65535 times it is no number
    }
    return {WithValue(code::kSetZoom, RoundHalfEven(n)), std::nullopt, false};
}

std::optional<ui::Message> PanBoxRefusal(const QString& text) {
    if (Val(text) > 359.99) {
        return ChangeError(
            QCoreApplication::translate("FrmAdvancedCommands", "Values From 0 to 359.99 Expected"));
    }
    return std::nullopt;
}

std::optional<ui::Message> TiltBoxRefusal(const QString& text) {
    const double t = Val(text);
    if (t < -180 || t > 180) {
        return ChangeError(
            QCoreApplication::translate("FrmAdvancedCommands", "Values From -180 to 180 Expected"));
    }
    return std::nullopt;
}

std::optional<ui::Message> MagBoxRefusal(const QString& text) {
    // An empty or half-typed box ("0.", ".") counts as 0 and is refused at once.
    const double m = Val(text);
    if (m < 1 || m > 350) {
        return ChangeError(
            QCoreApplication::translate("FrmAdvancedCommands", "A Value of 1 to 350 Expected"));
    }
    return std::nullopt;
}

FrmAdvancedCommands::FrmAdvancedCommands(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this) {
    dialog_parts::SetUpWindow(this, "FrmAdvancedCommands", tr("Advanced Commands"));

    QGroupBox* frames[] = {
        ui::MakeFrame(this, "Frame1", tr("Set Position")),
        ui::MakeFrame(this, "Frame2", tr("Query")),
        ui::MakeFrame(this, "Frame3", tr("Miscellaneous")),
        ui::MakeFrame(this, "Frame4", tr("Set Zoom")),
    };
    QGridLayout* grids[4];
    for (int i = 0; i < 4; ++i) {
        grids[i] = new QGridLayout(frames[i]);
    }
    const auto row = [&](int frame, const char* labelName, const QString& labelText,
                         QLineEdit** box, const char* boxName, const char* buttonName,
                         const QString& caption) {
        QGridLayout* grid = grids[frame];
        const int at = grid->rowCount();
        QLabel* label = ui::MakeLabel(frames[frame], labelName, labelText);
        grid->addWidget(label, at, 0);
        if (box) {
            *box = ui::MakeTextBox(frames[frame], boxName, label);
            (*box)->setMinimumWidth(
                (*box)->fontMetrics().horizontalAdvance(QStringLiteral("-359.999")) + 16);
            grid->addWidget(*box, at, 1);
        }
        QPushButton* button = nullptr;
        if (buttonName) {
            button = DialogButton(frames[frame], buttonName, caption);
            // Several buttons read "Set" or "Query"; the row says which one.
            button->setAccessibleName(ui::RowActionName(labelText, caption));
            button->setAccessibleDescription(labelText);
            grid->addWidget(button, at, 2);
        }
        return button;
    };
    const auto fixed = [&](int frame, const AdvancedFixedButton& entry) {
        QPushButton* button = row(frame, entry.label, tr(entry.labelText), nullptr, nullptr,
                                  entry.name, tr(entry.caption));
        const CommandBytes bytes = entry.bytes;
        connect(button, &QPushButton::clicked, this, [this, entry, bytes] {
            boundary_.Run(entry.name, [&] { LoadCommand(keyboard_, bytes); });
        });
    };
    const auto frameOf = [](const AdvancedFixedButton& entry) {
        return entry.frame[5] - '1';
    };

    fixed(0, kAdvancedFixedButtons[0]);
    QPushButton* setPan = row(0, "Label2", tr("Set Pan Position"), &SetPanTextBox, "SetPanTextBox",
                              "SetPanButton", tr("Set "));
    QPushButton* setTilt = row(0, "Label3", tr("Set Tilt Position"), &SetTiltTextBox,
                               "SetTiltTextBox", "SetTiltButton", tr("Set"));
    QPushButton* setMag = row(0, "Label5", tr("Set Magnification"), &SetMagTextBox, "SetMagTextBox",
                              "SetMagButton", tr("Set"));
    for (const AdvancedFixedButton& entry : kAdvancedFixedButtons) {
        if (&entry != &kAdvancedFixedButtons[0]) {
            fixed(frameOf(entry), entry);
        }
    }
    row(3, "Label16", tr("Enter Zoom Limit"), &ZoomLimitTextBox, "ZoomLimitTextBox", nullptr, {});
    QPushButton* setZoom = row(3, "Label4", tr("Set Zoom Position"), &SetZoomTextBox,
                               "SetZoomTextBox", "SetZoomButton", tr("Set"));
    QPushButton* back = DialogButton(this, "AdvancedBackButton", tr("Back"));

    QFont face = font();
    face.setFamily(QStringLiteral("MS Sans Serif"));
    for (QWidget* w : findChildren<QWidget*>()) {
        if (qobject_cast<QLabel*>(w) || qobject_cast<QGroupBox*>(w)) {
            w->setFont(face);
        }
    }

    auto* layout = new QGridLayout(this);
    layout->addWidget(frames[0], 0, 0);
    layout->addWidget(frames[1], 0, 1);
    layout->addWidget(frames[2], 1, 0);
    layout->addWidget(frames[3], 1, 1);
    layout->addWidget(back, 2, 1, Qt::AlignRight);

    ui::FilterCharacters(SetPanTextBox, &ui::DecimalNumber);
    ui::FilterCharacters(SetMagTextBox, &ui::DecimalNumber);
    // A minus sign always starts a new entry.
    ui::FilterCharacters(SetTiltTextBox, &TiltKey, [this](QChar c) {
        if (c == u'-') {
            SetTiltTextBox->clear();
        }
        return true;
    });

    connect(setPan, &QPushButton::clicked, this, [this] {
        SetButton_Click("SetPanButton_Click", SetPanRequest(SetPanTextBox->text()), nullptr);
    });
    connect(setTilt, &QPushButton::clicked, this, [this] {
        SetButton_Click("SetTiltButton_Click", SetTiltRequest(SetTiltTextBox->text()),
                        SetTiltTextBox);
    });
    connect(setMag, &QPushButton::clicked, this, [this] {
        SetButton_Click("SetMagButton_Click", SetMagRequest(SetMagTextBox->text()), nullptr);
    });
    connect(setZoom, &QPushButton::clicked, this, [this] {
        SetButton_Click("SetZoomButton_Click",
                        SetZoomRequest(ZoomLimitTextBox->text(), SetZoomTextBox->text()), nullptr);
    });
    connect(SetPanTextBox, &QLineEdit::textChanged, this,
            [this] { BoxChange("SetPanTextBox_Change", SetPanTextBox, &PanBoxRefusal); });
    connect(SetTiltTextBox, &QLineEdit::textChanged, this,
            [this] { BoxChange("SetTiltTextBox_Change", SetTiltTextBox, &TiltBoxRefusal); });
    connect(SetMagTextBox, &QLineEdit::textChanged, this,
            [this] { BoxChange("SetMagTextBox_Change", SetMagTextBox, &MagBoxRefusal); });
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmAdvancedCommands::SetButton_Click(const char* entry, const SetRequest& request,
                                          QLineEdit* box) {
    boundary_.Run(entry, [&] {
        if (request.refusal) {
            ui::ShowMessage(this, *request.refusal);
            if (request.clearBox && box) {
                box->clear();
            }
            return;
        }
        if (request.bytes) {
            LoadCommand(keyboard_, *request.bytes);
        }
    });
}

void FrmAdvancedCommands::BoxChange(const char* entry, QLineEdit* box,
                                    std::optional<ui::Message> (*check)(const QString&)) {
    if (clearingBox_) {
        return;
    }
    boundary_.Run(entry, [&] {
        if (const auto refusal = check(box->text())) {
            ui::ShowMessage(this, *refusal);
            clearingBox_ = true;
            box->clear();
            clearingBox_ = false;
        }
    });
}

void FrmAdvancedCommands::done(int result) {
    // Whatever this window loaded goes no further once it is closed.
    boundary_.Run("Form_QueryUnload", [&] { keyboard_.ClearCommandBytes(); });
    QDialog::done(result);
}

} // namespace quellpad
