#include "fixtures.h"
#include "protocol/frames.h"

#include "engine/errors.h"
#include "site/simulated_line.h"

#include <cmath>

namespace quellpad::test {
namespace {

using protocol::AsBytes;
using protocol::BuildDFrame;
using protocol::BuildDReply;
using protocol::BuildPFrame;
using site::Site;

std::string D(int address, int c1, int c2, int d1, int d2) {
    return BuildDFrame(address, static_cast<std::uint8_t>(c1), static_cast<std::uint8_t>(c2),
                       static_cast<std::uint8_t>(d1), static_cast<std::uint8_t>(d2));
}

// The label sequence of the keyboard: one character per frame from column 20 (preset) or
// column 0 (zone).
std::string Characters(int address, int column, const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        out += D(address, 0, 0x15, column + static_cast<int>(i), text[i]);
    }
    return out;
}

TEST(SimulatedCamera, PatternRecordedIsRunAgainUntilTheNextMotion) {
    Site site;
    const double start = site.Camera(1).Pan();
    site.Hear(AsBytes(D(1, 0, 0x1F, 0, 2) + D(1, 0, 0x02, 30, 0))); // record 2, pan right
    site.Advance(1.0);
    site.Hear(AsBytes(D(1, 0, 0x04, 30, 0))); // back left
    site.Advance(1.0);
    site.Hear(AsBytes(D(1, 0, 0, 0, 0) + D(1, 0, 0x21, 0, 2)));
    EXPECT_EQ(site.Camera(1).PatternRecording(), 0);
    EXPECT_NEAR(site.Camera(1).Pan(), start, 1e-6);

    site.Hear(AsBytes(D(1, 0, 0x23, 0, 2)));
    EXPECT_EQ(site.Camera(1).PatternRunning(), 2);
    site.Advance(0.5);
    EXPECT_NEAR(site.Camera(1).Pan() - start, 0.5 * site::DegreesPerSecond(30), 1e-6);
    site.Advance(1.5); // the left half
    EXPECT_NEAR(site.Camera(1).Pan(), start, 1e-6);
    site.Advance(0.25); // and round again
    EXPECT_GT(site.Camera(1).Pan(), start);
    site.Hear(AsBytes(D(1, 0, 0x10, 0, 20)));
    EXPECT_EQ(site.Camera(1).PatternRunning(), 0) << "a new motion ends the pattern";
}

TEST(SimulatedCamera, PresetAndZoneLabelsAreWrittenAtTheirColumns) {
    Site site;
    // The keyboard's preset label sequence, then the preset: recalled, it shows the label.
    site.Hear(AsBytes(Characters(1, 20, "DOCK") + D(1, 0, 0x03, 0, 9)));
    EXPECT_EQ(site.Camera(1).StoredPreset(9)->label, "DOCK");
    site.Hear(AsBytes(D(1, 0, 0x07, 0, 9)));
    EXPECT_EQ(site.Camera(1).PresetLabel(), "DOCK");
    site.Hear(AsBytes(D(1, 0, 0x17, 0, 0)));
    EXPECT_EQ(site.Camera(1).PresetLabel(), "") << "clear screen";

    // Zone start sequence (scan off, 20 characters, start), a pan, zone end sequence.
    site.Hear(AsBytes(D(1, 0, 0x1D, 0, 0) + Characters(1, 0, "YARD                ") +
                      D(1, 0, 0x11, 0, 3)));
    site.Hear(AsBytes(D(1, 0, 0x02, 64, 0)));
    site.Advance(0.3);
    site.Hear(AsBytes(D(1, 0, 0, 0, 0) + D(1, 0, 0x13, 0, 3) + D(1, 0, 0x1B, 0, 0)));
    const auto& zone = site.Camera(1).Zones()[2];
    ASSERT_TRUE(zone.start && zone.end);
    EXPECT_NEAR(*zone.end - *zone.start, 30.0, 1e-6);
    EXPECT_EQ(zone.label, "YARD");
    EXPECT_EQ(site.Camera(1).ZoneLabel(), "YARD") << "zone scan on, inside the zone";
    site.Hear(AsBytes(D(1, 0, 0x4B, 0, 0)));
    site.Advance(5);
    EXPECT_EQ(site.Camera(1).ZoneLabel(), "");
}

TEST(SimulatedCamera, PFramesDriveTheSameCameraAndAreNeverAnswered) {
    // A fresh site that heard the frames and answered nothing.
    const auto heard = [](const std::string& frames) {
        auto site = std::make_unique<Site>();
        EXPECT_EQ(site->Hear(AsBytes(frames)), "");
        return site;
    };
    const std::string aux2On = BuildPFrame(4, 0, 0x09, 0, 2);
    EXPECT_TRUE(heard(aux2On)->Camera(4).Aux().test(1));
    EXPECT_TRUE(heard(aux2On + BuildPFrame(4, 0, 0x0B, 0, 2))->Camera(4).Aux().none());
    EXPECT_EQ(heard(BuildPFrame(4, 0x01, 0, 0, 0))->Camera(4).Moving().focus, 1)
        << "focus far, P bit 0";
    EXPECT_EQ(heard(BuildPFrame(4, 0x08, 0, 0, 0))->Camera(4).Moving().iris, -1)
        << "iris close, P bit 3";
    EXPECT_EQ(heard(BuildPFrame(4, 0, 0x25, 0, 1))->Camera(4).Settings().zoomSpeed, 1);
    EXPECT_FALSE(heard(BuildPFrame(4, 0, 0x2B, 0, 1))->Camera(4).Settings().autoFocus);
    EXPECT_TRUE(heard(BuildPFrame(4, 0, 0x31, 0, 2))->Camera(4).Settings().backlight);
    EXPECT_EQ(heard(BuildPFrame(4, 0, 0x3B, 0x04, 0x00))->Camera(4).Settings().redGain, 1024);
    EXPECT_EQ(heard(BuildPFrame(4, 0, 0x49, 0, 0))->Camera(4).Pan(), 0.0) << "set zero position";
}

TEST(SimulatedCamera, SetPositionsAreReachedAndClampedToTheHeadsRange) {
    struct Case {
        std::uint8_t command;
        int value;
        double pan, tilt, magnification;
    };
    const Case cases[] = {
        {0x4B, 35999, 359.99, -10, 1}, // pan
        {0x4D, 1000, 0, 10, 1},        // tilt 10 up
        {0x4D, 27000, 0, -90, 1},      // 270: ninety down
        {0x4D, 18000, 0, 20, 1},       // 180: clamped to the highest
        {0x5F, 35000, 0, -10, 25},     // magnification 350: clamped to the lens's 25
        {0x4F, 65535, 0, -10, 25},     // zoom full travel
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        Site site;
        site.Hear(AsBytes(D(1, 0, 0x49, 0, 0))); // zero here
        site.Hear(AsBytes(D(1, 0, c.command, c.value / 256, c.value % 256)));
        site.Advance(10);
        EXPECT_NEAR(site.Camera(1).Pan(), c.pan, 1e-6);
        EXPECT_NEAR(site.Camera(1).Tilt(), c.tilt, 1e-6);
        EXPECT_NEAR(site.Camera(1).Magnification(), c.magnification, 1e-6);
        EXPECT_FALSE(site.Busy());
    }
}

TEST(SimulatedSwitcher, KeepsLocksMacrosSequencesToursTitlesAndTheTime) {
    Site site;
    site.Hear(AsBytes("2Ma6#aGa3Sa4qa9ta 6YaSTAIRS!aZa12/31/99/23:59:59a5Aa7xa"));
    const site::SimSwitcher& s = site.Switcher();
    EXPECT_EQ(s.LockedCameras(), (std::set<std::int64_t>{6}));
    EXPECT_EQ(s.Macro(), 3);
    EXPECT_EQ(s.Sequences().at(2), 4);
    EXPECT_EQ(s.Tour(), 9);
    EXPECT_EQ(s.Titles().at(6), "STAIRS");
    EXPECT_EQ(s.Time(), "12/31/99/23:59:59");
    EXPECT_EQ(s.AuxesOn(), (std::set<std::int64_t>{5}));
    EXPECT_EQ(s.GpisOn(), (std::set<std::int64_t>{7}));
    site.Advance(3.0); // one dwell: the sequence steps monitor 2 on, the tour steps it back
    EXPECT_EQ(s.CameraOn(2), 6);
    site.Hear(AsBytes("oa3Ha4ea9ra5Ba7~xa"));
    EXPECT_TRUE(s.LockedCameras().empty());
    EXPECT_EQ(s.Macro(), 0);
    EXPECT_TRUE(s.Sequences().empty());
    EXPECT_EQ(s.Tour(), 0);
    EXPECT_TRUE(s.AuxesOn().empty() && s.GpisOn().empty());
    EXPECT_FALSE(site.Busy());
}

TEST(SimulatedSwitcher, HandsPresetsWithTheirLabelsToTheCameraOnItsMonitor) {
    Site site;
    site.Hear(AsBytes("1Ma3#alaBACK DOOR!a4^a"));
    ASSERT_TRUE(site.Camera(3).StoredPreset(4).has_value());
    EXPECT_EQ(site.Camera(3).StoredPreset(4)->label, "BACK DOOR");
    site.Hear(AsBytes("12#a20La")); // camera 12 has no dome: nothing moves
    EXPECT_FALSE(site.Busy());
    site.Hear(AsBytes("3#a4\\a"));
    EXPECT_EQ(site.Camera(3).PresetLabel(), "BACK DOOR");
    EXPECT_EQ(site.CameraLog(3).back(), "via switcher: go to preset 4");
}

TEST(SimulatedMultiplexer, DigitalZoomWindowMovesWhileADirectionIsHeld) {
    Site site;
    site.Hear(AsBytes("ymdRm"));
    EXPECT_EQ(site.Multiplexer().Mode(), site::SimMultiplexer::Display::DigitalZoom);
    site.Advance(1.0);
    EXPECT_NEAR(site.Multiplexer().ZoomX(), 0.5, 1e-9);
    site.Hear(AsBytes("~dRm"));
    EXPECT_FALSE(site.Busy());
    site.Hear(AsBytes("im5#m"));
    EXPECT_EQ(site.Multiplexer().Mode(), site::SimMultiplexer::Display::Pip)
        << "a camera chosen in PIP goes into the inset";
    EXPECT_EQ(site.Multiplexer().Camera(), 5);
}

TEST(SimulatedLineTest, GarbleIsNeverAStartByteNorPrintable) {
    const site::LineFormat equipment;
    for (const site::LineFormat line :
         {site::LineFormat{9600, 'n', 8, 1}, site::LineFormat{2400, 'e', 8, 1},
          site::LineFormat{19200, 'o', 7, 2}}) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::uint8_t g = site::Garble(static_cast<std::uint8_t>(byte), line, equipment);
            EXPECT_TRUE(g >= 0x80 && g != 0xFF && g != 0xA0) << byte;
            EXPECT_EQ(g, site::Garble(static_cast<std::uint8_t>(byte), line, equipment));
        }
    }
}

