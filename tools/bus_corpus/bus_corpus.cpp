// quellpad_bus_corpus generate FOLDER: captures of the served site's listen tap, a keyboard
// polling its cameras on a site wired with each fault alone, some pairs and none, in D and
// P, at 2400 to 19200 baud: FOLDER/tuning with one set of seeds, addresses and timings,
// FOLDER/held-out with others.
// quellpad_bus_corpus diagnose FOLDER: the diagnosis over every capture under FOLDER, a
// confusion table, the accuracy and the frames needed.

#include "bus/diagnosis.h"
#include "bus/scanner.h"
#include "site_server/peer.h"
#include "site_server/served_site.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace quellpad;

// Polls a capture lasts at most: more than the diagnosis is given to decide.
constexpr int kPolls = 80;

struct Recipe {
    QString name; // the file's name
    QStringList faults;
    QStringList expected; // verdicts that are right
    protocol::Language language = protocol::Language::D;
    int baud = 9600;
    int equipmentBaud = 9600;
    std::vector<int> cameras;
    std::uint32_t seed = 1;
    double pollSeconds = 0.1;
};

// One capture being made: a keyboard's peer on a served site, the tap's bytes written down.
class Capture {
public:
    Capture(const Recipe& recipe, const QString& path)
        : recipe_(recipe), site_({recipe.cameras, false, false}, {recipe.equipmentBaud}),
          peer_(site_, QStringLiteral("keyboard")), file_(path) {
        site::SiteFaults faults;
        faults.seed = recipe.seed;
        for (const QString& text : recipe.faults) {
            site::SiteFault fault;
            if (site::ParseSiteFault(text, fault)) {
                faults.faults.push_back(fault);
            }
        }
        site_.SetFaults(faults);
        peer_.SetControllerFormat({recipe.baud});
        file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
        out_.setDevice(&file_);
        out_ << "# expect " << recipe.expected.join(u',') << "\n# faults "
             << recipe.faults.join(u' ') << "\n# settings " << recipe.baud << ",n,8,1\n";
        QObject::connect(
            &site_, &site_server::ServedSite::OnWire,
            [this](const QByteArray& bytes, const site::LineFormat& sent, bool inverted) {
                // The listener has found the keyboard's settings.
                const std::string heard =
                    site::ReceivedAs(bytes.toStdString(), sent, {recipe_.baud}, inverted);
                out_ << "b " << QByteArray::fromStdString(heard).toHex() << '\n';
            });
    }
    bool Done() const { return step_ >= kPolls; }
    // Sends the next poll once the last one's answers have left.
    void Step() {
        if (Done() || peer_.Owing()) {
            return;
        }
        if (step_ > 0) {
            out_ << "t " << recipe_.pollSeconds << '\n';
        }
        const int camera =
            recipe_.cameras[static_cast<std::size_t>(step_) % recipe_.cameras.size()];
        peer_.Hear(protocol::AsBytes(bus::PollFrame(recipe_.language, camera)));
        ++step_;
        if (Done()) {
            out_.flush();
        }
    }

private:
    Recipe recipe_;
    site_server::ServedSite site_;
    site_server::Peer peer_;
    QFile file_;
    QTextStream out_;
    int step_ = 0;
};

std::vector<Recipe> Recipes(bool heldOut) {
    std::vector<Recipe> recipes;
    std::mt19937 random(heldOut ? 9001 : 17);
    const std::vector<std::vector<int>> cameraSets =
        heldOut ? std::vector<std::vector<int>>{{2, 9, 31}, {40, 41, 42, 43}, {7, 120}}
                : std::vector<std::vector<int>>{{3, 5, 17}, {1, 2, 3, 4}, {10, 200}};
    const int bauds[] = {2400, 4800, 9600, 19200};
    struct Kind {
        const char* fault; // with A for the faulty camera, B for another address
        const char* expected;
        bool p; // applies in P too
    };
    const Kind kinds[] = {
        {"", "healthy", true},
        {"mute=A", "mute", false},
        {"answer-address=A:B", "answer-address", false},
        {"duplicate-address=A", "duplicate-address", false},
        {"swapped-txrx", "swapped-txrx", true},
        {"inverted-polarity", "inverted-polarity", true},
        {"noise=N", "noise", true},
        {"second-controller=A", "second-controller", true},
        {"settings", "no-answers", false},
        {"mute=A second-controller=C", "mute,second-controller", false},
        {"noise=N answer-address=A:B", "noise,answer-address", false},
    };
    int index = 0;
    for (const Kind& kind : kinds) {
        for (const auto language : {protocol::Language::D, protocol::Language::P}) {
            if (language == protocol::Language::P && !kind.p) {
                continue;
            }
            for (const int baud : bauds) {
                for (int repeat = 0; repeat < 2; ++repeat) {
                    Recipe recipe;
                    recipe.language = language;
                    recipe.baud = baud;
                    recipe.equipmentBaud = baud;
                    recipe.cameras =
                        cameraSets[static_cast<std::size_t>(index++) % cameraSets.size()];
                    recipe.seed = static_cast<std::uint32_t>(random());
                    recipe.pollSeconds =
                        (heldOut ? 0.15 : 0.1) + 0.05 * static_cast<double>(random() % 3);
                    const int a = recipe.cameras[random() % recipe.cameras.size()];
                    int c = recipe.cameras[random() % recipe.cameras.size()];
                    if (c == a) {
                        c = recipe.cameras[(std::find(recipe.cameras.begin(), recipe.cameras.end(),
                                                      a) -
                                            recipe.cameras.begin() + 1) %
                                           static_cast<long>(recipe.cameras.size())];
                    }
                    const int b = 250 - static_cast<int>(random() % 20);
                    QString fault = QString::fromLatin1(kind.fault);
                    if (fault == "settings") {
                        recipe.equipmentBaud =
                            bauds[(std::find(std::begin(bauds), std::end(bauds), baud) -
                                   std::begin(bauds) + 1 + random() % 3) %
                                  4];
                        fault.clear();
                    }
                    fault.replace("A:B", QStringLiteral("%1:%2").arg(a).arg(b));
                    fault.replace("=A", QStringLiteral("=%1").arg(a));
                    fault.replace("=C", QStringLiteral("=%1").arg(c));
                    fault.replace("=N", QStringLiteral("=%1").arg(
                                            0.02 + 0.01 * static_cast<double>(random() % 4)));
                    recipe.faults = fault.split(u' ', Qt::SkipEmptyParts);
                    recipe.expected = QString::fromLatin1(kind.expected).split(u',');
                    recipe.name = QStringLiteral("%1-%2-%3-%4.cap")
                                      .arg(QString::fromLatin1(kind.expected).replace(u',', u'+'))
                                      .arg(language == protocol::Language::D ? "D" : "P")
                                      .arg(baud)
                                      .arg(recipe.seed);
                    recipes.push_back(recipe);
                }
            }
        }
    }
    return recipes;
}

