#include "featurebrowser/ZQCamera.h"

namespace zqcameralib {

class ZQDiscovery::Impl { };

ZQDiscovery::ZQDiscovery()
    : m_impl(std::make_unique<Impl>())
{
}

ZQDiscovery::~ZQDiscovery() = default;

} // namespace zqcameralib
