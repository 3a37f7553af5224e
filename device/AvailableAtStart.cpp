#include "AvailableAtStart.h"

#include "GlibError.h"

#include <algorithm>
#include <set>

namespace zqcameralib {

namespace {

using Condition = gboolean (*)(ArvGcFeatureNode*, GError**);
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

    void satisfy(ArvGcFeatureNode* node, Condition condition)
    {
        Registers deciding;
        {
            RegisterPort::Recorder recorder(m_port);
            if (check(node, condition)) {
                settle(recorder.read);
                return;
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
            if (tryValues({ reg }, node, condition)) {
                return;
            }
        }
        tryValues(deciding, node, condition);
    }

private:
    bool check(ArvGcFeatureNode* node, Condition condition)
    {
        GlibError error;
        m_port.invalidate();
        return condition(node, error.out()) != FALSE || error;
    }

    void settle(const Registers& registers)
    {
        m_settled.insert(registers.begin(), registers.end());
    }

    bool tryValues(const Registers& registers, ArvGcFeatureNode* node, Condition condition)
    {
        for (const std::uint8_t filler : { std::uint8_t(0xFF), std::uint8_t(0x01) }) {
            for (const RegisterPort::Register& reg : registers) {
                fill(reg, filler);
            }
            if (check(node, condition)) {
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
};

} // namespace

void makeAvailable(const std::vector<Feature>& features, RegisterPort& port, RegisterMemory& memory)
{
    Starter starter(port, memory);
    for (const Feature& feature : features) {
        for (ArvGcFeatureNode* node : feature.implementedIf) {
            starter.satisfy(node, arv_gc_feature_node_is_implemented);
        }
        for (ArvGcFeatureNode* node : feature.availableIf) {
            starter.satisfy(node, arv_gc_feature_node_is_available);
        }
    }
    port.invalidate();
}

} // namespace zqcameralib
