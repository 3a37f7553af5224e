#pragma once

#include <string>

namespace zqcameralib {

/// What went wrong last on a camera, in words.
struct LastError {
    int code = 0;
    std::string text;
};

} // namespace zqcameralib
