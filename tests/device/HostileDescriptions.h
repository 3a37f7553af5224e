#pragma once

#include <string>
#include <vector>

struct HostileDescription {
    std::string name;
    std::string text;
};

/// Descriptions that no camera should have: cut, circular, absurd, enormous. The same at every
/// call.
std::vector<HostileDescription> hostileDescriptions();
