// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

#include "description/ReferenceWalk.h"

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

std::string reg(
    const std::string& kind, const std::string& name, unsigned address, const std::string& more)
{
    std::string content = element("Address", std::to_string(address));
    for (const auto& [tag, text] : { std::pair("Length", "4"), { "AccessMode", "RW" },
             { "pPort", "Device" }, { "Endianess", "BigEndian" } }) {
        const bool isGiven = more.find("<" + std::string(tag) + ">") != std::string::npos
            || more.find("<p" + std::string(tag) + ">") != std::string::npos;
        content += isGiven ? "" : element(tag, text);
    }
    return node(kind, name, content + more);
}

std::string command(const std::string& name, const std::string& behind, const std::string& value)
{
    return node("Command", name, element("pValue", behind) + element("CommandValue", value));
}

std::string knife(const std::string& kind, const std::string& name,
    const std::vector<std::string>& nodes, const std::string& formula)
{
    std::string content;
    for (const std::string& of : nodes) {
        content += node("pVariable", of, of);
    }
    return node(kind, name, content + element("Formula", formula));
}

std::string repeated(int count, const std::function<std::string(int)>& make)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += make(i);
    }
    return text;
}

std::string doubling(int levels)
{
    return node("Integer", "K0", "<Value>1</Value>") + repeated(levels, [](int i) {
        const std::string last = "K" + std::to_string(i);
        return node("IntSwissKnife", "K" + std::to_string(i + 1),
            node("pVariable", "A", last) + node("pVariable", "B", last) + "<Formula>A+B</Formula>");
    });
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

static std::unique_ptr<ZQCamera> checked(Result<std::unique_ptr<ZQCamera::Impl>> opened)
{
    if (!opened.isOk()) {
        throw std::runtime_error(opened.status().text());
    }
    return std::make_unique<ZQCamera>(std::move(opened.value()));
}

TestCamera::TestCamera(Result<std::unique_ptr<ZQCamera::Impl>> opened)
    : TestCamera(checked(std::move(opened)))
{
}

TestCamera TestCamera::ofFile(const std::string& path)
{
    std::string error;
    auto opened = ZQCamera::OpenDescription(path, error);
    EXPECT_TRUE(opened) << error;
    return TestCamera(std::move(opened));
}

TestCamera TestCamera::simulated()
{
    std::string none;
    return TestCamera(ZQCamera::OpenSimulated(none));
}

int TestCamera::registerAt(std::uint64_t address)
{
    std::array<std::uint8_t, 4> bytes {};
    const auto read = port.read({ address, 4 }, bytes.data());
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

bool TestCamera::changesByItself(const std::string& name) const
{
    const Description& description = camera->impl().description();
    const auto sources = reachable(description, description.find(name), isValueSource, 100);
    return std::any_of(sources.begin(), sources.end(), [&description](std::size_t node) {
        return bool(description.node(node).element.child("PollingTime"));
    });
}

void RealDescriptions::SetUp()
{
    const char* given = std::getenv("ZQ_CAMERA_DESCRIPTIONS");
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(
             given == nullptr ? ZQ_DESCRIPTION_FOLDER : given, none)) {
        if (entry.path().extension() == ".xml") {
            m_files.push_back(entry.path().string());
        }
    }
    if (m_files.empty()) {
        GTEST_SKIP() << "no folder of real cameras' descriptions";
    }
}

std::string summary(const featurebrowser::FeatureItem& item)
{
    std::string text = item.valueText + " " + std::to_string(item.displayFlag) + " "
        + char(item.accessMode >> 8U) + char(item.accessMode & 0xFFU);
    if (item.type == featurebrowser::FEATURE_INTEGER) {
        text += " " + std::to_string(item.intMin) + ".." + std::to_string(item.intMax) + "/"
            + std::to_string(item.intInc);
    }
    for (const std::string& entry : item.enumEntries) {
        text += " " + entry;
    }
    return text;
}
