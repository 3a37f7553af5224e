#include "RawCamera.h"
#include "Viewer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>
#include <thread>

using namespace std::chrono_literals;

// What a user does while the camera is in trouble, in every kind of trouble. Times are told, not
// judged.
namespace {

struct Trouble {
    const char* name;
    /// What is tried in it: one that differs from another in few things is left out for the rest.
    const char* actions;
    const char* says; ///< expression for what the user is told; empty: nothing is wrong
    bool isSilent; ///< nothing can be confirmed while it lasts
    Faults faults;
    void (*harm)(FakeCamera&);
    void (*heal)(FakeCamera&);
};

struct Action {
    const char* name;
    void (*run)(Viewer&);
};

using Case = std::tuple<Trouble, Action>;

std::string nameOf(const testing::TestParamInfo<Case>& info)
{
    return std::string(std::get<Trouble>(info.param).name) + std::get<Action>(info.param).name;
}

void PrintTo(const Trouble& trouble, std::ostream* stream)
{
    *stream << trouble.name;
}

void PrintTo(const Action& action, std::ostream* stream)
{
    *stream << action.name;
}

Faults with(void (*change)(Faults&))
{
    Faults faults;
    change(faults);
    return faults;
}

const auto nothing = [](FakeCamera&) {};
const auto kill = [](FakeCamera& camera) { camera.kill(); };
const auto start = [](FakeCamera& camera) { camera.start(); };
const auto restart = [](FakeCamera& camera) {
    camera.kill();
    camera.start();
};

const std::vector<Trouble> troubles {
    { "BlackHole", "F5 Edit Command Reconnect", R"(127\.0\.0\.2)", true,
        with([](Faults& f) { f.loseRequests = 1; }), nothing, nothing },
    { "RepliesLost", "Edit", R"(127\.0\.0\.2)", true, with([](Faults& f) { f.loseReplies = 1; }),
        nothing, nothing },
    { "Refused", "F5 Edit Command", "access denied|control of the camera was lost", false,
        with([](Faults& f) { f.status = 0x8006; }), nothing, nothing },
    { "Killed", "Edit", R"(127\.0\.0\.2)", true, {}, kill, start },
    { "Restarted", "F5 Edit Command Reconnect", "", false, {}, restart, nothing },
    { "Stalled", "F5 Command", R"(127\.0\.0\.2)", true, {},
        [](FakeCamera& camera) { camera.stall(); }, [](FakeCamera& camera) { camera.resume(); } },
    { "Slow", "F5 Edit Command", "", false,
        with([](Faults& f) { f.requestDelay = f.delay = 25ms; }), nothing, nothing },
};

const std::vector<Action> actions {
    { "F5", [](Viewer& viewer) { viewer.pressF5(); } },
    { "Edit", [](Viewer& viewer) { viewer.type("Width", "128"); } },
    { "Command", [](Viewer& viewer) { viewer.pressCommand("UserSetLoad"); } },
    { "Reconnect",
        [](Viewer& viewer) {
            if (waitFor([&viewer] { return viewer.offersReconnect(); }, 8000)) {
                viewer.pressReconnect();
            }
        } },
};

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (const Trouble& trouble : troubles) {
        for (const Action& action : actions) {
            if (std::string(trouble.actions).find(action.name) != std::string::npos) {
                all.emplace_back(trouble, action);
            }
        }
    }
    return all;
}

class ViewerIn : public testing::TestWithParam<Case> {
protected:
    FakeCamera m_fake { ZQ_SIMULATED_CAMERA_XML };
    FaultProxy m_proxy { 4 };
};

/// All rows but those of the width are what they were at first; a camera that was restarted has
/// another width.
void expectTrue(const Rows& shown, const Rows& first)
{
    Rows right = first;
    const std::uint32_t width = readRegister(place::width);
    right["Width"].value = std::to_string(width);
    right["PayloadSize"].value = std::to_string(width * readRegister(place::height));
    for (const auto& [name, row] : shown) {
        EXPECT_TRUE(!row.looksCurrent || row.value == right.at(name).value)
            << name << " " << row.value;
    }
}

int countCurrent(const Rows& rows)
{
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [](const auto& row) { return row.second.looksCurrent; }));
}

bool areAllCurrent(const Viewer& viewer)
{
    const Rows rows = viewer.rows();
    return !rows.empty() && countCurrent(rows) == static_cast<int>(rows.size());
}

/// Until the viewer has done what it does by itself.
bool settle(Viewer& viewer, const std::function<bool()>& condition)
{
    QElapsedTimer calm;
    calm.start();
    return waitFor([&] {
        if (viewer.isBusy() || !condition()) {
            calm.start();
        }
        return calm.elapsed() > 400;
    });
}

TEST_P(ViewerIn, ShowsOnlyWhatIsConfirmedSaysWhyAndRecovers)
{
    const auto& trouble = std::get<Trouble>(GetParam());
    const auto& action = std::get<Action>(GetParam());
    Viewer viewer;
    ASSERT_TRUE(areAllCurrent(viewer));
    const Rows first = viewer.rows();
    viewer.type("Width", "64");
    expectTrue(viewer.rows(), first);

    trouble.harm(m_fake);
    m_proxy.set(trouble.faults);
    std::this_thread::sleep_for(100ms); // the proxy may still wait for a packet as before
    LoopWatch loop;
    action.run(viewer);
    EXPECT_TRUE(
        settle(viewer, [&] { return !trouble.isSilent || countCurrent(viewer.rows()) == 0; }));
    const int blocked = loop.longestMs();
    const std::string words = viewer.words();
    EXPECT_FALSE(words.empty());
    if (*trouble.says != '\0') {
        EXPECT_EQ(words.find("\u26A0"), 0U) << words;
        const QRegularExpression reason(QString::fromUtf8(trouble.says));
        EXPECT_TRUE(reason.match(QString::fromStdString(words)).hasMatch()) << words;
    }
    if (!trouble.isSilent) {
        expectTrue(viewer.rows(), first);
    }

    m_proxy.set({});
    trouble.heal(m_fake);
    loop.restart();
    const bool isOver = settle(viewer, [&] {
        const bool isRight = areAllCurrent(viewer);
        if (viewer.offersReconnect()) {
            viewer.pressReconnect();
        } else if (!isRight && !viewer.isBusy()) {
            viewer.pressF5(); // what the camera has refused once is not asked for by itself
        }
        return isRight;
    });
    EXPECT_TRUE(isOver) << viewer.words();
    expectTrue(viewer.rows(), first);
    std::printf("[ TROUBLE  ] %s, %s: blocked %d ms, then %d ms: \"%s\", \"%s\"\n", trouble.name,
        action.name, blocked, loop.longestMs(), words.c_str(), viewer.words().c_str());
}

INSTANTIATE_TEST_SUITE_P(Trouble, ViewerIn, testing::ValuesIn(cases()), nameOf);

} // namespace
