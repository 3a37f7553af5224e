// Opens whatever the bytes say as a camera, reads it and writes to it. Either the bytes are the
// text of a description, or they choose, node by node, what one is made of: that reaches deeper.

#include "camera/Camera.h"
#include "opening/SimulatedOpening.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using namespace featurebrowser;

namespace {

class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_end(data + size)
    {
    }
    bool isOver() const { return m_data == m_end; }
    std::size_t next() { return isOver() ? 0 : *m_data++; }
    const std::string& pick(const std::vector<std::string>& list)
    {
        return list[next() % list.size()];
    }

private:
    const std::uint8_t* m_data;
    const std::uint8_t* m_end;
};

const std::vector<std::string> kinds { "Integer", "IntReg", "MaskedIntReg", "Float", "FloatReg",
    "Boolean", "Enumeration", "String", "StringReg", "Command", "IntSwissKnife", "SwissKnife",
    "IntConverter", "Converter", "Register", "Category", "StructReg", "StructEntry", "Port",
    "Group" };

const std::vector<std::string> references { "pValue", "pAddress", "pIndex", "pLength", "pMin",
    "pMax", "pInc", "pVariable", "pIsImplemented", "pIsAvailable", "pIsLocked", "pSelected",
    "pInvalidator", "pCommandValue", "pValueIndexed", "pValueDefault", "pFeature", "pPort",
    "pValueCopy", "pError" };

const std::vector<std::string> properties { "Value", "Address", "Length", "Min", "Max", "Inc",
    "AccessMode", "ImposedAccessMode", "Sign", "Endianess", "LSB", "MSB", "Bit", "CommandValue",
    "OnValue", "OffValue", "Formula", "FormulaTo", "FormulaFrom", "Expression", "Constant",
    "Representation", "Visibility", "ValueIndexed", "ValueDefault", "Cachable", "Unit",
    "ValidValueSet", "ChunkID", "SwapEndianess", "Slope", "Extension" };

const std::vector<std::string> texts { "0", "1", "-1", "4", "8", "7", "31", "0xFF", "RW", "RO",
    "WO", "BigEndian", "Signed", "9223372036854775807", "-9223372036854775808", "1e308", "NaN", "",
    "x", "A", "A+B", "A/B", "A%B", "A**B", "(A=B)?A:B", "A/(A-B)", "A<<B", "~A", "FROM/A", "TO/A",
    "SQRT(A)", "A/", "(A", "1;2;4", "Guru", "IPV4Address", "2000000", "A.Min+B.Max", "C", "A+C",
    "A>>B", "ROUND(A,2)", "ABS(-A)", "A**B**A", "A.Inc", "Yes", "Varying" };

std::string name(std::size_t number)
{
    return "N" + std::to_string(number % 24);
}

std::string element(const std::string& tag, const std::string& attributes, const std::string& text)
{
    return "<" + tag + attributes + ">" + text + "</" + tag + ">";
}

/// What makes most nodes possible to evaluate, so that not all of them are refused.
std::string usualContent(const std::string& kind)
{
    if (kind.find("Reg") != std::string::npos) {
        return "<Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode>"
               "<pPort>Device</pPort><LSB>0</LSB><MSB>7</MSB>";
    }
    if (kind.find("Converter") != std::string::npos) {
        return "<FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom>";
    }
    return kind == "Enumeration" ? "<EnumEntry Name=\"E\"><Value>1</Value></EnumEntry>" : "";
}

std::string compose(Bytes bytes)
{
    std::string nodes;
    std::size_t count = 0;
    for (; !bytes.isOver() && count < 24; ++count) {
        const std::string& kind = bytes.pick(kinds);
        std::string content = bytes.next() % 4 != 0 ? usualContent(kind) : "";
        for (std::size_t n = bytes.next() % 6; n > 0; --n) {
            if (bytes.next() % 2 == 0) {
                const std::string& tag = bytes.pick(references);
                const std::string variable = std::string(1, char('A' + bytes.next() % 2));
                content
                    += element(tag, " Name=\"" + variable + "\" Index=\"1\"", name(bytes.next()));
            } else {
                const std::string& tag = bytes.pick(properties);
                content += element(tag, " Name=\"C\" Index=\"0\"", bytes.pick(texts));
            }
        }
        nodes += element(kind, " Name=\"" + name(count) + "\"", content);
    }
    std::string members;
    for (std::size_t i = 0; i < count; ++i) {
        members += element("pFeature", "", name(i));
    }
    return "<RegisterDescription SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\">"
        + element("Category", " Name=\"Root\"", "<pFeature>Main</pFeature>")
        + element("Category", " Name=\"Main\"", members) + nodes
        + "<Port Name=\"Device\"/></RegisterDescription>";
}

void use(ZQCameraDevice& device)
{
    ZQCameraRepository& repository = *device.GetRepository();
    repository.Load();
    for (const auto& item : repository.GetFeatureList()) {
        const char* feature = item->name.c_str();
        repository.ReadFeature(item);
        device.SetIntegerValue(feature, item->intMax, 1);
        device.SetFloatValue(feature, item->floatMax);
        device.SetStringValue(feature, "text");
        device.SetBooleanValue(feature, 1);
        device.SetEnumValue(feature, "E", 0);
        device.ExecuteCommand(feature, 0);
        repository.GetInvalidatedFeatures(item->name);
    }
    repository.UpdateFeatureStates();
    for (const auto& item : repository.GetFeatureList()) {
        repository.ReadFeature(item);
    }
}

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
                                            : compose(Bytes(data, size));
    if (std::getenv("ZQ_FUZZ_PRINT") != nullptr) {
        g_printerr("%s\n", text.c_str());
    }
    auto opened = zqcameralib::openDescription(text);
    if (opened.isOk()) {
        zqcameralib::ZQCamera camera(std::move(opened.value()));
        ZQCameraDevice device(&camera, nullptr);
        use(device);
    }
    return 0;
}
