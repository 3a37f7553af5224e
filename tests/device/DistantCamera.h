#pragma once

#include "base/StatusCodes.h"
#include "memory/MemoryBackend.h"

#include <cstdint>
#include <optional>

/// A camera in memory whose registers are read together where that is possible, as those of a real
/// one are. Counts accesses; from the one it is told on, that register fails.
class DistantCamera : public zqcameralib::MemoryBackend {
public:
    using MemoryBackend::MemoryBackend;

    bool prefersBatches() const override { return true; }
    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
        zqcameralib::AccessKind kind, zqcameralib::AccessError& error) override
    {
        ++alone;
        return readOne(address, buffer, size, kind, error);
    }
    void readTogether(std::vector<Request>& requests) override
    {
        for (Request& request : requests) {
            zqcameralib::AccessError ignored;
            ++together;
            request.done = readOne(
                request.address, request.bytes.data(), request.bytes.size(), request.kind, ignored);
            if (!request.done) {
                return;
            }
        }
    }

    std::uint64_t accesses() const { return alone + together; }
    void reset(std::uint64_t nextFailing)
    {
        alone = together = 0;
        m_failing = nextFailing;
        m_broken.reset();
    }

    std::uint64_t alone = 0;
    std::uint64_t together = 0;

private:
    bool readOne(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
        zqcameralib::AccessKind kind, zqcameralib::AccessError& error)
    {
        if (accesses() == m_failing) {
            m_broken = address;
        }
        if (m_broken == address) {
            error = { zqcameralib::injectedFault, "injected fault" };
            return false;
        }
        return MemoryBackend::read(address, buffer, size, kind, error);
    }

    std::uint64_t m_failing = 0; ///< counted from 1; 0 is none
    std::optional<std::uint64_t> m_broken; ///< its address
};
