// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/OpenedCamera.h"

#include "program/Words.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <array>
#include <utility>

using namespace featurebrowser;

namespace zqviewer {

namespace {

/// A camera that leaves the stop unanswered for so long counts as lost, and nothing waits for it
/// any more then.
constexpr std::chrono::milliseconds closingLimit(1200);

} // namespace

OpenedCamera::OpenedCamera(std::unique_ptr<zqcameralib::ZQCamera> camera, QString origin)
    : m_camera(std::move(camera))
    , m_origin(std::move(origin))
    , m_device(m_camera.get(), nullptr)
{
}

OpenedCamera::~OpenedCamera()
{
    m_camera->limitWaiting(closingLimit);
}

QString OpenedCamera::name() const
{
    return QStringLiteral("%1 %2")
        .arg(QString::fromStdString(m_camera->vendor()), QString::fromStdString(m_camera->model()))
        .trimmed();
}

QString OpenedCamera::shown(const char* name)
{
    const auto item = repository().GetFeature(name);
    return item && item->displayFlag != 0 ? QString::fromStdString(getShownValue(*item))
                                          : QString();
}

QString OpenedCamera::title()
{
    QString title = name();
    // The first is the standard's name, the other an older form of it.
    for (const char* serial : { "DeviceSerialNumber", "DeviceID" }) {
        if (const QString number = shown(serial); !number.isEmpty()) {
            title += QStringLiteral(" (%1)").arg(number);
            break;
        }
    }
    if (!m_origin.isEmpty()) {
        title += QStringLiteral(" \u2013 ") + m_origin;
    }
    return m_number > 1 ? title + QStringLiteral(" #%1").arg(m_number) : title;
}

QString OpenedCamera::errorText(int code)
{
    std::array<char, errorTextSize> name {};
    std::array<char, errorTextSize> text {};
    m_device.GetErrorText(code, name.data(), text.data());
    return QString::fromUtf8(text.data());
}

/// The last error may be of anything: where the feature can be asked, its own is the right one.
QString OpenedCamera::reason(const FeatureItem& unread)
{
    long integer = 0;
    double number = 0;
    bool boolean = false;
    int status = m_device.GetLastError();
    switch (unread.type) {
    case FEATURE_INTEGER:
        status = m_device.GetIntegerValue(unread.name.c_str(), &integer);
        break;
    case FEATURE_FLOAT:
        status = m_device.GetFloatValue(unread.name.c_str(), &number);
        break;
    case FEATURE_BOOLEAN:
        status = m_device.GetBooleanValue(unread.name.c_str(), &boolean);
        break;
    default:
        break;
    }
    return status != STATUS_OK ? errorText(status) : Words::tr("see the marked rows");
}

void OpenedCamera::describe(ZQFeatureBrowser& browser)
{
    describeFeatures(browser.GetWidget(), repository().GetFeatureList(), m_camera->isReadOnly(),
        [this](const std::string& name) { return repository().GetReason(name); });
}

OpenedCamera::Reading OpenedCamera::reading()
{
    const auto& states = repository().GetFeatureStates();
    std::shared_ptr<FeatureItem> firstUnread;
    int all = 0;
    int unread = 0;
    for (const auto& item : repository().GetFeatureList()) {
        if (item->type == FEATURE_CATEGORY) {
            continue;
        }
        ++all;
        const auto state = states.find(item->name);
        if (state != states.end() && state->second == FEATURE_READ_FAILED) {
            ++unread;
            firstUnread = firstUnread ? firstUnread : item;
        }
    }
    if (!firstUnread) {
        return { true, Words::tr("%1 features read.").arg(all) };
    }
    return { false,
        Words::tr("%1 of %2 features could not be read: %3")
            .arg(QString::number(unread), QString::number(all), reason(*firstUnread)) };
}

} // namespace zqviewer
