#include "TestCamera.h"

#include "description/ReferenceWalk.h"
#include "opening/SimulatedOpening.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

using namespace zqcameralib;

std::string element(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

std::string node(const std::string& kind, const std::string& name, const std::string& content)
{
    return "<" + kind + " Name=\"" + name + "\">" + content + "</" + kind + ">";
}

std::string intReg(const std::string& name, unsigned address, const std::string& more)
{
    return "<IntReg Name=\"" + name + "\">" + element("Address", std::to_string(address))
        + (more.find("<Length>") == std::string::npos ? element("Length", "4") : "")
        + (more.find("<AccessMode>") == std::string::npos ? element("AccessMode", "RW") : "")
        + element("pPort", "Device") + more + element("Endianess", "BigEndian") + "</IntReg>";
}

std::string TestCamera::description(const std::string& members, const std::string& nodes)
{
    std::string features;
    std::istringstream names(members);
    for (std::string name; names >> name;) {
        features += element("pFeature", name);
    }
    return R"(<?xml version="1.0" encoding="utf-8"?><RegisterDescription ModelName="M" VendorName="V"
 SchemaMajorVersion="1" SchemaMinorVersion="1" SchemaSubMinorVersion="0">
<Category Name="Root"><pFeature>Main</pFeature></Category>
<Category Name="Main">)"
        + features + "</Category>" + nodes + R"(<Port Name="Device"/></RegisterDescription>)";
}

std::unique_ptr<ZQCamera> TestCamera::openText(const std::string& xml)
{
    auto opened = openDescription(xml);
    if (!opened.isOk()) {
        throw std::runtime_error(opened.status().text());
    }
    return std::make_unique<ZQCamera>(std::move(opened.value()));
}

TestCamera TestCamera::simulated()
{
    std::string error;
    return TestCamera(ZQCamera::OpenSimulated(error));
}

int TestCamera::registerAt(std::uint64_t address)
{
    std::array<std::uint8_t, 4> bytes {};
    const auto read = port.read({ address, 4 }, bytes.data(), AccessKind::Memory);
    return read.isOk() ? bytes[3] : -1;
}

std::string TestCamera::listed() const
{
    std::string text;
    for (const auto& record : repository.GetFeatureList()) {
        text += (text.empty() ? "" : " ") + record->name + ":" + std::to_string(record->depth);
    }
    return text;
}

bool TestCamera::changesByItself(const std::string& name)
{
    const Description& description = camera->impl().description();
    const auto sources = reachable(description, description.find(name), isValueSource, 100);
    return std::any_of(sources.begin(), sources.end(), [&description](std::size_t node) {
        return bool(description.node(node).element.child("PollingTime"));
    });
}

std::vector<std::string> realDescriptions()
{
    const char* given = std::getenv("ZQ_CAMERA_DESCRIPTIONS");
    const std::filesystem::path folder = given == nullptr ? ZQ_DESCRIPTION_FOLDER : given;
    std::vector<std::string> files;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        if (entry.path().extension() == ".xml") {
            files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}