int Generate(const QString& folder) {
    std::vector<std::unique_ptr<Capture>> captures;
    int count = 0;
    for (const bool heldOut : {false, true}) {
        const QString sub = folder + (heldOut ? "/held-out" : "/tuning");
        QDir().mkpath(sub);
        for (const Recipe& recipe : Recipes(heldOut)) {
            captures.push_back(std::make_unique<Capture>(recipe, sub + u'/' + recipe.name));
            ++count;
        }
    }
    // Every capture at once, each polling as soon as its last answers have left.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&captures] {
        bool done = true;
        for (const auto& capture : captures) {
            capture->Step();
            done = done && capture->Done();
        }
        if (done) {
            QCoreApplication::quit();
        }
    });
    timer.start(1);
    QCoreApplication::exec();
    captures.clear();
    std::printf("%d captures in %s\n", count, qPrintable(folder));
    return 0;
}

struct Result {
    QString expected;
    QString verdict;
    bool right = false;
    std::size_t frames = 0;
};

Result Diagnose(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QTextStream in(&file);
    bus::DiagnosingListener listener(false);
    QStringList expected;
    Result result;
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.startsWith("# expect ")) {
            expected = line.mid(9).split(u',');
        } else if (line.startsWith("b ")) {
            const QByteArray bytes = QByteArray::fromHex(line.mid(2).toLatin1());
            listener.Feed({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size())});
        } else if (line.startsWith("t ")) {
            listener.Elapsed(line.mid(2).toDouble());
        }
        const bus::BusVerdict verdict = listener.Diagnosis().Current();
        if (result.verdict.isEmpty() && verdict.fault != bus::BusFault::Listening) {
            // The first thing the listener says is what counts.
            result.verdict = QLatin1String(bus::BusFaultName(verdict.fault));
            result.frames = listener.Frames();
        }
    }
    result.expected = expected.join(u'+');
    if (result.verdict.isEmpty()) {
        result.verdict = QStringLiteral("listening");
    }
    result.right = expected.contains(result.verdict);
    return result;
}

std::size_t Percentile(std::vector<std::size_t> values, double share) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1,
                           static_cast<std::size_t>(share * static_cast<double>(values.size())))];
}

int Report(const QString& folder) {
    for (const QString& part : {QStringLiteral("tuning"), QStringLiteral("held-out")}) {
        std::map<QString, std::map<QString, int>> table;
        std::vector<std::size_t> frames;
        int right = 0;
        int total = 0;
        QDirIterator files(folder + u'/' + part, {QStringLiteral("*.cap")}, QDir::Files);
        QStringList verdicts;
        while (files.hasNext()) {
            const Result result = Diagnose(files.next());
            ++table[result.expected][result.verdict];
            if (!verdicts.contains(result.verdict)) {
                verdicts << result.verdict;
            }
            ++total;
            if (result.right) {
                ++right;
                frames.push_back(result.frames);
            }
        }
        verdicts.sort();
        std::printf("\n%s: %d captures, right first %d (%.1f %%), frames needed median %zu, 95th "
                    "percentile %zu\n",
                    qPrintable(part), total, right, total ? 100.0 * right / total : 0.0,
                    Percentile(frames, 0.5), Percentile(frames, 0.95));
        std::printf("%-34s", "fault \\ verdict");
        for (const QString& verdict : verdicts) {
            std::printf(" %s", qPrintable(verdict.left(10).rightJustified(10)));
        }
        std::printf("\n");
        for (const auto& [expected, row] : table) {
            std::printf("%-34s", qPrintable(expected));
            for (const QString& verdict : verdicts) {
                const auto found = row.find(verdict);
                std::printf(" %10d", found == row.end() ? 0 : found->second);
            }
            std::printf("\n");
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == "generate") {
        return Generate(arguments[2]);
    }
    if (arguments.size() == 3 && arguments[1] == "diagnose") {
        return Report(arguments[2]);
    }
    std::fputs("usage: quellpad_bus_corpus generate|diagnose FOLDER\n", stderr);
    return 2;
}
