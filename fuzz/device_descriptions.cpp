// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Opens whatever the bytes say as a camera, reads it and writes to it. Either the bytes are the
// text of a description, or they choose, node by node, what one is made of: that reaches deeper.

#include "ComposedDescription.h"

#include "camera/Camera.h"
#include "opening/SimulatedOpening.h"

#include <cstdlib>

namespace {

void abortOnCritical(const char*, GLogLevelFlags level, const char* message, gpointer)
{
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) != 0) {
        g_printerr("%s\n", message);
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    g_log_set_default_handler(abortOnCritical, nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const std::string text = data[0] == '<' ? std::string(reinterpret_cast<const char*>(data), size)
                                            : composedDescription({ data, size });
    if (std::getenv("ZQ_FUZZ_PRINT") != nullptr) {
        g_printerr("%s\n", text.c_str());
    }
    auto opened = zqcameralib::openDescription(text);
    if (opened.isOk()) {
        zqcameralib::ZQCamera camera(std::move(opened.value()));
        useEverything(camera);
    }
    return 0;
}
