// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/InitialRegisters.h"

#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"
#include "features/Conditions.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace zqcameralib {

namespace {

/// Largest register that is taken for one that decides something.
constexpr std::size_t maxDecidingSize = 8;
/// Nodes looked at behind one condition.
constexpr std::size_t maxSources = 32;

class Chooser {
public:
    Chooser(ZQCamera::Impl& camera, RegisterMemory& memory)
        : m_camera(camera)
        , m_port(camera.port())
        , m_conditions(camera.description(), camera.nodes(), camera.port())
        , m_memory(memory)
    {
        for (const DescriptionNode& node : camera.description().nodes()) {
            const std::string_view mode = childText(node.registerElement(), "AccessMode");
            const auto place = mode == "RO" ? std::nullopt : fixedPlace(node);
            if (place) {
                m_written.insert({ place->first, place->size() });
            }
        }
    }

    void satisfy(const Condition& condition)
    {
        // The registers of a condition that holds are not touched again.
        if (m_satisfied.count(condition.target) == 0 && makeMet(condition)) {
            m_satisfied.insert(condition.target);
        }
    }

    /// Clears the bits that lock, which may share a register with those that make available.
    void release(const Condition& lock)
    {
        if (!m_released.insert(lock.target).second || ask(lock) != Conditions::Truth::Yes) {
            return;
        }
        for (const std::size_t node : bitsBehind(lock.target)) {
            if (m_satisfied.count(node) == 0) {
                (void)m_camera.nodes().set(node, Number::of(std::int64_t(0)));
            }
        }
    }

    /// Filling registers may leave a Boolean neither on nor off.
    void settleBoolean(const Feature& feature)
    {
        NodeMap& nodes = m_camera.nodes();
        m_port.invalidate();
        if (!nodes.number(feature.index).isOk() && nodes.rawNumber(feature.index).isOk()) {
            (void)nodes.set(feature.index, Number::of(std::int64_t(1)));
        }
    }

private:
    Conditions::Truth ask(const Condition& condition)
    {
        m_port.invalidate();
        return m_conditions.ask(condition);
    }
    /// Nothing can be done about one that cannot be evaluated: it counts as met.
    bool isMet(const Condition& condition) { return ask(condition) != Conditions::Truth::No; }

    /// The parts of registers that the value of a node comes from.
    std::vector<std::size_t> bitsBehind(std::size_t node) const
    {
        const Description& description = m_camera.description();
        std::vector<std::size_t> bits = reachable(description, node, isValueSource, maxSources);
        const auto isOther = [&description](std::size_t source) {
            return !isBitField(description.node(source).kind);
        };
        bits.erase(std::remove_if(bits.begin(), bits.end(), isOther), bits.end());
        return bits;
    }

    bool makeMet(const Condition& condition)
    {
        Registers deciding;
        {
            RegisterPort::Recorder recorder(m_port);
            if (isMet(condition)) {
                settle(recorder.read);
                return true;
            }
            deciding = std::move(recorder.read);
        }
        // The register that decides is read last: those before it choose an address or an index.
        std::reverse(deciding.begin(), deciding.end());
        deciding.erase(std::remove_if(deciding.begin(), deciding.end(),
                           [this](const auto& reg) {
                               return reg.size > maxDecidingSize || m_settled.count(reg) != 0;
                           }),
            deciding.end());
        // What nobody sets says what the camera has: of several that do, all of it.
        Registers inquired;
        std::copy_if(deciding.begin(), deciding.end(), std::back_inserter(inquired),
            [this](const Register& reg) { return m_written.count(reg) == 0; });
        if (inquired.size() > 1 && tryValues(inquired, condition)) {
            return true;
        }
        for (const Register& reg : deciding) {
            if (tryValues({ reg }, condition)) {
                return true;
            }
        }
        return tryValues(deciding, condition);
    }

    void settle(const Registers& registers)
    {
        m_settled.insert(registers.begin(), registers.end());
    }

    bool tryValues(const Registers& registers, const Condition& condition)
    {
        for (const std::uint8_t filler : { std::uint8_t(0xFF), std::uint8_t(0x01) }) {
            for (const Register& reg : registers) {
                fill(reg, filler);
            }
            if (isMet(condition)) {
                settle(registers);
                return true;
            }
        }
        for (const Register& reg : registers) {
            fill(reg, 0);
        }
        return false;
    }

    void fill(const Register& reg, std::uint8_t filler)
    {
        std::vector<std::uint8_t> bytes(reg.size, filler);
        m_memory.write(reg.address, bytes.data(), bytes.size());
    }

    ZQCamera::Impl& m_camera;
    RegisterPort& m_port;
    Conditions m_conditions;
    RegisterMemory& m_memory;
    std::set<Register> m_written; ///< registers at fixed places that can be set
    std::set<Register> m_settled;
    std::set<std::size_t> m_satisfied; ///< the nodes that decide
    std::set<std::size_t> m_released;
};

} // namespace

void chooseInitialRegisters(ZQCamera::Impl& camera, RegisterMemory& memory)
{
    Chooser chooser(camera, memory);
    for (const Feature& feature : camera.features()) {
        for (const Condition& condition : feature.conditions.implementedIf) {
            chooser.satisfy(condition);
        }
        for (const Condition& condition : feature.conditions.availableIf) {
            chooser.satisfy(condition);
        }
    }
    for (const Feature& feature : camera.features()) {
        // Entries mostly share one register.
        if (!feature.entries.empty()) {
            for (const Condition& condition : feature.entries.front().availableIf) {
                chooser.satisfy(condition);
            }
        }
        for (const Condition& lock : feature.conditions.lockedIf) {
            chooser.release(lock);
        }
    }
    for (const Feature& feature : camera.features()) {
        if (feature.type == featurebrowser::FEATURE_BOOLEAN && feature.isReadable()
            && feature.endsInRegister) {
            chooser.settleBoolean(feature);
        }
    }
    camera.port().invalidate();
}

} // namespace zqcameralib
