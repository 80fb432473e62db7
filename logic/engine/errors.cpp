#include "errors.h"

#include <QCoreApplication>

namespace quellpad {

namespace {

QString Describe(int portNumber, const QString& device, PortFailure failure,
                 const QString& reason) {
    const QString port = QStringLiteral("COM %1 (%2)").arg(portNumber).arg(device);
    switch (failure) {
    case PortFailure::NoSuchPort:
        return QCoreApplication::translate("PortErrors",
                                           "%1 could not be opened: there is no such port (%2).")
            .arg(port, reason);
    case PortFailure::InUse:
        return QCoreApplication::translate(
                   "PortErrors", "%1 could not be opened: it is in use by another program (%2).")
            .arg(port, reason);
    case PortFailure::AccessRefused:
        return QCoreApplication::translate("PortErrors", "%1 could not be opened. %2")
            .arg(port, reason);
    case PortFailure::NotSerial:
        return QCoreApplication::translate(
                   "PortErrors", "%1 could not be opened: the device is not a serial port (%2).")
            .arg(port, reason);
    case PortFailure::BadSettings:
        return QStringLiteral("%1: %2").arg(port, reason);
    case PortFailure::WriteFailed:
        return QCoreApplication::translate("PortErrors", "%1 could not be written: %2.")
            .arg(port, reason);
    case PortFailure::Vanished:
        return QCoreApplication::translate("PortErrors",
                                           "%1 stopped working and has been closed: %2.")
            .arg(port, reason);
    case PortFailure::Other:
        break;
    }
    return QStringLiteral("%1: %2.").arg(port, reason);
}

} // namespace

QString QuoteValue(const QString& value, int most) {
    QString quoted;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        const QString shown =
            c.unicode() < 32 || c.unicode() == 127 || !c.isPrint()
                ? QStringLiteral("\\x") +
                      QString::number(c.unicode(), 16).toUpper().rightJustified(2, u'0')
                : QString(c);
        if (quoted.size() + shown.size() > most) {
            return quoted + QStringLiteral("...");
        }
        quoted += shown;
    }
    return quoted;
}

PortError::PortError(int portNumber, const QString& device, PortFailure failure,
                     const QString& reason)
    : QuellpadError(Describe(portNumber, device, failure, reason)), portNumber_(portNumber),
      device_(device), failure_(failure), reason_(reason) {}

} // namespace quellpad
