#include "listen_line.h"

namespace quellpad::bus {

ListenLine::ListenLine(std::unique_ptr<SerialLine> line, QObject* parent)
    : QObject(parent), line_(std::move(line)) {
    connect(line_.get(), &SerialLine::CommEvent, this, &ListenLine::OnEvent);
    connect(line_.get(), &SerialLine::LineFailed, this, &ListenLine::Failed);
}

ListenLine::~ListenLine() {
    if (line_->IsOpen()) {
        line_->Close();
    }
}

void ListenLine::SetSettings(const QString& settings) {
    line_->SetSettings(settings);
}

void ListenLine::Open() {
    line_->Open();
}

void ListenLine::Close() {
    line_->Close();
}

void ListenLine::OnEvent(int code) {
    if (code != SerialLine::kDataReceived) {
        return;
    }
    // Taken in full each time, so that a flood waits in the line's own bounded buffer
    // rather than here.
    const QByteArray bytes = line_->Input();
    if (!bytes.isEmpty()) {
        emit Heard(bytes);
    }
}

} // namespace quellpad::bus
