#include "NodeMapXml.h"

namespace zqcameralib {

namespace {

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override
    {
        text.append(static_cast<const char*>(data), size);
    }
};

} // namespace

std::string nodeMapXml(const Description& description)
{
    StringWriter writer;
    description.root().print(writer, "", pugi::format_raw);
    return std::move(writer.text);
}

} // namespace zqcameralib
