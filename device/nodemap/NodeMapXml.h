#pragma once

#include "description/Description.h"

#include <string>

namespace zqcameralib {

/// The checked description as the node map gets it: plain XML of the nodes that can be evaluated,
/// with nothing in it but what evaluating takes, made safe against what the camera may answer. What
/// a user reads stays in the description.
std::string nodeMapXml(const Description& description);

} // namespace zqcameralib
