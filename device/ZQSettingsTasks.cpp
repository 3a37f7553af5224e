#include "transfer/SettingsSaving.h"

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

} // namespace zqcameralib
