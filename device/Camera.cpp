#include "Camera.h"

#include "AvailableAtStart.h"
#include "NodeMapXml.h"

namespace zqcameralib {

ZQCamera::Impl::Impl(
    std::unique_ptr<Description> description, std::unique_ptr<RegisterBackend> backend)
    : m_description(std::move(description))
    , m_port(std::move(backend))
{
}

ZQCamera::Impl::~Impl() = default;

bool ZQCamera::Impl::start(std::string& error)
{
    m_device = makePortDevice(m_port, nodeMapXml(*m_description));
    if (!m_device) {
        error = "the description cannot be evaluated";
        return false;
    }
    m_features = collectFeatures(*m_description, buildFeatureTree(*m_description), nodeMap());
    for (std::size_t i = 0; i < m_features.size(); ++i) {
        m_byName.emplace(m_features[i].name, i);
    }
    return true;
}

const Feature* ZQCamera::Impl::feature(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : &m_features[found->second];
}

std::unique_ptr<ZQCamera::Impl> openInMemory(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour, std::string& error)
{
    std::unique_ptr<Description> description = Description::parse(std::move(text), error);
    if (!description) {
        return nullptr;
    }
    const bool isForeign = !behaviour;
    auto backend = std::make_unique<MemoryBackend>(std::move(behaviour));
    RegisterMemory& memory = backend->memory();
    auto camera = std::make_unique<ZQCamera::Impl>(std::move(description), std::move(backend));
    if (!camera->start(error)) {
        return nullptr;
    }
    if (isForeign) {
        makeAvailable(camera->features(), camera->port(), memory);
    }
    return camera;
}

} // namespace zqcameralib
