// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "transfer/SettingsRestoring.h"
#include "transfer/SettingsSaving.h"
#include "transfer/UserSet.h"

#include "featurebrowser/ZQSettings.h"

namespace zqcameralib {

ZQSettingsSaving::ZQSettingsSaving(ZQCamera& camera)
    : m_impl(std::make_unique<Impl>(camera, nullptr))
{
}

ZQSettingsSaving::ZQSettingsSaving(ZQCamera& camera, const ZQSettings& lines)
    : m_impl(std::make_unique<Impl>(camera, &lines))
{
}

ZQSettingsSaving::~ZQSettingsSaving() = default;

ZQCameraTask::State ZQSettingsSaving::poll()
{
    return m_impl->poll();
}
ZQCameraTask::Progress ZQSettingsSaving::progress() const
{
    return m_impl->progress();
}
void ZQSettingsSaving::cancel()
{
    m_impl->cancel();
}
std::string ZQSettingsSaving::error() const
{
    return m_impl->error();
}
ZQSettings ZQSettingsSaving::takeSettings()
{
    return m_impl->takeSettings();
}

ZQSettingsRestoring::ZQSettingsRestoring(ZQCamera& camera, const ZQSettings& settings)
    : ZQSettingsRestoring(camera, settings, Options())
{
}

ZQSettingsRestoring::ZQSettingsRestoring(
    ZQCamera& camera, const ZQSettings& settings, const Options& options)
    : m_impl(std::make_unique<Impl>(camera, settings, options))
{
}

ZQSettingsRestoring::~ZQSettingsRestoring() = default;

ZQCameraTask::State ZQSettingsRestoring::poll()
{
    return m_impl->poll();
}
ZQCameraTask::Progress ZQSettingsRestoring::progress() const
{
    return m_impl->progress();
}
void ZQSettingsRestoring::cancel()
{
    m_impl->stop();
}
std::string ZQSettingsRestoring::error() const
{
    return m_impl->error();
}
const ZQRestoreReport& ZQSettingsRestoring::report() const
{
    return m_impl->report();
}
const ZQSettings& ZQSettingsRestoring::before() const
{
    return m_impl->before();
}

std::vector<std::string> ZQUserSet::Names(ZQCamera& camera)
{
    return Impl::names(camera.impl());
}

ZQUserSet::ZQUserSet(ZQCamera& camera, const std::string& set, Action action)
    : m_impl(std::make_unique<Impl>(camera, set, action))
{
}

ZQUserSet::~ZQUserSet() = default;

ZQCameraTask::State ZQUserSet::poll()
{
    return m_impl->poll();
}
ZQCameraTask::Progress ZQUserSet::progress() const
{
    return m_impl->progress();
}
void ZQUserSet::cancel()
{
    m_impl->cancel();
}
std::string ZQUserSet::error() const
{
    return m_impl->error();
}
const ZQSettings& ZQUserSet::contents() const
{
    return m_impl->contents();
}
const ZQSettings& ZQUserSet::now() const
{
    return m_impl->now();
}
const ZQRestoreReport& ZQUserSet::report() const
{
    return m_impl->report();
}

} // namespace zqcameralib
