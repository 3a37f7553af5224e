// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/Camera.h"

#include "base/StatusCodes.h"
#include "description/ReferenceWalk.h"
#include "nodemap/LegacyAccess.h"
#include "validation/DescriptionCheck.h"
#include "words/Words.h"

#include <utility>

namespace zqcameralib {

ZQCamera::Impl::Impl(std::unique_ptr<RegisterBackend> backend)
    : m_port(std::move(backend))
    , m_contents(std::make_unique<Contents>())
    , m_cameraNumber(m_port.backend().cameraNumber())
{
}

ZQCamera::Impl::~Impl() = default;

Status ZQCamera::Impl::use(std::string text)
{
    std::string error;
    auto contents = std::make_unique<Contents>();
    auto parsed = Description::parse(std::move(text), error);
    if (!parsed || !checkDescription(*parsed, error)) {
        return { notLoaded, error };
    }
    contents->description = std::move(parsed);
    const Description& description = *contents->description;
    m_port.setFourByteKind(
        wantsRegisterAccess(description) ? AccessKind::Register : AccessKind::Memory);
    contents->nodes = std::make_unique<NodeMap>(description, m_port);
    contents->reader = std::make_unique<FeatureReader>(description, *contents->nodes, m_port);
    const std::vector<ListedNode> listed = listFeatures(description);
    contents->features = collectFeatures(description, listed);
    contents->unlisted = collectFeatures(description, unlistedFeatures(description, listed));
    for (const Feature& feature : contents->features) {
        contents->byName.emplace(feature.name, &feature);
    }
    for (const Feature& feature : contents->unlisted) {
        contents->unlistedByName.emplace(feature.name, &feature);
    }
    if (m_port.backend().prefersBatches()) {
        contents->prefetchPlan = PrefetchPlan(description, contents->features);
    }
    m_contents = std::move(contents);
    ++m_generation;
    return {};
}

Status ZQCamera::Impl::reconnect(bool waits)
{
    RegisterBackend& backend = m_port.backend();
    const CallScope call(backend);
    const bool wasLost = backend.isLost();
    m_port.invalidate();
    if (Status found = backend.reconnect(waits); !found.isOk()) {
        return found;
    }
    if (const Status followed = followCamera(); !followed.isOk()) {
        backend.giveUp(followed.words());
        return backend.loss();
    }
    if (wasLost) {
        endAcquisition();
    }
    return {};
}

std::string ZQCamera::Impl::errorText(int code)
{
    RegisterBackend& backend = m_port.backend();
    if (backend.isLost() && code == backend.loss().code()) {
        return backend.loss().text();
    }
    return !m_lastError.isOk() && code == m_lastError.code() ? m_lastError.text()
                                                             : statusText(code).text();
}

int ZQCamera::Impl::note(const Status& failure)
{
    m_lastError = failure;
    return failure.code();
}

Status ZQCamera::Impl::followCamera()
{
    const std::uint64_t number = m_port.backend().cameraNumber();
    if (number == m_cameraNumber) {
        return {};
    }
    if (const Status used = use(m_port.backend().description()); !used.isOk()) {
        return used.withText(
            translated("there is another camera now, which cannot be used") + ": " + used.words());
    }
    m_cameraNumber = number;
    m_isGrabbing = false;
    return {};
}

/// A camera that comes back may still send images to nobody.
void ZQCamera::Impl::endAcquisition()
{
    if (!std::exchange(m_isGrabbing, false)) {
        return;
    }
    const Feature* stop = anyFeature("AcquisitionStop");
    if (stop != nullptr && stop->type == featurebrowser::FEATURE_COMMAND) {
        (void)nodes().execute(stop->index); // one that was restarted has none to stop
    }
    setGrabbing(false);
}

bool ZQCamera::Impl::isGrabbing()
{
    return m_isGrabbing && !m_port.backend().isLost();
}

void ZQCamera::Impl::setGrabbing(bool grabbing)
{
    m_isGrabbing = grabbing;
    const std::size_t node = description().find("TLParamsLocked");
    if (node != Description::absent && hasNumber(description().node(node).kind)) {
        // A camera that does not take it locks by itself.
        (void)nodes().set(node, Number::of(std::int64_t(grabbing)));
        m_port.invalidate();
    }
}

const DependencyGraph& ZQCamera::Impl::dependencies() const
{
    if (!m_contents->dependencies) {
        m_contents->dependencies = std::make_unique<DependencyGraph>(description());
    }
    return *m_contents->dependencies;
}

const Feature* ZQCamera::Impl::feature(std::string_view name) const
{
    const auto found = m_contents->byName.find(name);
    return found == m_contents->byName.end() ? nullptr : found->second;
}

const Feature* ZQCamera::Impl::anyFeature(std::string_view name) const
{
    const Feature* listed = feature(name);
    const auto found = m_contents->unlistedByName.find(name);
    return listed != nullptr || found == m_contents->unlistedByName.end() ? listed : found->second;
}

const Feature* ZQCamera::Impl::featureOver(std::size_t node) const
{
    auto& overNode = m_contents->overNode;
    if (overNode.empty()) {
        for (const bool isWritable : { true, false }) {
            for (const Feature& feature : features()) {
                if ((feature.access != featurebrowser::ACCESS_READ_ONLY) == isWritable) {
                    for (const std::size_t link : valueChain(description(), feature.index)) {
                        overNode.emplace(link, &feature);
                    }
                }
            }
        }
    }
    const auto found = overNode.find(node);
    return found == overNode.end() ? nullptr : found->second;
}

void ZQCamera::Impl::setWritten(const Feature& feature, Registers registers)
{
    m_contents->written[&feature] = std::move(registers);
}

const Registers& ZQCamera::Impl::written(const Feature& feature) const
{
    static const Registers none;
    const auto found = m_contents->written.find(&feature);
    return found == m_contents->written.end() ? none : found->second;
}

Result<std::unique_ptr<ZQCamera::Impl>> openOver(
    std::string text, std::unique_ptr<RegisterBackend> backend)
{
    auto camera = std::make_unique<ZQCamera::Impl>(std::move(backend));
    if (Status used = camera->use(std::move(text)); !used.isOk()) {
        return used;
    }
    return camera;
}

} // namespace zqcameralib
