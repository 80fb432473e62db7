#include "traffic_capture.h"

#include "capture_writer.h"

namespace quellpad::capture {

Packet RowPacket(const traffic::TrafficRow& row, std::uint32_t interface) {
    Packet packet;
    packet.interface = interface;
    packet.atUs = row.atUs;
    packet.inbound = row.way == traffic::Way::Received;
    packet.language = row.language;
    if (row.port == traffic::kListenPort) {
        packet.side = Side::Heard;
    } else {
        packet.side = row.way == traffic::Way::Sent ? Side::Controller : Side::Equipment;
    }
    packet.bytes = row.bytes.toStdString();
    return packet;
}

void SaveCapture(const QString& path, const std::vector<const traffic::TrafficRow*>& rows,
                 const std::vector<PortLine>& ports) {
    std::vector<Interface> lines;
    for (const PortLine& port : ports) {
        lines.push_back({traffic::PortName(port.port), port.device, port.settings});
    }
    CaptureWriter writer(path, lines);
    for (const traffic::TrafficRow* row : rows) {
        for (std::size_t i = 0; i < ports.size(); ++i) {
            if (ports[i].port == row->port) {
                writer.Write(RowPacket(*row, static_cast<std::uint32_t>(i)));
            }
        }
    }
    writer.Flush();
}

std::vector<CameraPoint> RowsTimeline(const std::vector<const traffic::TrafficRow*>& rows,
                                      const ReceiverModel& model) {
    CameraTimeline timeline(model);
    for (const traffic::TrafficRow* row : rows) {
        timeline.Add(RowPacket(*row, static_cast<std::uint32_t>(row->port)));
    }
    return timeline.Points();
}

} // namespace quellpad::capture
