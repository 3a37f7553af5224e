// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Status.h"
#include "description/DependencyGraph.h"
#include "description/Description.h"
#include "features/Feature.h"
#include "features/FeatureReader.h"
#include "features/PrefetchPlan.h"
#include "nodemap/NodeMap.h"
#include "registers/RegisterPort.h"

#include "featurebrowser/ZQCamera.h"

#include <chrono>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// An open camera: its checked description, its registers, and the node map between them.
class __attribute__((visibility("hidden"))) ZQCamera::Impl {
public:
    explicit Impl(std::unique_ptr<RegisterBackend> backend);
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl();

    /// Builds node map and feature list of a description. After a failure what was there is still
    /// there.
    Status use(std::string text);
    /// As ZQCamera::reconnect, without waiting where `waits` is false.
    Status reconnect(bool waits);
    /// Grows when the camera, or its description, is another one: pointers to descriptions,
    /// features and nodes are void then.
    std::uint64_t generation() const { return m_generation; }

    const Description& description() const { return *m_contents->description; }
    /// For those who need it longer than the camera shows it.
    std::shared_ptr<const Description> sharedDescription() const { return m_contents->description; }
    RegisterPort& port() { return m_port; }
    const std::vector<Feature>& features() const { return m_contents->features; }
    /// Null when there is no feature of that name.
    const Feature* feature(std::string_view name) const;
    /// The same, with those that are not listed because nobody is to see them.
    const Feature* anyFeature(std::string_view name) const;
    /// Built when it is first asked for.
    const DependencyGraph& dependencies() const;
    /// The feature through which a user changes what stands in `node`, one that can be written
    /// before others; null when there is none. Looked for when it is first asked for.
    const Feature* featureOver(std::size_t node) const;
    /// Nothing where reading registers together gains nothing.
    const PrefetchPlan& prefetchPlan() const { return m_contents->prefetchPlan; }
    /// Where the last write to a feature went to.
    void setWritten(const Feature& feature, Registers registers);
    /// Empty when the feature has not been written yet.
    const Registers& written(const Feature& feature) const;
    NodeMap& nodes() const { return *m_contents->nodes; }
    FeatureReader& reader() const { return *m_contents->reader; }

    /// What went wrong last on this camera.
    const Status& lastError() const { return m_lastError; }
    /// What was said when `code` last happened, else a general sentence.
    std::string errorText(int code);
    /// Notes a failure, for lastError(); returns its code.
    int note(const Status& failure);
    /// Whether images are acquired; not while the camera is lost.
    bool isGrabbing();
    /// Locks, or frees, what may not change while images are acquired (SFNC: TLParamsLocked).
    void setGrabbing(bool grabbing);

private:
    /// All that comes from one description.
    struct Contents {
        std::shared_ptr<const Description> description;
        std::unique_ptr<DependencyGraph> dependencies;
        std::unique_ptr<NodeMap> nodes;
        std::unique_ptr<FeatureReader> reader;
        std::vector<Feature> features;
        std::vector<Feature> unlisted;
        PrefetchPlan prefetchPlan;
        std::unordered_map<std::string_view, const Feature*> byName;
        std::unordered_map<std::string_view, const Feature*> unlistedByName;
        std::unordered_map<std::size_t, const Feature*> overNode;
        std::unordered_map<const Feature*, Registers> written;
    };

    Status followCamera();
    void endAcquisition();

    RegisterPort m_port;
    std::unique_ptr<Contents> m_contents;
    std::uint64_t m_generation = 0;
    std::uint64_t m_cameraNumber = 0;
    Status m_lastError;
    bool m_isGrabbing = false;
};

/// Opens a description over registers elsewhere.
Result<std::unique_ptr<ZQCamera::Impl>> openOver(
    std::string text, std::unique_ptr<RegisterBackend> backend);

} // namespace zqcameralib
