// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/PacketTask.h"

#include "base/StatusCodes.h"

#include <algorithm>
#include <utility>

namespace zqcameralib {

using featurebrowser::STATUS_OK;

namespace {

const char* const sizeName = "GevSCPSPacketSize";
const char* const delayName = "GevSCPD";
const char* const fragmentName = "GevSCPSDoNotFragment";
constexpr int buffers = 8;

} // namespace

PacketTask::PacketTask(Acquisition& acquisition, double framesPerSecond)
    : m_acquisition(acquisition)
    , m_framesPerSecond(framesPerSecond)
{
    if (const Words reason = refusal(); !reason.empty()) {
        (void)fail(reason);
        return;
    }
    m_isMeasuring = m_acquisition.beginMeasuring();
    m_reading = std::make_unique<FormatReading>(m_acquisition.camera(), m_acquisition.device());
}

Words PacketTask::refusal()
{
    ZQCamera::Impl& camera = m_acquisition.camera();
    RegisterBackend& backend = camera.port().backend();
    if (!backend.isReal()) {
        return translated("The camera is simulated: its images do not come over a network.");
    }
    if (backend.isLost()) {
        return backend.loss().words();
    }
    const Feature* size = camera.anyFeature(sizeName);
    if (size == nullptr || size->type != featurebrowser::FEATURE_INTEGER) {
        return translated("The camera has no packets whose size could be set (GevSCPSPacketSize).");
    }
    if (m_acquisition.isBusy()) {
        return translated("Images are being acquired: stop them first.");
    }
    return {};
}

std::int64_t PacketTask::integer(const char* name, std::int64_t otherwise)
{
    long value = 0;
    const int status = m_acquisition.camera().anyFeature(name) == nullptr
        ? unknownFeature
        : m_acquisition.device().GetIntegerValue(name, &value);
    m_isSlow = m_isSlow || status == cameraSlow;
    return status == STATUS_OK ? value : otherwise;
}

ZQCameraTask::State PacketTask::poll()
{
    if (m_outcome != State::Running) {
        return m_outcome;
    }
    if (!m_acquisition.isMeasuring()) {
        cancel(); // images were stopped
        return m_outcome;
    }
    RegisterBackend& backend = m_acquisition.camera().port().backend();
    const CallScope call(backend);
    return backend.isLost() ? fail(backend.loss().text()) : advance();
}

ZQCameraTask::State PacketTask::advance()
{
    switch (m_step) {
    case Step::Reading:
        return read();
    case Step::Setting:
        return beginTrial();
    case Step::Starting:
        return startTrial();
    case Step::Watching:
        return watchTrial();
    case Step::Over:
        break;
    }
    return m_outcome;
}

/// A step of the format at a time, then what is known of packets.
ZQCameraTask::State PacketTask::read()
{
    if (!m_reading->isOver()) {
        const Status status = m_reading->step();
        return status.isOk() || status.code() == stillWorking ? State::Running
                                                              : fail(status.text());
    }
    const ImageFormat& format = m_reading->format();
    if (format.isTriggered) {
        return fail(translated("TriggerMode is On: without a trigger there are no images to try."));
    }
    if (const Status status = readFacts(format); !status.isOk()) {
        return status.code() == stillWorking ? State::Running : fail(status.text());
    }
    forbidFragments();
    m_present = { m_facts.size, m_facts.delay, false };
    m_search.emplace(m_facts);
    m_step = Step::Setting;
    return State::Running;
}

Status PacketTask::readFacts(const ImageFormat& format)
{
    constexpr std::int64_t smallest = 576;
    constexpr std::int64_t largest = 65535; // of an IP packet
    constexpr double usualTicks = 1e9;
    ZQCamera::Impl& camera = m_acquisition.camera();
    const auto limitsOf = [&camera](const char* name) {
        const Feature* feature = camera.anyFeature(name);
        return feature == nullptr ? Result<Limits>(Limits())
                                  : camera.nodes().limits(feature->index);
    };
    const auto limit = [](const std::optional<Number>& number, std::int64_t otherwise) {
        return number ? number->rounded().value_or(otherwise) : otherwise;
    };
    const Result<Limits> sizes = limitsOf(sizeName);
    if (!sizes.isOk()) {
        return sizes.status().withText(std::string(sizeName) + ": " + sizes.status().words());
    }
    m_facts.size = integer(sizeName, 0);
    m_facts.smallest = std::max(limit(sizes.value().minimum, 0), smallest);
    m_facts.largest = std::min(limit(sizes.value().maximum, largest), largest);
    m_facts.increment = limit(sizes.value().increment, 1);
    m_facts.delay = integer(delayName, -1);
    m_facts.hasDelay = m_facts.delay >= 0;
    m_facts.mostDelay = limit(limitsOf(delayName).value().maximum, 0);
    const auto ticks = static_cast<double>(integer("GevTimestampTickFrequency", 0));
    m_facts.ticksPerSecond = ticks > 0.0 ? ticks : usualTicks;
    m_facts.imageBytes = format.payload;
    m_facts.framesPerSecond = m_framesPerSecond > 0.0 ? m_framesPerSecond : format.framesPerSecond;
    m_facts.frameLimit = format.frameLimit;
    return std::exchange(m_isSlow, false) ? Status::general(stillWorking) : Status();
}

/// The library below may take the first of several fragments for all of a packet.
void PacketTask::forbidFragments()
{
    bool isForbidden = true;
    featurebrowser::ICameraDevice& device = m_acquisition.device();
    m_mayFragment = m_acquisition.camera().anyFeature(fragmentName) != nullptr
        && device.GetBooleanValue(fragmentName, &isForbidden) == STATUS_OK && !isForbidden
        && device.SetBooleanValue(fragmentName, 1) == STATUS_OK;
}

void PacketTask::allowFragments()
{
    if (std::exchange(m_mayFragment, false)) {
        (void)m_acquisition.device().SetBooleanValue(fragmentName, 0);
    }
}

/// False when it was refused, and m_error says why.
bool PacketTask::write(const char* name, std::int64_t value, std::int64_t& present)
{
    if (value == present) {
        return true;
    }
    const int status = m_acquisition.device().SetIntegerValue(name, value, 1);
    if (status != STATUS_OK) {
        m_error = deviceText(m_acquisition.device(), status);
        return false;
    }
    present = value;
    return true;
}

bool PacketTask::set(const PacketTrial& trial)
{
    return write(sizeName, trial.size, m_present.size)
        && (!m_facts.hasDelay || write(delayName, trial.delay, m_present.delay));
}

ZQCameraTask::State PacketTask::beginTrial()
{
    const std::optional<PacketTrial> next = m_search->next();
    if (!next) {
        return finish();
    }
    m_trial = *next;
    if (!set(m_trial)) {
        return fail(m_error);
    }
    m_step = Step::Starting;
    return State::Running;
}

ZQCameraTask::State PacketTask::startTrial()
{
    const int status = m_acquisition.start({}, buffers, std::chrono::milliseconds(0));
    if (status == stillWorking) {
        return State::Running;
    }
    if (status != STATUS_OK) {
        return fail(m_acquisition.state().lastError());
    }
    // Opening the images, the library below may have found that such packets do not arrive.
    m_acquisition.camera().port().invalidate();
    m_present.size = integer(sizeName, m_trial.size);
    if (m_present.size != m_trial.size) {
        return endTrial(false);
    }
    m_begun = Clock::now();
    m_step = Step::Watching;
    return State::Running;
}

ZQCameraTask::State PacketTask::watchTrial()
{
    const auto elapsed
        = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_begun);
    const std::optional<bool> isGood = m_search->verdict(m_acquisition.state().counters(), elapsed);
    return isGood ? endTrial(*isGood) : State::Running;
}

