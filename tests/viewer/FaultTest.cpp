// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "RawCamera.h"
#include "Viewer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTimer>

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
    std::function<void(FakeCamera&)> harm = [](FakeCamera&) {};
    std::function<void(FakeCamera&)> heal = [](FakeCamera&) {};
};

struct Action {
    const char* name;
    void (*run)(Viewer&);
};

const char* const silent = R"(127\.0\.0\.2)";
const std::vector<Trouble> troubles {
    { "BlackHole", "F5 Edit Command Reconnect", silent, true, Faults::requestsLost() },
    { "RepliesLost", "Edit", silent, true, Faults::repliesLost() },
    { "Refused", "F5 Edit Command", "access denied|control of the camera was lost", false,
        Faults::refusing(0x8006) },
    { "Killed", "Edit", silent, true, {}, &FakeCamera::kill, &FakeCamera::start },
    { "Restarted", "F5 Edit Command Reconnect", "", false, {}, &FakeCamera::restart },
    { "Stalled", "F5 Command", silent, true, {}, &FakeCamera::stall, &FakeCamera::resume },
    { "Slow", "F5 Edit Command", "", false, Faults::slow(25ms) },
};

const std::vector<Action> actions {
    { "F5", [](Viewer& viewer) { viewer.pressF5(); } },
    { "Edit", [](Viewer& viewer) { viewer.edit("Width", "128"); } },
    { "Command", [](Viewer& viewer) { viewer.run("UserSetLoad"); } },
    { "Reconnect", [](Viewer& viewer) { viewer.pressReconnect(); } },
};

using Case = std::pair<const Trouble*, const Action*>;

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (const Trouble& trouble : troubles) {
        for (const Action& action : actions) {
            if (std::string(trouble.actions).find(action.name) != std::string::npos) {
                all.emplace_back(&trouble, &action);
            }
        }
    }
    return all;
}

/// Measures how long the event loop does not turn.
class LoopWatch {
public:
    LoopWatch()
    {
        QObject::connect(&m_timer, &QTimer::timeout,
            [this] { m_longestMs = std::max(m_longestMs, m_sinceTurn.restart()); });
        m_timer.start(5);
        m_sinceTurn.start();
    }
    int longestMs() const { return static_cast<int>(m_longestMs); }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceTurn;
    qint64 m_longestMs = 0;
};

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
    const Trouble& trouble = *GetParam().first;
    const Action& action = *GetParam().second;
    Viewer viewer;
    ASSERT_TRUE(viewer.hasAllRows(true));
    const Rows first = viewer.rows();
    viewer.edit("Width", "64");
    expectTrue(viewer.rows(), first);

    trouble.harm(m_fake);
    m_proxy.set(trouble.faults);
    std::this_thread::sleep_for(100ms); // the proxy may still wait for a packet as before
    const LoopWatch inTrouble;
    action.run(viewer);
    EXPECT_TRUE(settle(viewer, [&] { return !trouble.isSilent || viewer.hasAllRows(false); }));
    const int blocked = inTrouble.longestMs();
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
    const LoopWatch afterwards;
    const bool isOver = settle(viewer, [&] {
        const bool isRight = viewer.hasAllRows(true);
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
        action.name, blocked, afterwards.longestMs(), words.c_str(), viewer.words().c_str());
}

INSTANTIATE_TEST_SUITE_P(Trouble, ViewerIn, testing::ValuesIn(cases()),
    [](const auto& test) { return std::string(test.param.first->name) + test.param.second->name; });

} // namespace
