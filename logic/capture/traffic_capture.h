#pragma once

#include "camera_timeline.h"
#include "pcapng.h"

#include "traffic/traffic_row.h"

#include <QString>

#include <vector>

namespace quellpad::capture {

// The line a row of the traffic monitor crossed, as a capture describes it: "COM 1",
// "COM 2" or "Listen", with its device and line settings.
struct PortLine {
    int port = 1;
    QString device;
    QString settings;
};

// The packet a row of the traffic monitor stands for, on the interface of its port
// (COM 1 first, in the order of `ports`).
Packet RowPacket(const traffic::TrafficRow& row, std::uint32_t interface);

// Writes the rows as a capture, one interface per port and one packet per row; throws
// CaptureError naming the file and the reason.
void SaveCapture(const QString& path, const std::vector<const traffic::TrafficRow*>& rows,
                 const std::vector<PortLine>& ports);

// Where each camera pointed, rebuilt from the traffic monitor's rows as from a capture.
std::vector<CameraPoint> RowsTimeline(const std::vector<const traffic::TrafficRow*>& rows,
                                      const ReceiverModel& model);

} // namespace quellpad::capture
