// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "simulation/SimulatedCamera.h"

#include "memory/RegisterMemory.h"
#include "memory/RegisterValues.h"
#include "simulation/SimulatedCameraRegisters.h"
#include "simulation/UserSets.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace zqcameralib {

namespace {

using namespace simulated;
using std::chrono::nanoseconds;

nanoseconds systemClock()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

bool overlap(std::uint64_t a, std::size_t sizeOfA, std::uint64_t b, std::size_t sizeOfB)
{
    return a < b ? b - a < sizeOfA : a - b < sizeOfB;
}

class SimulatedCamera : public CameraBehaviour {
public:
    explicit SimulatedCamera(CameraClock clock)
        : m_clock(std::move(clock))
    {
    }

    void start(RegisterMemory& memory) override;
    void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterLastImage(RegisterMemory& memory) override;

private:
    struct Command {
        std::uint64_t address;
        void (SimulatedCamera::*run)(RegisterMemory& memory, std::uint64_t index);
        std::uint64_t index; ///< instance of a selected command
    };

    void loadUserSet(RegisterMemory& memory, std::uint64_t index);
    void saveUserSet(RegisterMemory& memory, std::uint64_t index);
    void reset(RegisterMemory& memory, std::uint64_t index);
    void latchTimestamp(RegisterMemory& memory, std::uint64_t index);
    void resetTimestamp(RegisterMemory& memory, std::uint64_t index);
    void trigger(RegisterMemory& memory, std::uint64_t index);
    void resetCounter(RegisterMemory& memory, std::uint64_t index);
    void tryServiceKey(RegisterMemory& memory);
    void advanceSelfTest(RegisterMemory& memory, std::uint64_t address, std::size_t size);
    double secondsOn() const;
    void measureTemperatures(RegisterMemory& memory) const;
    void measureSupply(RegisterMemory& memory) const;

    CameraClock m_clock;
    nanoseconds m_timeZero {};
    UserSets m_userSets;
    int m_selfTestReads = 0;
};

void SimulatedCamera::start(RegisterMemory& memory)
{
    writePowerUpValues(memory);
    settleValues(memory);
    m_userSets.initialise(memory);
    m_timeZero = m_clock();
}

void SimulatedCamera::beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size)
{
    if (overlap(address, size, temperature, 12)) {
        measureTemperatures(memory);
    }
    if (overlap(address, size, supplyVoltage, 8)) {
        measureSupply(memory);
    }
    if (overlap(address, size, selfTestRun, 8)) {
        advanceSelfTest(memory, address, size);
    }
}

void SimulatedCamera::afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size)
{
    static constexpr std::initializer_list<Command> commands = {
        { userSetLoad, &SimulatedCamera::loadUserSet, 0 },
        { userSetSave, &SimulatedCamera::saveUserSet, 0 },
        { deviceReset, &SimulatedCamera::reset, 0 },
        { timestampLatch, &SimulatedCamera::latchTimestamp, 0 },
        { timestampReset, &SimulatedCamera::resetTimestamp, 0 },
        { triggerSoftware, &SimulatedCamera::trigger, 0 },
        { triggerSoftware + 0x20, &SimulatedCamera::trigger, 1 },
        { counterReset, &SimulatedCamera::resetCounter, 0 },
        { counterReset + 4, &SimulatedCamera::resetCounter, 1 },
    };
    for (const Command& command : commands) {
        if (!overlap(address, size, command.address, 4)) {
            continue;
        }
        if (readWord(memory, command.address) == 1) {
            (this->*command.run)(memory, command.index);
        }
        writeWord(memory, command.address, 0);
    }
    if (overlap(address, size, serviceKey, 4)) {
        tryServiceKey(memory);
    }
    if (overlap(address, size, selfTestRun, 4)) {
        m_selfTestReads = 0;
    }
    settleValues(memory);
}

void SimulatedCamera::afterLastImage(RegisterMemory& memory)
{
    writeWord(memory, acquisition, 0);
}

