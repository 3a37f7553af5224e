#include "Camera.h"

#include "CommandBehaviour.h"
#include "DescriptionCheck.h"
#include "FavourableStart.h"
#include "GlibError.h"
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
    if (m_port.backend().prefersBatches()) {
        m_certainReads = CertainReads(*m_description, m_features);
    }
    return true;
}

const DependencyGraph& ZQCamera::Impl::dependencies() const
{
    if (!m_dependencies) {
        m_dependencies = std::make_unique<DependencyGraph>(*m_description);
    }
    return *m_dependencies;
}

const Feature* ZQCamera::Impl::feature(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : &m_features[found->second];
}

void ZQCamera::Impl::setWritten(const Feature& feature, Registers registers)
{
    m_written[&feature] = std::move(registers);
}

const ZQCamera::Impl::Registers& ZQCamera::Impl::written(const Feature& feature) const
{
    static const Registers none;
    const auto found = m_written.find(&feature);
    return found == m_written.end() ? none : found->second;
}

namespace {

void addCommandRegisters(ZQCamera::Impl& camera, CommandBehaviour& behaviour)
{
    for (const Feature& feature : camera.features()) {
        if (feature.commandRegister == nullptr) {
            continue;
        }
        const RegisterPort::Recorder recorder(camera.port());
        GlibError error;
        arv_gc_integer_get_value(ARV_GC_INTEGER(feature.commandRegister), error.out());
        if (!error && !recorder.read.empty()) {
            const RegisterPort::Register& last = recorder.read.back();
            behaviour.addCommandRegister(last.first, last.second);
        }
    }
}

} // namespace

std::unique_ptr<ZQCamera::Impl> openOver(
    std::string text, std::unique_ptr<RegisterBackend> backend, std::string& error)
{
    std::unique_ptr<Description> description = Description::parse(std::move(text), error);
    if (!description || !checkDescription(*description, error)) {
        return nullptr;
    }
    auto camera = std::make_unique<ZQCamera::Impl>(std::move(description), std::move(backend));
    return camera->start(error) ? std::move(camera) : nullptr;
}

std::unique_ptr<ZQCamera::Impl> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour, std::string& error)
{
    return openOver(std::move(text), std::make_unique<MemoryBackend>(std::move(behaviour)), error);
}

std::unique_ptr<ZQCamera::Impl> openDescription(std::string text, std::string& error)
{
    auto behaviour = std::make_unique<CommandBehaviour>();
    CommandBehaviour& commands = *behaviour;
    auto backend = std::make_unique<MemoryBackend>(std::move(behaviour));
    RegisterMemory& memory = backend->memory();
    std::unique_ptr<ZQCamera::Impl> camera = openOver(std::move(text), std::move(backend), error);
    if (camera) {
        startFavourably(*camera, memory);
        addCommandRegisters(*camera, commands);
    }
    return camera;
}

} // namespace zqcameralib
