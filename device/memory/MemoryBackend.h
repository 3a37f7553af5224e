// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "memory/CameraBehaviour.h"
#include "memory/RegisterMemory.h"
#include "memory/SceneFeed.h"
#include "registers/RegisterBackend.h"

#include <functional>
#include <memory>

namespace zqcameralib {

/// The registers of a camera that exists in process only. Every access succeeds. While it sends
/// images, those follow its settings: each operation that has written is followed by reading them.
class MemoryBackend : public RegisterBackend {
public:
    /// Reads, by way of this backend, what images follow.
    using SettingsReader = std::function<SceneSettings()>;

    /// `behaviour` may be null: then the camera only remembers what is written.
    explicit MemoryBackend(std::unique_ptr<CameraBehaviour> behaviour);

    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override;
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override;
    void beginCall() override { ++m_calls; }
    void endCall() override;
    void executed(const std::string& command) override;
    Result<std::unique_ptr<FrameSourceOpening>> openFrames(
        const ImageFormat& format, int buffers) override;

    RegisterMemory& memory() { return m_memory; }
    /// Without one, images do not follow anything.
    void setSettingsReader(SettingsReader reader) { m_readSettings = std::move(reader); }

private:
    void tellSettings(SceneFeed& feed);

    RegisterMemory m_memory;
    std::unique_ptr<CameraBehaviour> m_behaviour;
    SettingsReader m_readSettings;
    std::weak_ptr<SceneFeed> m_feed; ///< of the images, while anybody wants them
    int m_calls = 0; ///< operations that go on, one in the other
    bool m_isWritten = false; ///< since the settings were read
};

} // namespace zqcameralib
