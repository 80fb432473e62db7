#include "type_commands.h"

#include "dialogs/dialog_parts.h"
#include "engine/typed_line.h"
#include "ui/controls.h"
#include "ui/key_filter.h"
#include "ui/messages.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>

namespace quellpad {

namespace {

const QString kCrLf = QStringLiteral("\r\n");
const QString kQuote = QStringLiteral("\"");

bool HexMode(const QString& mode) {
    return IsFrameMode(mode) || mode == u"H";
}

// The lines sent while the program runs, oldest first, as a terminal keeps them.
QStringList& SentLines() {
    static QStringList lines;
    return lines;
}
constexpr qsizetype kHistoryLimit = 200;

} // namespace

QString TypeCommandsInstruction(const QString& mode) {
    if (IsAsciiMode(mode)) {
        return QCoreApplication::translate(
            "FrmTypeCmnds", "\r\nType ASCII bytes and send them by pressing the\"Enter\" key.  "
                            "For example; 1Ma would represent\r\nthe monitor 1 "
                            "select command.  ASCII command\r\nresponses will "
                            "appear below.");
    }
    return QCoreApplication::translate(
        "FrmTypeCmnds",
        "\r\nType Hexadecimal bytes and send them by pressing the\"Enter\" key.  For "
        "example; FF 01 00 00 00 00 01 would\r\nrepresent the camera 1 stop command "
        "in D Protocol.\r\nThe command response will appear below.");
}

bool TypedCommandKey(const QString& mode, QChar c) {
    if (HexMode(mode)) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f') ||
               c == u' ';
    }
    if (IsAsciiMode(mode)) {
        return c.unicode() < 128;
    }
    return true;
}

FrmTypeCmnds::FrmTypeCmnds(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard), boundary_(this), mode_(keyboard.CurrentMode) {
    dialog_parts::SetUpWindow(this, "FrmTypeCmnds", tr("Type Commands"));
    InstructionLabel = ui::MakeLabel(this, "InstructionLabel");
    auto* toSendLabel = ui::MakeLabel(this, "CommandToSendLabel", tr("Command To Send"));
    CommandToSendTextBox = ui::MakeTextBox(this, "CommandToSendTextBox", toSendLabel);
    CommandToSendTextBox->setMaxLength(kTypedLineLimit);
    ui::FilterCharacters(CommandToSendTextBox,
                         [this](QChar c, const QString&) { return TypedCommandKey(mode_, c); });
    CommandToSendTextBox->installEventFilter(this);
    auto* responseLabel = ui::MakeLabel(this, "CommandResponseLabel", tr("Command Response"));
    CommandResponseTextBox = new QPlainTextEdit(this);
    CommandResponseTextBox->setObjectName(QStringLiteral("CommandResponseTextBox"));
    CommandResponseTextBox->setReadOnly(true);
    CommandResponseTextBox->setUndoRedoEnabled(false);
    ui::SetBuddy(responseLabel, CommandResponseTextBox);
    // Bytes line up in columns when every digit is as wide as the next.
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    CommandToSendTextBox->setFont(fixed);
    CommandResponseTextBox->setFont(fixed);
    auto* column = new QVBoxLayout(this);
    column->addWidget(InstructionLabel);
    column->addWidget(toSendLabel);
    column->addWidget(CommandToSendTextBox);
    column->addWidget(responseLabel);
    column->addWidget(CommandResponseTextBox);
    resize(520, 300);

    recalled_ = SentLines().size();
    Prepare(mode_);
}

void FrmTypeCmnds::Prepare(const QString& mode) {
    mode_ = mode;
    InstructionLabel->setText(TypeCommandsInstruction(mode));
    ClearResponses();
}

void FrmTypeCmnds::ClearResponses() {
    received_.clear();
    CommandResponseTextBox->clear();
}

void FrmTypeCmnds::AppendResponse(const QString& response) {
    // The box holds one short reply at a time; a long history is of no use here.
    constexpr qsizetype kLimit = 50;
    if (received_.size() >= kLimit) {
        received_.clear();
    }
    received_ += response;
    CommandResponseTextBox->setPlainText(received_);
}

void FrmTypeCmnds::CommandToSendTextBox_Enter() {
    ClearResponses();
    const QString line = CommandToSendTextBox->text();
    CommandToSendTextBox->clear();
    if (!line.isEmpty() && (SentLines().isEmpty() || SentLines().constLast() != line)) {
        SentLines().append(line);
        if (SentLines().size() > kHistoryLimit) {
            SentLines().removeFirst();
        }
    }
    recalled_ = SentLines().size();

    TypedLine typed;
    if (IsAsciiMode(mode_)) {
        typed = TypedAsciiBytes(line);
    } else if (HexMode(mode_)) {
        typed = ParseTypedBytes(line);
        for (int i = 0; i < typed.unclosedQuotes; ++i) {
            ui::ShowMessage(this, {tr("No closing quote found."), {}});
        }
    } else {
        return;
    }
    if (typed.refused) {
        ui::ShowMessage(this, {tr("Nothing was sent: the line holds characters that "
                                  "are no bytes of this mode."),
                               {}});
        return;
    }
    keyboard_.WriteToOpenPorts(WireBytes(typed.bytes), WireBytes(typed.bytes));
}

void FrmTypeCmnds::Recall(int step) {
    const QStringList& lines = SentLines();
    // Lines typed in a mode of the other kind cannot be typed here and are passed over.
    const auto typeable = [this](const QString& line) {
        return std::all_of(line.begin(), line.end(),
                           [this](QChar c) { return TypedCommandKey(mode_, c); });
    };
    qsizetype to = recalled_ + step;
    while (to >= 0 && to < lines.size() && !typeable(lines[to])) {
        to += step;
    }
    if (to < 0 || to > lines.size()) {
        return;
    }
    recalled_ = to;
    // Past the newest line the box is empty again, ready for a new one.
    CommandToSendTextBox->setText(to < lines.size() ? lines[to] : QString());
}

bool FrmTypeCmnds::eventFilter(QObject* watched, QEvent* event) {
    if (watched == CommandToSendTextBox && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Enter sends whatever the box holds; the key itself goes no further.
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            boundary_.Run("CommandToSendTextBox_KeyPress", [&] { CommandToSendTextBox_Enter(); });
            return true;
        }
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            Recall(key == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace quellpad
