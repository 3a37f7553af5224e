#pragma once

#include "Description.h"

#include <string>

namespace zqcameralib {

/// The description as the node map gets it: plain XML without what only a user reads.
std::string nodeMapXml(const Description& description);

} // namespace zqcameralib