void SimulatedCamera::loadUserSet(RegisterMemory& memory, std::uint64_t /*index*/)
{
    m_userSets.load(readWord(memory, userSetSelector), memory);
}

void SimulatedCamera::saveUserSet(RegisterMemory& memory, std::uint64_t /*index*/)
{
    m_userSets.save(readWord(memory, userSetSelector), memory);
}

void SimulatedCamera::reset(RegisterMemory& memory, std::uint64_t /*index*/)
{
    RegisterMemory fresh;
    writePowerUpValues(fresh);
    UserSets::copyKept(memory, fresh);
    m_userSets.load(readWord(fresh, userSetDefault), fresh);
    memory = fresh;
    m_timeZero = m_clock();
}

void SimulatedCamera::latchTimestamp(RegisterMemory& memory, std::uint64_t /*index*/)
{
    writeLong(
        memory, timestampLatchValue, static_cast<std::uint64_t>((m_clock() - m_timeZero).count()));
}

void SimulatedCamera::resetTimestamp(RegisterMemory& memory, std::uint64_t /*index*/)
{
    m_timeZero = m_clock();
    writeLong(memory, timestampLatchValue, 0);
}

void SimulatedCamera::trigger(RegisterMemory& memory, std::uint64_t index)
{
    constexpr std::uint32_t sourceSoftware = 1;
    const bool armed = readWord(memory, triggerMode + 0x20 * index) != 0
        && readWord(memory, triggerSource + 0x20 * index) == sourceSoftware;
    const std::uint64_t count = triggerCount + 4 * index;
    if (armed) {
        writeWord(memory, count, readWord(memory, count) + 1);
    }
}

void SimulatedCamera::resetCounter(RegisterMemory& memory, std::uint64_t index)
{
    writeWord(memory, counterValue + 4 * index, 0);
}

void SimulatedCamera::tryServiceKey(RegisterMemory& memory)
{
    writeWord(memory, serviceUnlocked, readWord(memory, serviceKey) == serviceKeyValue ? 1 : 0);
    writeWord(memory, serviceKey, 0);
}

// The test is over when its command has been polled twice, or its result is asked for.
void SimulatedCamera::advanceSelfTest(
    RegisterMemory& memory, std::uint64_t address, std::size_t size)
{
    constexpr std::uint32_t passed = 1;
    if (readWord(memory, selfTestRun) != 1) {
        return;
    }
    if (!overlap(address, size, selfTestResult, 4) && ++m_selfTestReads < 2) {
        return;
    }
    writeWord(memory, selfTestRun, 0);
    writeWord(memory, selfTestResult, passed);
}

double SimulatedCamera::secondsOn() const
{
    return std::chrono::duration<double>(m_clock() - m_timeZero).count();
}

// Warms up within minutes and breathes a little; in steps of 1/16 degree.
void SimulatedCamera::measureTemperatures(RegisterMemory& memory) const
{
    const double seconds = secondsOn();
    const double rise = 8.0 * (1.0 - std::exp(-seconds / 300.0)) + 0.25 * std::sin(seconds / 4.0);
    static constexpr std::initializer_list<double> cold { 38.0, 34.0, 41.0 };
    std::uint64_t address = temperature;
    for (const double start : cold) {
        writeFloat(memory, address, static_cast<float>(std::round((start + rise) * 16.0) / 16.0));
        address += 4;
    }
}

// Swings a little with the load; in steps of 1/64 V.
void SimulatedCamera::measureSupply(RegisterMemory& memory) const
{
    const double swing = std::round(6.0 * std::sin(secondsOn() / 3.0)) / 64.0;
    writeDouble(memory, supplyVoltage, 12.0625 + swing);
}

} // namespace

std::unique_ptr<CameraBehaviour> makeSimulatedCameraBehaviour(CameraClock clock)
{
    return std::make_unique<SimulatedCamera>(clock ? std::move(clock) : systemClock);
}

} // namespace zqcameralib
