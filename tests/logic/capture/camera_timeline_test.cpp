// The rebuild of where a camera pointed, from a capture alone, against the simulated
// site's own record of its camera over ten minutes of joystick use.
#include "capture/camera_timeline.h"
#include "protocol/frames.h"
#include "site/site.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace quellpad::capture {
namespace {

using protocol::Kind;

// The second command byte of a D frame that decodes as wanted, found by asking the decoder.
std::uint8_t CodeOf(const std::function<bool(const protocol::Command&)>& wanted) {
    for (int c2 = 0; c2 < 256; ++c2) {
        const std::string frame = protocol::BuildDFrame(1, 0, static_cast<std::uint8_t>(c2), 0, 0);
        if (wanted(protocol::DecodeFrame(protocol::Language::D, protocol::AsBytes(frame)))) {
            return static_cast<std::uint8_t>(c2);
        }
    }
    ADD_FAILURE() << "no such command";
    return 0;
}

std::uint8_t KindCode(Kind kind) {
    return CodeOf([kind](const protocol::Command& c) { return c.kind == kind; });
}

std::uint8_t MotionCode(int pan, int tilt) {
    return CodeOf([pan, tilt](const protocol::Command& c) {
        return c.kind == Kind::Motion && c.motion.pan == pan && c.motion.tilt == tilt &&
               c.motion.zoom == 0 && c.motion.focus == 0 && c.motion.iris == 0;
    });
}

struct Errors {
    double worst = 0;
    double p99 = 0;
};

Errors Summary(std::vector<double> errors) {
    std::sort(errors.begin(), errors.end());
    return {errors.back(), errors[errors.size() * 99 / 100]};
}

TEST(CameraTimeline, TenMinutesOfJoystickRebuiltAgainstTheSitesOwnRecord) {
    site::Site site;
    QRandomGenerator random(32);
    std::vector<Packet> packets;
    struct Truth {
        std::int64_t atUs;
        double pan;
        double tilt;
    };
    std::vector<Truth> truth;
    const auto send = [&](std::int64_t atUs, const std::string& frame) {
        Packet command;
        command.atUs = atUs;
        command.bytes = frame;
        packets.push_back(command);
        const std::string answer = site.Hear(protocol::AsBytes(frame));
        if (!answer.empty()) {
            Packet reply = command;
            reply.side = Side::Equipment;
            reply.inbound = true;
            reply.bytes = answer;
            packets.push_back(reply);
        }
    };
    constexpr std::int64_t kStepUs = 20'000;
    constexpr std::int64_t kMinutes = 10;
    std::int64_t nextMove = 0;
    for (std::int64_t at = 0; at < kMinutes * 60'000'000; at += kStepUs) {
        if (at % 500'000 == 0) {
            truth.push_back({at, site.Camera(1).Pan(), site.Camera(1).Tilt()});
        }
        if (at >= nextMove) {
            const int pan = random.bounded(3) - 1;
            const int tilt = random.bounded(3) - 1;
            const auto speed = [&random]() {
                return static_cast<std::uint8_t>(random.bounded(7, 65));
            };
            const int roll = random.bounded(20);
            if (roll == 0) {
                send(at, protocol::BuildDFrame(1, 0, KindCode(Kind::SetPreset), 0,
                                               static_cast<std::uint8_t>(1 + random.bounded(4))));
            } else if (roll == 1) {
                send(at, protocol::BuildDFrame(1, 0, KindCode(Kind::GoPreset), 0,
                                               static_cast<std::uint8_t>(1 + random.bounded(4))));
            } else {
                send(at, protocol::BuildDFrame(1, 0, MotionCode(pan, tilt), speed(), speed()));
            }
            nextMove = at + 300'000 + random.bounded(2'700'000);
        }
        if (at % 5'000'000 == 2'500'000) {
            send(at, protocol::BuildDFrame(1, 0, KindCode(Kind::QueryPan), 0, 0));
            send(at, protocol::BuildDFrame(1, 0, KindCode(Kind::QueryTilt), 0, 0));
        }
        site.Advance(static_cast<double>(kStepUs) / 1e6);
    }
    // The site's own receivers with and without their answers, and receivers taken for
    // linear ones where the site's are not: a figure only.
    for (const auto& [answers, curve] : {std::pair{true, ReceiverModel::Curve::SquareLaw},
                                         std::pair{false, ReceiverModel::Curve::SquareLaw},
                                         std::pair{true, ReceiverModel::Curve::Linear}}) {
        ReceiverModel model;
        model.curve = curve;
        CameraTimeline timeline(model, answers);
        for (const Packet& packet : packets) {
            timeline.Add(packet);
        }
        std::vector<double> pan;
        std::vector<double> tilt;
        // Where the camera started is in no capture: without answers the rebuild is off by
        // that much throughout, and the movement alone is measured past it.
        std::optional<double> start;
        const std::int64_t firstAnswer = 2'500'000;
        for (const Truth& t : truth) {
            const auto rebuilt = timeline.At(1, t.atUs);
            if (!rebuilt || (answers && t.atUs <= firstAnswer)) {
                continue;
            }
            if (!start) {
                start = answers ? 0.0 : t.pan - rebuilt->pan;
            }
            double d = std::fmod(std::abs(rebuilt->pan + *start - t.pan), 360.0);
            pan.push_back(std::min(d, 360.0 - d));
            tilt.push_back(std::abs(rebuilt->tilt - t.tilt));
        }
        ASSERT_GT(pan.size(), truth.size() * 9 / 10);
        ASSERT_TRUE(start);
        const Errors p = Summary(pan);
        const Errors t = Summary(tilt);
        const bool linear = curve == ReceiverModel::Curve::Linear;
        std::printf("[ FIGURE   ] %s%s position answers: pan off by %.2f° at worst (%.2f° at the "
                    "99th percentile), tilt by %.2f° (%.2f°); start unknown by %.2f°\n",
                    linear ? "linear receivers taken, " : "", answers ? "with" : "without", p.worst,
                    p.p99, t.worst, t.p99, *start);
        if (!linear) {
            EXPECT_LE(p.worst, 3.0);
            EXPECT_LE(t.worst, 3.0);
        }
    }
}

TEST(CameraTimeline, TheOperatorChoosesTheReceiversSpeedCurve) {
    const struct {
        ReceiverModel::Curve curve;
        int speed;
        double degrees;
    } cases[] = {{ReceiverModel::Curve::SquareLaw, 64, 100.0},
                 {ReceiverModel::Curve::SquareLaw, 1, 0.1},
                 {ReceiverModel::Curve::Linear, 32, 50.0},
                 {ReceiverModel::Curve::Linear, 0, 0.0}};
    for (const auto& c : cases) {
        ReceiverModel model;
        model.curve = c.curve;
        EXPECT_NEAR(model.DegreesPerSecond(c.speed), c.degrees, 1e-9) << c.speed;
    }
    CameraPoint point;
    point.panRate = 10;
    point.tiltRate = -50;
    const CameraPoint later = Advanced(point, 4'000'000, {});
    EXPECT_NEAR(later.pan, 40.0, 1e-9);
    EXPECT_EQ(later.tilt, -90.0); // held at the lowest tilt
    EXPECT_EQ(TimelineCsv({later}), "address,time_s,pan,tilt,zoom,answered\n"
                                    "0,4.000000,40.00,-90.00,0.000,0\n");
}

} // namespace
} // namespace quellpad::capture
