#include "frm_label.h"

#include "ui/controls.h"
#include "ui/key_filter.h"
#include "ui/proportional_layout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

namespace quellpad {

bool FrmLabel::LabelCharacter(QChar character, const QString&) {
    return (character >= u'A' && character <= u'Z') || (character >= u'0' && character <= u'9') ||
           character == u' ';
}

QSizeF FrmLabel::SizeForScreen(double screenHeightTwips) {
    if (screenHeightTwips <= 12000) {
        return {0.8 * screenHeightTwips, 0.3 * screenHeightTwips};
    }
    return {9600, 3600};
}

FrmLabel::FrmLabel(Quellpad_Support_Func& keyboard, QWidget* parent)
    : QDialog(parent), keyboard_(keyboard) {
    setObjectName(QStringLiteral("FrmLabel"));
    setWindowTitle(tr("Preset/Zone Label or Camera Title"));
    setModal(true);

    auto* label = ui::MakeLabel(this, "LabelLabel", tr("Label"));
    LabelTextBox = ui::MakeTextBox(this, "LabelTextBox", label);
    LabelTextBox->setMaxLength(kMaximumLength);
    LabelTextBox->setText(keyboard_.LabelText.left(kMaximumLength));
    // Lower-case letters are refused, not raised: the operator sees exactly what is sent.
    ui::FilterCharacters(LabelTextBox, &FrmLabel::LabelCharacter);
    connect(LabelTextBox, &QLineEdit::textChanged, this,
            [this](const QString& text) { keyboard_.LabelText = text; });
    // Enter closes the window; the label is already kept.
    connect(LabelTextBox, &QLineEdit::returnPressed, this, &QDialog::accept);

    auto* row = new QHBoxLayout(this);
    row->addWidget(label);
    row->addWidget(LabelTextBox, 1);

    const double twips = ui::TwipsPerPixel(this);
    const double screenHeight = screen() ? screen()->geometry().height() * twips : 0;
    const QSizeF size = SizeForScreen(screenHeight) / twips;
    resize(size.toSize());
    QFont font = LabelTextBox->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    LabelTextBox->setFont(font);
}

} // namespace quellpad