ZQCameraTask::State PacketTask::endTrial(bool isGood)
{
    stopImages();
    m_search->note(isGood);
    m_step = Step::Setting;
    return State::Running;
}

void PacketTask::stopImages()
{
    m_acquisition.stopImages();
}

ZQCameraTask::State PacketTask::finish()
{
    m_words = m_search->words();
    if (!m_search->hasFound()) {
        return fail(m_words);
    }
    if (!set(m_search->best())) {
        return fail(m_error);
    }
    allowFragments();
    m_acquisition.endMeasuring();
    m_isMeasuring = false;
    m_step = Step::Over;
    return m_outcome = State::Done;
}

void PacketTask::restore()
{
    if (!std::exchange(m_isMeasuring, false)) {
        return;
    }
    stopImages();
    if (m_search && !m_acquisition.camera().port().backend().isLost()) {
        const std::string error = std::move(m_error);
        (void)set({ m_facts.size, m_facts.delay, false });
        allowFragments();
        m_error = error;
    }
    m_acquisition.endMeasuring();
}

ZQCameraTask::State PacketTask::fail(const std::string& reason)
{
    m_error = reason;
    restore();
    m_step = Step::Over;
    return m_outcome = State::Failed;
}

void PacketTask::cancel()
{
    if (m_outcome == State::Running) {
        restore();
        m_step = Step::Over;
        m_outcome = State::Cancelled;
    }
}

ZQCameraTask::Progress PacketTask::progress() const
{
    if (!m_words.empty()) {
        return { m_words, 0, 0 };
    }
    if (!m_search || m_step == Step::Reading) {
        return { translated("Reading how images are sent"), 0, 0 };
    }
    const std::string size = std::to_string(m_trial.size);
    return { m_trial.countsPackets
            ? worded("Counting packets that get lost, of %s bytes", size.c_str())
            : worded("Trying packets of %s bytes", size.c_str()),
        m_search->trialsDone(), m_search->trialsDone() + m_search->trialsLeft() };
}

} // namespace zqcameralib
