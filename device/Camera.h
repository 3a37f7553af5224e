#pragma once

#include "CertainReads.h"
#include "DependencyGraph.h"
#include "Description.h"
#include "Feature.h"
#include "MemoryBackend.h"
#include "PortDevice.h"
#include "RegisterPort.h"

#include "featurebrowser/ZQCamera.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// An open camera: its checked description, its registers, and the node map between them.
class ZQCamera::Impl {
public:
    Impl(std::unique_ptr<Description> description, std::unique_ptr<RegisterBackend> backend);
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl();

    /// Builds the node map and the feature list; false and one line in `error` on failure.
    bool start(std::string& error);

    const Description& description() const { return *m_description; }
    RegisterPort& port() { return m_port; }
    const std::vector<Feature>& features() const { return m_features; }
    /// Null when there is no feature of that name.
    const Feature* feature(std::string_view name) const;
    /// Built when it is first asked for.
    const DependencyGraph& dependencies() const;
    /// Nothing where reading registers together gains nothing.
    const CertainReads& certainReads() const { return m_certainReads; }
    using Registers = std::vector<RegisterPort::Register>;
    /// Where the last write to a feature went to.
    void setWritten(const Feature& feature, Registers registers);
    /// Empty when the feature has not been written yet.
    const Registers& written(const Feature& feature) const;
    ArvGc* nodeMap() const { return zqcameralib::nodeMap(*m_device); }

private:
    std::unique_ptr<Description> m_description;
    mutable std::unique_ptr<DependencyGraph> m_dependencies;
    RegisterPort m_port;
    PortDevicePointer m_device;
    std::vector<Feature> m_features;
    CertainReads m_certainReads;
    std::unordered_map<std::string_view, std::size_t> m_byName;
    std::unordered_map<const Feature*, Registers> m_written;
};

/// Opens a description over registers elsewhere. Null and one line in `error` on failure.
std::unique_ptr<ZQCamera::Impl> openOver(
    std::string text, std::unique_ptr<RegisterBackend> backend, std::string& error);

/// Opens a description as a camera over a memory of its own, with a behaviour of its own. Null and
/// one line in `error` on failure.
std::unique_ptr<ZQCamera::Impl> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour, std::string& error);

/// The same for a description of which nothing else is known: registers that decide whether
/// features are implemented or available start at values that make them so.
std::unique_ptr<ZQCamera::Impl> openDescription(std::string text, std::string& error);

} // namespace zqcameralib
