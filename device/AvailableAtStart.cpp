#include "AvailableAtStart.h"

#include "GlibError.h"

#include <algorithm>
#include <set>

namespace zqcameralib {

namespace {

using Registers = std::vector<RegisterPort::Register>;

/// Largest register that is taken for one that decides something.
constexpr std::size_t maxDecidingSize = 8;

class Starter {
public:
    Starter(RegisterPort& port, RegisterMemory& memory)
        : m_port(port)
        , m_memory(memory)
    {
    }

    void satisfy(const Condition& condition)
    {
        // The registers of a condition that holds are not touched again.
        if (m_satisfied.count(condition.target) == 0 && make(condition)) {
            m_satisfied.insert(condition.target);
        }
    }

private:
    bool make(const Condition& condition)
    {
        Registers deciding;
        {
            RegisterPort::Recorder recorder(m_port);
            if (check(condition)) {
                settle(recorder.read);
                return true;
            }
            deciding = std::move(recorder.read);
        }
        // The register that decides is read last: those before it choose an address or an index.
        std::reverse(deciding.begin(), deciding.end());
        deciding.erase(std::remove_if(deciding.begin(), deciding.end(),
                           [this](const auto& reg) {
                               return reg.second > maxDecidingSize || m_settled.count(reg) != 0;
                           }),
            deciding.end());
        for (const RegisterPort::Register& reg : deciding) {
            if (tryValues({ reg }, condition)) {
                return true;
            }
        }
        return tryValues(deciding, condition);
    }

    bool check(const Condition& condition)
    {
        GlibError error;
        m_port.invalidate();
        return condition.check(condition.node, error.out()) != FALSE || error;
    }

    void settle(const Registers& registers)
    {
        m_settled.insert(registers.begin(), registers.end());
    }

    bool tryValues(const Registers& registers, const Condition& condition)
    {
        for (const std::uint8_t filler : { std::uint8_t(0xFF), std::uint8_t(0x01) }) {
            for (const RegisterPort::Register& reg : registers) {
                fill(reg, filler);
            }
            if (check(condition)) {
                settle(registers);
                return true;
            }
        }
        for (const RegisterPort::Register& reg : registers) {
            fill(reg, 0);
        }
        return false;
    }

    void fill(const RegisterPort::Register& reg, std::uint8_t filler)
    {
        std::vector<std::uint8_t> bytes(reg.second, filler);
        m_memory.write(reg.first, bytes.data(), bytes.size());
    }

    RegisterPort& m_port;
    RegisterMemory& m_memory;
    std::set<RegisterPort::Register> m_settled;
    std::set<std::size_t> m_satisfied; ///< the nodes that decide
};

} // namespace

void makeAvailable(const std::vector<Feature>& features, RegisterPort& port, RegisterMemory& memory)
{
    Starter starter(port, memory);
    for (const Feature& feature : features) {
        for (const Condition& condition : feature.implementedIf) {
            starter.satisfy(condition);
        }
        for (const Condition& condition : feature.availableIf) {
            starter.satisfy(condition);
        }
    }
    port.invalidate();
}

} // namespace zqcameralib