// A controller that keeps its line busy for good, never letting it drain: what the pacer
// holds stays within its limit at every moment, on the keyboard's simulated line (gathered
// every 4 ms) and on a served line (every 10 ms) alike.
TEST(PacerTest, ALineNeverDrainedHoldsNoMoreThanItsLimit) {
    constexpr std::size_t kLimit = 4096;
    constexpr double kByteSeconds = 10.0 / 115200;
    for (const int deliveryMs : {4, 10}) {
        SCOPED_TRACE(deliveryMs);
        site::Pacer pacer(deliveryMs, kLimit);
        std::size_t arrived = 0;
        QObject::connect(&pacer, &site::Pacer::Arrived,
                         [&](const QByteArray& bytes) { arrived += bytes.size(); });
        const std::string answer = BuildDReply(1, 0x59, 0x1234);
        std::size_t most = 0;
        // Topped up to the limit all along, until twice the limit has left.
        WaitUntil(
            [&] {
                while (pacer.Send(answer, kByteSeconds)) {
                }
                most = std::max(most, pacer.Held());
                return arrived > 2 * kLimit;
            },
            20000);
        EXPECT_GT(arrived, 2 * kLimit);
        EXPECT_LE(most, kLimit);
    }
}

TEST(SimulatedLineTest, FloodOfQueriesNobodyReadsKeepsTheBuffersBounded) {
    site::SimulatedLine line(1);
    line.SetSettings(QStringLiteral("2400,n,8,1"));
    line.Open();
    const std::string query = BuildDFrame(1, 0, 0x51, 0, 0);
    for (int i = 0; i < 5000; ++i) {
        for (const char byte : query) {
            line.Output(static_cast<std::uint8_t>(byte));
        }
    }
    WaitUntil([] { return false; }, 300);
    EXPECT_LE(line.Input().size(), site::SimulatedLine::kReceiveBuffer);
    EXPECT_THROW(
        {
            line.Close();
            line.Output(0);
        },
        PortError);
    EXPECT_THROW(line.SetSettings(QStringLiteral("fast")), PortError);
}

} // namespace
} // namespace quellpad::test
