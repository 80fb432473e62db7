#include "command_windows.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quellpad {

FrmLabel::FrmLabel(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FrmLabel"));
    setWindowTitle(QStringLiteral("Preset/Zone Label or Camera Title"));
    setModal(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(QStringLiteral("These commands are not available yet."), this));
    resize(360, 120);
}

} // namespace quellpad
