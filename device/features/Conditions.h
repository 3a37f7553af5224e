#pragma once

#include "features/Feature.h"
#include "registers/RegisterPort.h"

#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// Evaluates conditions. Few nodes decide for many features, so an answer is kept as long as the
/// registers read for it are.
class Conditions {
public:
    enum class Truth { No, Yes, Unknown };

    explicit Conditions(RegisterPort& port)
        : m_port(port)
    {
    }

    /// Unknown when it cannot be evaluated.
    Truth ask(const Condition& condition);
    /// A condition that cannot be evaluated counts as met.
    bool allHold(const std::vector<Condition>& conditions);
    bool anyHolds(const std::vector<Condition>& conditions);

private:
    struct Answer {
        Truth truth;
        Registers read;
    };

    RegisterPort& m_port;
    std::uint64_t m_snapshot = 0;
    std::unordered_map<std::size_t, Answer> m_answers; ///< by the node that decides
};

} // namespace zqcameralib
