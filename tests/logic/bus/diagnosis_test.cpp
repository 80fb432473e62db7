#include "fixtures.h"

#include "bus/diagnosis.h"
#include "bus/scanner.h"
#include "site_server/peer.h"
#include "site_server/served_lines.h"

#include <fcntl.h>
#include <random>
#include <termios.h>
#include <unistd.h>

namespace quellpad::test {
namespace {

using bus::BusFault;

// A keyboard polls cameras 3, 5 and 17 on a served site wired with a fault, while a
// listener on the site's tap (a real pseudo-terminal at the keyboard's settings) diagnoses
// the bus. Each fault is named, with its evidence, within 50 frames; a healthy line is
// called healthy.
TEST(BusDiagnosis, NamesEachFaultOfTheSiteFromItsListenTap) {
    struct Case {
        const char* fault;
        protocol::Language language;
        int equipmentBaud;
        BusFault verdict;
        const char* evidence;
    };
    const Case cases[] = {
        {"", protocol::Language::D, 9600, BusFault::Healthy, "Healthy"},
        {"", protocol::Language::P, 9600, BusFault::Healthy, "Healthy"},
        {"mute=5", protocol::Language::D, 9600, BusFault::Mute, "Camera 5 is commanded"},
        {"answer-address=5:6", protocol::Language::D, 9600, BusFault::AnswerAddress,
         "answers as 6"},
        {"duplicate-address=5", protocol::Language::D, 9600, BusFault::DuplicateAddress,
         "Two receivers answer as camera 5"},
        {"swapped-txrx", protocol::Language::D, 9600, BusFault::Silent, "Nothing heard"},
        {"inverted-polarity", protocol::Language::D, 9600, BusFault::InvertedPolarity,
         "wires are swapped"},
        {"noise=0.03", protocol::Language::D, 9600, BusFault::Noise, "noisy"},
        {"second-controller=5", protocol::Language::P, 9600, BusFault::SecondController,
         "second controller drives camera 5"},
        {"", protocol::Language::D, 4800, BusFault::NoAnswers, "no camera answers"},
    };
    const site::LineFormat keyboard{9600};
    const int cameras[] = {3, 5, 17};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.fault) + " " + std::to_string(c.equipmentBaud));
        site_server::ServedSite site({{3, 5, 17}, false, false}, {c.equipmentBaud});
        site::SiteFaults faults;
        if (*c.fault != 0) {
            faults.faults.emplace_back();
            ASSERT_TRUE(site::ParseSiteFault(c.fault, faults.faults.back()));
        }
        site.SetFaults(faults);
        site_server::TapLine tap(site);
        const int fd = ::open(tap.Name().toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        ASSERT_GE(fd, 0);
        termios settings{};
        tcgetattr(fd, &settings);
        cfmakeraw(&settings);
        cfsetspeed(&settings, B9600);
        tcsetattr(fd, TCSANOW, &settings);
        site_server::Peer controller(site, "keyboard");
        controller.SetControllerFormat(keyboard);
        bus::DiagnosingListener listener(false);
        for (int step = 0; step < 60; ++step) {
            controller.Hear(protocol::AsBytes(bus::PollFrame(c.language, cameras[step % 3])));
            ASSERT_TRUE(WaitUntil([&] { return !controller.Owing(); }));
            std::uint8_t buffer[512];
            ssize_t got = 0;
            while ((got = ::read(fd, buffer, sizeof buffer)) > 0) {
                listener.Feed({buffer, static_cast<std::size_t>(got)});
            }
            listener.Elapsed(0.1); // a keyboard polls ten times a second
            if (listener.Diagnosis().Current().confidence >= 1) {
                break;
            }
        }
        ::close(fd);
        const bus::BusVerdict verdict = listener.Diagnosis().Current();
        EXPECT_EQ(bus::BusFaultName(verdict.fault), std::string(bus::BusFaultName(c.verdict)))
            << verdict.text.toStdString();
        EXPECT_TRUE(verdict.text.contains(c.evidence)) << verdict.text.toStdString();
        EXPECT_LE(listener.Diagnosis().FramesToVerdict(), 50u);
    }
}

// Bad input: random bytes, frames split at every byte boundary, a line that goes quiet
// and comes back, and long traffic never make the diagnosis claim a fault it has
// no evidence for, nor lose a verdict it has.
TEST(BusDiagnosis, ClaimsNothingWithoutEvidenceWhateverItHears) {
    site::Site equipment({{3, 5, 17}, false, false});
    std::string polls; // six minutes of polls at ten a second, each answered
    for (int i = 0; i < 3600; ++i) {
        const std::string query = bus::PollFrame(protocol::Language::D, (i % 3 == 0) ? 3 : 17);
        polls += query + equipment.Hear(protocol::AsBytes(query));
    }
    std::mt19937 random(7);
    std::string noise(100'000, '\0');
    for (char& c : noise) {
        c = static_cast<char>(random() % 4 == 0 ? 0xFF : random());
    }
    struct Case {
        const char* name;
        const std::string* bytes;
        std::size_t split; // bytes per read; a quiet second between reads from the 1000th
        BusFault verdict;
    };
    const Case cases[] = {
        {"minutes, whole frames", &polls, 14, BusFault::Healthy},
        {"minutes, a byte at a time", &polls, 1, BusFault::Healthy},
        {"random bytes", &noise, 64, BusFault::Unreadable},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        bus::DiagnosingListener listener(false);
        const auto all = protocol::AsBytes(*c.bytes);
        for (std::size_t at = 0, reads = 0; at < all.size(); at += c.split, ++reads) {
            listener.Feed(all.subspan(at, std::min(c.split, all.size() - at)));
            if (reads % 1000 == 999) {
                listener.Elapsed(bus::BusDiagnosis::kSilentSeconds * 2); // the tap vanished
            }
            const BusFault now = listener.Diagnosis().Current().fault;
            ASSERT_TRUE(now == BusFault::Listening || now == c.verdict)
                << bus::BusFaultName(now) << " after " << at << " bytes";
        }
        EXPECT_EQ(listener.Diagnosis().Current().fault, c.verdict);
    }
}

} // namespace
} // namespace quellpad::test
