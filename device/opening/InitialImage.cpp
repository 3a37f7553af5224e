// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/InitialImage.h"

#include "description/ReferenceWalk.h"
#include "nodemap/RegisterCodec.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

namespace {

constexpr std::int64_t largestSide = 100000;
/// Nodes looked at behind one value.
constexpr std::size_t maxSources = 64;

class Chooser {
public:
    Chooser(ZQCamera::Impl& camera, RegisterMemory& memory)
        : m_camera(camera)
        , m_memory(memory)
    {
    }

    /// Features that divide by what they hold are no use at 0.
    void chooseFactor(const char* name)
    {
        const Feature* feature = numeric(name);
        if (feature != nullptr && numberOf(feature->index) <= 0) {
            (void)m_camera.nodes().set(feature->index, Number::of(std::int64_t(1)));
            m_camera.port().invalidate();
        }
    }

    void chooseSide(const char* name, std::int64_t wanted)
    {
        if (const Feature* feature = numeric(name)) {
            makeSide(feature->index, wanted);
        }
    }

    /// As large as it may be.
    void chooseSize(const char* name, std::int64_t wanted)
    {
        const Feature* feature = numeric(name);
        if (feature == nullptr || isSide(numberOf(feature->index))) {
            return;
        }
        const std::size_t limit = valueFacts(m_camera.description(), feature->index).maximum.node;
        if (limit != Description::absent) {
            makeSide(limit, wanted);
        }
        const Result<Limits> limits = m_camera.nodes().limits(feature->index);
        const auto most = limits.isOk() && limits.value().maximum
            ? limits.value().maximum->rounded()
            : std::nullopt;
        const std::int64_t size = most && isSide(*most) ? *most : wanted;
        (void)m_camera.nodes().set(feature->index, Number::of(size));
        m_camera.port().invalidate();
        makeSide(feature->index, wanted); // where it cannot be written
    }

    void chooseFormat()
    {
        constexpr std::int64_t mono8 = 0x01080001;
        const Feature* feature = m_camera.feature("PixelFormat");
        if (feature == nullptr || feature->type != featurebrowser::FEATURE_ENUMERATION) {
            return;
        }
        const auto entries = m_camera.reader().availableEntries(*feature);
        const auto has = [&entries](std::int64_t value) {
            return std::any_of(entries.begin(), entries.end(),
                [value](const EnumEntry* entry) { return entry->value == value; });
        };
        if (!entries.empty() && !has(numberOf(feature->index))) {
            (void)m_camera.nodes().set(
                feature->index, Number::of(has(mono8) ? mono8 : entries.front()->value));
            m_camera.port().invalidate();
        }
    }

private:
    static bool isSide(std::int64_t value) { return value > 0 && value <= largestSide; }

    const Feature* numeric(const char* name) const
    {
        const Feature* feature = m_camera.feature(name);
        const bool isNumber = feature != nullptr && feature->isReadable()
            && feature->type == featurebrowser::FEATURE_INTEGER;
        return isNumber ? feature : nullptr;
    }

    /// 0 where there is none.
    std::int64_t numberOf(std::size_t node)
    {
        const Result<Number> value = m_camera.nodes().number(node);
        return value.isOk() ? value.value().rounded().value_or(0) : 0;
    }

    /// By the first register behind it that makes it one.
    void makeSide(std::size_t node, std::int64_t wanted)
    {
        const Description& description = m_camera.description();
        if (isSide(numberOf(node))) {
            return;
        }
        for (const std::size_t source :
            reachable(description, node, isValueReference, maxSources)) {
            if (isIntegerRegister(description.node(source).kind)
                && tryRegister(source, node, wanted)) {
                return;
            }
        }
    }

    bool tryRegister(std::size_t source, std::size_t node, std::int64_t wanted)
    {
        const RegisterFacts facts = registerFacts(m_camera.description(), source);
        const RegisterPort::Recorder recorder(m_camera.port());
        if (!m_camera.nodes().number(source).isOk() || recorder.read.empty()) {
            return false;
        }
        const Register place = recorder.read.back();
        if (!holdsInteger(facts, place.size)) {
            return false;
        }
        std::vector<std::uint8_t> before(place.size);
        m_memory.read(place.address, before.data(), before.size());
        std::vector<std::uint8_t> bytes = before;
        encodeInteger(facts, wanted, bytes.data(), bytes.size());
        m_memory.write(place.address, bytes.data(), bytes.size());
        m_camera.port().invalidate();
        if (isSide(numberOf(node))) {
            return true;
        }
        m_memory.write(place.address, before.data(), before.size());
        m_camera.port().invalidate();
        return false;
    }

    ZQCamera::Impl& m_camera;
    RegisterMemory& m_memory;
};

} // namespace

void chooseInitialImage(ZQCamera::Impl& camera, RegisterMemory& memory)
{
    constexpr std::int64_t width = 1280;
    constexpr std::int64_t height = 1024;
    Chooser chooser(camera, memory);
    for (const char* name :
        { "BinningHorizontal", "BinningVertical", "DecimationHorizontal", "DecimationVertical" }) {
        chooser.chooseFactor(name);
    }
    for (const char* name : { "SensorWidth", "WidthMax" }) {
        chooser.chooseSide(name, width);
    }
    for (const char* name : { "SensorHeight", "HeightMax" }) {
        chooser.chooseSide(name, height);
    }
    chooser.chooseSize("Width", width);
    chooser.chooseSize("Height", height);
    chooser.chooseFormat();
}

} // namespace zqcameralib
