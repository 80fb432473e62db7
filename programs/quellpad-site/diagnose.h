#pragma once

#include "bus/diagnosis.h"

#include <QString>

namespace quellpad::site_app {

// One line of --diagnose's output: "13:05:09  mute  sure 100 %  Camera 5 is ...".
QString DiagnosisLine(const bus::BusVerdict& verdict, const QString& time);

// Listens on `line` (a serial device, tcp://host:port, rfc2217://host:port) without ever
// writing to it and prints the diagnosis each time it changes, until a signal ends the
// event loop. Returns the exit status: 1 when the line cannot be opened.
int Diagnose(const QString& line);

} // namespace quellpad::site_app
