// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "registers/RegisterPort.h"
#include "DistantCamera.h"

#include <gtest/gtest.h>

#include <thread>

using namespace zqcameralib;

namespace {

/// Only of a far camera it is measured how long it takes, which stretches what is kept.
class NearOrFar : public DistantCamera {
public:
    using DistantCamera::DistantCamera;
    bool prefersBatches() const override { return isFar; }

    bool isFar = false;
};

class Port : public testing::Test {
protected:
    /// The last byte of a register; -1 when it cannot be read.
    int read(std::uint64_t address)
    {
        std::array<std::uint8_t, 4> bytes {};
        return m_port.read({ address, 4 }, bytes.data()).isOk() ? bytes[3] : -1;
    }
    Status write(std::uint64_t address)
    {
        const std::array<std::uint8_t, 4> bytes { 0, 0, 0, 5 };
        return m_port.write({ address, 4 }, bytes.data());
    }
    /// The camera changes by itself.
    void change(std::uint8_t value) { m_camera.memory().write(3, &value, 1); }
    void fail(bool always)
    {
        m_port.setFaultHook([always](auto, auto, bool) { return always; });
    }
    static void outliveSnapshot() { std::this_thread::sleep_for(std::chrono::milliseconds(120)); }

    RegisterPort m_port { std::make_unique<NearOrFar>(nullptr) };
    NearOrFar& m_camera = static_cast<NearOrFar&>(m_port.backend());
};

TEST_F(Port, KeepsWhatAPassReadsUntilAWriteOrItsEnd)
{
    {
        const RegisterPort::Pass outer(m_port);
        EXPECT_EQ(read(0), 0);
        change(1);
        outliveSnapshot();
        const std::uint64_t number = m_port.snapshotNumber();
        {
            const RegisterPort::Pass inner(m_port);
        }
        EXPECT_EQ(read(0), 0);
        EXPECT_EQ(m_port.snapshotNumber(), number);
        EXPECT_TRUE(write(8).isOk());
        EXPECT_NE(m_port.snapshotNumber(), number);
        EXPECT_EQ(read(0), 1);
        EXPECT_EQ(read(8), 5);
        change(2);
        m_port.invalidate();
        EXPECT_EQ(read(0), 2);
        change(3);
        outliveSnapshot();
    }
    EXPECT_EQ(read(0), 3);
    EXPECT_EQ(m_port.reads() + m_port.answers(), 2 * 5U);
    EXPECT_EQ(m_port.writes(), 1U);
    EXPECT_EQ(m_port.changes(), 2U);
}

TEST_F(Port, KeepsThroughAWriteWhatItCannotHaveChanged)
{
    EXPECT_EQ(read(0), 0);
    EXPECT_EQ(read(4), 0);
    {
        const RegisterPort::Keeping keeping(
            m_port, [](const Register& place) { return place.address == 4; });
        EXPECT_TRUE(write(4).isOk());
    }
    change(1);
    EXPECT_EQ(read(4), 5);
    EXPECT_EQ(read(0), 0);
    m_port.invalidate();
    EXPECT_EQ(read(0), 1);
}

TEST_F(Port, ReadsAgainWhatIsTooOld)
{
    read(0);
    const std::uint64_t number = m_port.snapshotNumber();
    change(1);
    outliveSnapshot();
    EXPECT_NE(m_port.snapshotNumber(), number);
    EXPECT_EQ(read(0), 1);
    change(2);
    outliveSnapshot();
    EXPECT_EQ(read(0), 2);
    change(3);
    outliveSnapshot();
    m_camera.isFar = true;
    m_port.prefetch({ { 0, 4 }, { 4, 4 } });
    m_camera.isFar = false;
    EXPECT_EQ(read(0), 3);
    change(4);
    outliveSnapshot();
    const RegisterPort::Pass pass(m_port); // begins with nothing older
    EXPECT_EQ(read(0), 4);
}

TEST_F(Port, KeepsNoAnswerOfAFailureAndTellsWhoeverAsked)
{
    const RegisterPort::FailureScope before(m_port);
    EXPECT_TRUE(before.status().isOk());
    change(9);
    fail(true);
    EXPECT_EQ(read(0), -1);
    fail(false);
    EXPECT_EQ(before.status().text(), "injected fault");
    const RegisterPort::FailureScope after(m_port);
    EXPECT_EQ(read(0), 9);
    EXPECT_TRUE(after.status().isOk());
    m_camera.reset(1);
    EXPECT_EQ(read(4), -1); // the camera's own failure
    EXPECT_TRUE(after.hasFailed());
    EXPECT_EQ(m_port.answers(), 1U);
    fail(true);
    EXPECT_EQ(write(0).code(), injectedFault);
    EXPECT_EQ(m_port.changes(), 1U);
}

TEST_F(Port, RecordsWhatIsReadAlsoFromTheSnapshotAndWhatIsWritten)
{
    const RegisterPort::Pass pass(m_port);
    read(0);
    const RegisterPort::Recorder recorder(m_port);
    {
        const RegisterPort::Recorder inner(m_port);
        read(0);
        EXPECT_EQ(inner.read, (Registers { { 0, 4 } }));
    }
    m_port.noteAgain({ { 8, 2 } });
    EXPECT_TRUE(write(4).isOk());
    EXPECT_EQ(recorder.read, (Registers { { 0, 4 }, { 8, 2 } }));
    EXPECT_EQ(recorder.written, (Registers { { 4, 4 } }));
}

TEST_F(Port, PrefetchesEachRegisterOnceInTheKindThatTheCameraWants)
{
    m_camera.isFar = true;
    const RegisterPort::Pass pass(m_port);
    m_port.prefetch({ { 0, 4 }, { 0, 4 } }); // one alone gains nothing
    EXPECT_EQ(m_camera.together, 0U);
    EXPECT_EQ(m_port.kindOf({ 0, 4 }), AccessKind::Memory);
    m_port.setFourByteKind(AccessKind::Register);
    read(16);
    EXPECT_EQ(m_port.kindOf({ 0, 4 }), AccessKind::Register);
    EXPECT_EQ(m_port.kindOf({ 0, 8 }), AccessKind::Memory);
    m_port.prefetch({ { 0, 4 }, { 16, 4 }, { 8, 8 }, { 0, 4 } });
    EXPECT_EQ(m_camera.together, 2U);
    EXPECT_EQ(read(0) + read(16), 0);
    EXPECT_EQ(m_camera.alone, 1U);
    m_camera.reset(2);
    m_port.prefetch({ { 32, 4 }, { 36, 4 }, { 40, 4 } }); // the second fails
    EXPECT_EQ(m_port.reads(), 4U);
    EXPECT_EQ(read(36), -1);
}

TEST_F(Port, TakesWhatWasReadAheadAndNamesTheFirstThatIsMissing)
{
    const RegisterPort::KnownRegisters known { { { 0, 4 }, { { 0, 0, 0, 7 }, {} } },
        { { 4, 4 }, { {}, Status(cameraSlow, "slow") } } };
    RegisterBackend::Requests missing;
    m_camera.isFar = true;
    {
        RegisterPort::Ahead ahead(m_port, known, &missing);
        const RegisterPort::FailureScope failures(m_port);
        EXPECT_EQ(read(0), 7);
        EXPECT_FALSE(failures.hasFailed());
        EXPECT_EQ(read(4), -1);
        EXPECT_EQ(failures.status().code(), cameraSlow);
        EXPECT_FALSE(ahead.begin());
        EXPECT_EQ(read(8) + read(12), -2);
        EXPECT_EQ(failures.status().code(), notReadYet);
        EXPECT_TRUE(ahead.begin());
        EXPECT_FALSE(ahead.begin());
        ASSERT_EQ(missing.size(), 1U);
        EXPECT_EQ(missing[0].place, (Register { 8, 4 }));
        m_port.prefetch({ { 16, 4 }, { 20, 4 } });
    }
    EXPECT_EQ(m_camera.accesses(), 0U);
    EXPECT_EQ(m_port.answers(), 1U);
    {
        const RegisterPort::Ahead ahead(m_port, known);
        EXPECT_EQ(read(8), 0); // not known, so it is read
    }
    EXPECT_EQ(read(8) + read(0), 0);
    EXPECT_EQ(m_camera.alone, 3U);
}

} // namespace
