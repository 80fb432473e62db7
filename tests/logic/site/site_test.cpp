#include "fixtures.h"
#include "protocol/frames.h"

#include "site/simulated_line.h"

#include <QElapsedTimer>

#include <cmath>

namespace quellpad::test {
namespace {

using protocol::AsBytes;
using protocol::BuildDFrame;
using protocol::BuildPFrame;
using site::Site;

std::string Hex(const std::string& bytes) {
    return QByteArray::fromStdString(bytes).toHex(' ').toStdString();
}

TEST(SimulatedCamera, QueriesAnswerInTheUnitsOfTheSetCommandsByteExact) {
    Site site;
    // Set pan 123.45, tilt -10 (sent as 350.00), zoom half way, then let it travel there.
    EXPECT_EQ(Hex(site.Hear(AsBytes(BuildDFrame(1, 0, 0x4B, 0x30, 0x39)))), "ff 01 00 01");
    site.Hear(AsBytes(BuildDFrame(1, 0, 0x4D, 0x88, 0xB8)));
    site.Hear(AsBytes(BuildDFrame(1, 0, 0x4F, 0x80, 0x00)));
    site.Advance(10);
    struct Case {
        std::uint8_t query;
        const char* reply;
    };
    const Case cases[] = {
        {0x51, "ff 01 00 59 30 39 c3"}, // 12345 hundredths of a degree
        {0x53, "ff 01 00 5b 88 b8 9c"}, // 35000: ten degrees down
        {0x55, "ff 01 00 5d 80 00 de"}, // 32768 of 65535
        {0x61, "ff 01 00 63 05 14 7d"}, // 1 + 0.5 x 24 = 13.00x -> 1300
        {0x6B, "ff 01 00 01"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Hex(site.Hear(AsBytes(BuildDFrame(1, 0, c.query, 0, 0)))), c.reply);
    }
    // Nothing is answered in P, nor at an address where no camera is, nor for a bad check.
    EXPECT_EQ(site.Hear(AsBytes(BuildPFrame(1, 0, 0x51, 0, 0))), "");
    EXPECT_EQ(site.Hear(AsBytes(BuildDFrame(9, 0, 0x51, 0, 0))), "");
    std::string bad = BuildDFrame(1, 0, 0x51, 0, 0);
    bad[6] = 0;
    EXPECT_EQ(site.Hear(AsBytes(bad)), "");
    EXPECT_EQ(site.Rejected(), 1u);
}

TEST(SimulatedCamera, MovesAtTheCommandedSpeedWithinItsTiltRange) {
    Site site;
    const double pan = site.Camera(2).Pan();
    site.Hear(AsBytes(BuildDFrame(2, 0, 0x02 | 0x10, 40, 63))); // right 40, down 63
    site.Advance(1.5);
    EXPECT_NEAR(site.Camera(2).Pan() - pan, 1.5 * site::DegreesPerSecond(40), 1e-6);
    EXPECT_EQ(site.Camera(2).Tilt(), site::kTiltLowest);
    site.Hear(AsBytes(BuildDFrame(2, 0, 0, 0, 0)));
    EXPECT_FALSE(site.Busy());
    EXPECT_LT(site::DegreesPerSecond(7), 1.5);
    EXPECT_DOUBLE_EQ(site::DegreesPerSecond(64), 100.0);
}

TEST(SimulatedCamera, PresetNinetyFiveOpensTheMenuWhichTheArrowsStep) {
    Site site;
    const auto send = [&site](int c1, int c2, int d1, int d2) {
        site.Hear(
            AsBytes(BuildDFrame(1, static_cast<std::uint8_t>(c1), static_cast<std::uint8_t>(c2),
                                static_cast<std::uint8_t>(d1), static_cast<std::uint8_t>(d2))));
    };
    send(0, 0x03, 0, 95);
    ASSERT_TRUE(site.Camera(1).MenuOpen());
    const double pan = site.Camera(1).Pan();
    send(0, 0x10, 0, 32); // down arrow held
    send(0, 0, 0, 0);
    send(0, 0x10, 0, 32);
    send(0, 0, 0, 0);
    EXPECT_EQ(site.Camera(1).MenuCursor(), 2);
    EXPECT_EQ(site.Camera(1).MenuLines()[3].substr(0, 11), "> BACKLIGHT");
    send(0x02, 0, 0, 0); // iris open selects: backlight on
    send(0, 0, 0, 0);
    EXPECT_TRUE(site.Camera(1).Settings().backlight);
    send(0x04, 0, 0, 0); // iris close leaves the menu
    EXPECT_FALSE(site.Camera(1).MenuOpen());
    EXPECT_EQ(site.Camera(1).Pan(), pan) << "the head does not move while the menu is up";
}

TEST(SimulatedSwitcher, RoutesStepsAlarmsAndHandsMotionToTheCameraOnItsMonitor) {
    Site site;
    EXPECT_EQ(site.Hear(AsBytes("3Ma5#a+a4Ea9Ea2Ea")), "");
    EXPECT_EQ(site.Switcher().SelectedMonitor(), 3);
    EXPECT_EQ(site.Switcher().CameraOn(3), 6);
    EXPECT_EQ(site.Hear(AsBytes("ia")), "2ia");
    EXPECT_EQ(site.Hear(AsBytes("ia")), "4ia");
    EXPECT_EQ(site.Hear(AsBytes("da")), "2da");
    site.Hear(AsBytes("4IaLAGATE!a7^a"));
    EXPECT_EQ(site.Switcher().Alarms(), (std::set<std::int64_t>{2, 9}));
    ASSERT_TRUE(site.Camera(2).StoredPreset(7).has_value()) << "alarm 2 brought camera 2 up";
    site.Hear(AsBytes("20Ra"));
    EXPECT_EQ(site.Camera(2).Moving().pan, 1);
    EXPECT_EQ(site.Camera(2).Moving().panSpeed, 20);
    site.Hear(AsBytes("sa"));
    EXPECT_TRUE(site.Camera(2).Moving().Still());
    site.Hear(AsBytes("umxm3#m>m"));
    EXPECT_EQ(site.Multiplexer().Mode(), site::SimMultiplexer::Display::Full);
    EXPECT_EQ(site.Multiplexer().Camera(), 3);
    EXPECT_EQ(site.Multiplexer().Tape(), site::SimMultiplexer::Vcr::Playing);
    EXPECT_EQ(site.SwitcherLog().back(), "ASCII: stop all");
    EXPECT_EQ(site.MultiplexerLog().back(), "MUX: VCR play");
}

TEST(SimulatedSwitcher, AFloodOfNumbersKeepsItsTablesBounded) {
    Site site;
    for (int alarm = 1; alarm <= 5000; ++alarm) {
        site.Hear(AsBytes(std::to_string(alarm) + "Ea"));
    }
    EXPECT_EQ(site.Switcher().Alarms().size(), site::SimSwitcher::kTableLimit);
    EXPECT_EQ(site.SwitcherLog().size(), Site::kLogLines);
}

// An installer wires the site as the real one is: cameras at the addresses of its domes,
// with or without the switcher and the multiplexer.
TEST(SiteWiring, OnlyTheWiredEquipmentAnswers) {
    struct Case {
        std::vector<int> cameras; // as the installer wrote them
        std::vector<int> answering;
        bool switcher;
        bool multiplexer;
    };
    const Case cases[] = {
        {Site::Wiring::DefaultCameras(), {1, 2, 3, 4, 5, 6, 7, 8}, true, true},
        {{200, 3, 17, 3}, {3, 17, 200}, true, false},
        {{255}, {255}, false, true},
    };
    for (const Case& c : cases) {
        Site::Wiring wiring;
        wiring.cameras = c.cameras;
        wiring.switcher = c.switcher;
        wiring.multiplexer = c.multiplexer;
        Site site(wiring);
        for (const int address : {1, 2, 3, 8, 9, 17, 200, 255}) {
            SCOPED_TRACE(address);
            const bool wired =
                std::find(c.answering.begin(), c.answering.end(), address) != c.answering.end();
            EXPECT_EQ(site.HasCamera(address), wired);
            const std::string reply = site.Hear(AsBytes(BuildDFrame(address, 0, 0x51, 0, 0)));
            EXPECT_EQ(reply.size(), wired ? 7u : 0u);
            site.Hear(AsBytes(BuildPFrame(address, 0, 0x02, 0x20, 0)));
            if (wired) {
                EXPECT_EQ(site.Camera(address).Address(), address);
                EXPECT_EQ(site.Camera(address).Moving().pan, 1);
                EXPECT_EQ(site.CameraLog(address).size(), 2u);
            }
        }
        EXPECT_EQ(site.Hear(AsBytes("4Eaia")), c.switcher ? "4ia" : "");
        EXPECT_EQ(site.SwitcherLog().empty(), !c.switcher);
        site.Hear(AsBytes("3#m"));
        EXPECT_EQ(site.Multiplexer().Camera() == 3, c.multiplexer);
        EXPECT_EQ(site.Wired().cameras, c.answering);
    }
    EXPECT_THROW(Site({{0, 3}}), std::invalid_argument);
    EXPECT_THROW(Site({{256}}), std::invalid_argument);
}

// Camera addresses read as an installer writes them, and written back in the shortest form
// that reads the same.
TEST(SiteWiring, CameraAddressesReadAndWriteAsAnInstallerDoes) {
    struct Case {
        const char* text;
        std::vector<int> addresses; // empty: refused
        const char* written;
    };
    const Case cases[] = {
        {"1-8", {1, 2, 3, 4, 5, 6, 7, 8}, "1-8"},
        {"200,3,17", {3, 17, 200}, "3,17,200"},
        {"1-3,2,255", {1, 2, 3, 255}, "1-3,255"},
        {"1,2,4", {1, 2, 4}, "1,2,4"},
        {"1,2,3,5,6,255", {1, 2, 3, 5, 6, 255}, "1-3,5,6,255"},
        {"7", {7}, "7"},
        {"", {}, ""},
        {"0-4", {}, ""},
        {"1-256", {}, ""},
        {"8-1", {}, ""},
        {"1,,2", {}, ""},
        {"1,", {}, ""},
        {"a", {}, ""},
        {"1-", {}, ""},
        {" 3", {}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        std::vector<int> addresses{42};
        EXPECT_EQ(site::ParseCameraAddresses(c.text, addresses), !c.addresses.empty());
        EXPECT_EQ(addresses, c.addresses.empty() ? std::vector<int>{42} : c.addresses);
        if (!c.addresses.empty()) {
            EXPECT_EQ(site::CameraAddressesText(c.addresses), c.written);
        }
    }
}

// The line as the keyboard sees it: settings, garbling and the pace of the answers.
TEST(SimulatedLineTest, AnswersAtTheLinePaceOnlyWhenTheSettingsMatch) {
    struct Case {
        const char* settings;
        bool answered;
        const char* equipment = "2400,n,8,1";
    };
    const Case cases[] = {{"2400,n,8,1", true},
                          {"9600,n,8,1", false},
                          {"2400,e,8,1", false},
                          {"4800,e,7,2", true, "4800,e,7,2"},
                          {"2400,n,8,1", false, "4800,e,7,2"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.settings) + " to equipment at " + c.equipment);
        site::SimulatedLine line(1);
        site::LineFormat equipment;
        ASSERT_TRUE(site::ParseLineFormat(QLatin1String(c.equipment), equipment));
        line.SetEquipmentFormat(equipment);
        EXPECT_EQ(site::LineFormatText(line.EquipmentFormat()), QLatin1String(c.equipment));
        line.SetSettings(QLatin1String(c.settings));
        line.Open();
        QByteArray received;
        QObject::connect(&line, &SerialLine::CommEvent, [&](int) { received += line.Input(); });
        QElapsedTimer clock;
        clock.start();
        for (const char byte : BuildDFrame(1, 0, 0x51, 0, 0)) {
            line.Output(static_cast<std::uint8_t>(byte));
        }
        if (c.answered) {
            ASSERT_TRUE(WaitUntil([&] { return received.size() == 7; }, 1000));
            // Seven bytes of ten bits at 2400 baud take 29 ms; of eleven at 4800, 16 ms.
            EXPECT_GE(clock.elapsed(), equipment.baud == 2400 ? 27 : 14);
            EXPECT_EQ(received.left(4), QByteArray::fromHex("ff010059"));
        } else {
            WaitUntil([] { return false; }, 100);
            EXPECT_EQ(received, QByteArray());
            EXPECT_TRUE(line.Equipment().CameraLog(1).empty());
        }
    }
}

} // namespace
} // namespace quellpad::test
