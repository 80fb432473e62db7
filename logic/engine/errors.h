#pragma once

#include <QString>

#include <stdexcept>

namespace quellpad {

// The one family of run-time errors. A handler that meets one ends there; the error
// boundary of the window tells the operator and the program goes on.
class QuellpadError : public std::runtime_error {
public:
    explicit QuellpadError(const QString& message)
        : std::runtime_error(message.toStdString()), message_(message) {}
    const QString& Message() const { return message_; }

private:
    QString message_;
};

// A number that does not fit the register or variable it is stored into.
class OverflowError : public QuellpadError {
public:
    using QuellpadError::QuellpadError;
};

enum class PortFailure {
    NoSuchPort,    // nothing answers at the bound device path
    InUse,         // the device exists but another program (or port object) holds it
    AccessRefused, // the device exists but this user may not open it
    NotSerial,     // the path is there but is not a serial device
    BadSettings,   // the line settings text cannot be applied
    WriteFailed,   // a byte could not be handed to the driver
    Vanished,      // the device went away while open (a USB adapter pulled out)
    Other,
};

class PortError : public QuellpadError {
public:
    PortError(int portNumber, const QString& device, PortFailure failure, const QString& reason);
    int PortNumber() const { return portNumber_; }
    const QString& Device() const { return device_; }
    PortFailure Failure() const { return failure_; }
    const QString& Reason() const { return reason_; }

private:
    int portNumber_;
    QString device_;
    PortFailure failure_;
    QString reason_;
};

// A value from the file or the operator as a message may quote it: at most `most`
// characters, control characters written as \xNN, and an ellipsis when it was cut.
QString QuoteValue(const QString& value, int most = 40);

class SettingsError : public QuellpadError {
public:
    using QuellpadError::QuellpadError;
};

} // namespace quellpad
