// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "CameraUser.h"
#include "camera/Camera.h"
#include "opening/SimulatedOpening.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// A camera made of a few nodes written in the test, with its device and loaded repository.
class TestCamera : public CameraUser {
public:
    /// `nodes` are the elements below the root category, which holds the category "Main"; `members`
    /// are its features, blank separated.
    TestCamera(const std::string& members, const std::string& nodes)
        : TestCamera(zqcameralib::openDescription(description(members, nodes)))
    {
    }
    /// Throws where the camera could not be opened.
    explicit TestCamera(zqcameralib::Result<std::unique_ptr<zqcameralib::ZQCamera::Impl>> opened);
    explicit TestCamera(std::unique_ptr<zqcameralib::ZQCamera> opened)
        : camera(std::move(opened))
        , device(camera.get(), nullptr)
        , repository(*device.GetRepository())
        , port(camera->impl().port())
    {
        repository.Load();
    }

    static std::string description(const std::string& members, const std::string& nodes);
    static TestCamera ofFile(const std::string& path);
    static TestCamera simulated();

    featurebrowser::FeatureItem& item(const std::string& name)
    {
        const auto found = repository.GetFeature(name);
        if (!found) {
            throw std::runtime_error("no feature " + name);
        }
        return *found;
    }
    /// The last byte of a 4-byte register; -1 when it cannot be read.
    int registerAt(std::uint64_t address);
    std::string listed() const;
    /// Whether the description says that the feature, or what it is read from, has to be polled.
    bool changesByItself(const std::string& name) const;

    std::unique_ptr<zqcameralib::ZQCamera> camera;
    featurebrowser::ZQCameraDevice device;
    featurebrowser::ZQCameraRepository& repository;
    zqcameralib::RegisterPort& port;

private:
    featurebrowser::ZQCameraDevice& used() override { return device; }
};

/// Tests with the descriptions of real cameras: the files of the folder that ZQ_CAMERA_DESCRIPTIONS
/// names, or of ../shared/cameras beside the sources. Skipped when there is none.
class RealDescriptions : public testing::Test {
protected:
    void SetUp() override;

    std::vector<std::string> m_files;
};

/// "<tag>text</tag>"
std::string element(const std::string& tag, const std::string& text);
/// "<kind Name="name">content</kind>"
std::string node(const std::string& kind, const std::string& name, const std::string& content);
/// A 4-byte register, read-write, big endian unless `more` says otherwise.
std::string reg(const std::string& kind, const std::string& name, unsigned address,
    const std::string& more = {});
inline std::string intReg(const std::string& name, unsigned address, const std::string& more = {})
{
    return reg("IntReg", name, address, more);
}
/// A command that writes the value to the node behind it.
std::string command(const std::string& name, const std::string& behind, const std::string& value);
/// A formula over nodes by their names.
std::string knife(const std::string& kind, const std::string& name,
    const std::vector<std::string>& nodes, const std::string& formula);
/// "text flag access [limits] [entries]" of a record.
std::string summary(const featurebrowser::FeatureItem& item);
/// What `make` makes of 0 to `count` - 1.
std::string repeated(int count, const std::function<std::string(int)>& make);
/// Integers K0 to K`levels`, each of which takes the one before twice.
std::string doubling(int levels);
