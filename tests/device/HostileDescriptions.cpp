#include "HostileDescriptions.h"

#include "TestCamera.h"

#include <functional>
#include <random>

namespace {

using All = std::vector<HostileDescription>;

const std::vector<std::string> kinds { "Integer", "IntReg", "MaskedIntReg", "Float", "FloatReg",
    "Boolean", "Enumeration", "String", "StringReg", "Command", "IntSwissKnife", "SwissKnife",
    "IntConverter", "Converter", "Register", "Category" };

const std::vector<std::string> references { "pValue", "pAddress", "pIndex", "pLength", "pMin",
    "pMax", "pInc", "pVariable", "pIsImplemented", "pIsAvailable", "pIsLocked", "pSelected",
    "pInvalidator", "pCommandValue", "pValueIndexed", "pValueDefault", "pFeature", "pPort" };

const std::vector<std::string> values { "", "abc", "-1", "0", "1e999", "NaN", "0x",
    "9223372036854775807", "-9223372036854775808", "18446744073709551616", "1.5", "%s%n",
    "\xFF\xFE" };

/// What a node of that kind needs to be evaluated at all.
std::string body(const std::string& kind)
{
    const std::string reg = "<Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode>"
                            "<pPort>Device</pPort>";
    if (kind.find("Reg") != std::string::npos) {
        return reg + (kind == "MaskedIntReg" ? "<LSB>0</LSB><MSB>3</MSB>" : "");
    }
    if (kind == "IntSwissKnife" || kind == "SwissKnife") {
        return "<Formula>X+1</Formula>";
    }
    if (kind == "IntConverter" || kind == "Converter") {
        return "<FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom>";
    }
    return kind == "Enumeration" ? "<EnumEntry Name=\"E\"><Value>0</Value></EnumEntry>" : "";
}

std::string referTo(const std::string& tag, const std::string& target)
{
    return "<" + tag + " Name=\"X\" Index=\"0\">" + target + "</" + tag + ">";
}

void addReferences(All& all)
{
    for (const std::string& kind : kinds) {
        for (const std::string& tag : references) {
            all.push_back({ kind + " with " + tag + " to itself",
                TestCamera::description("A", node(kind, "A", body(kind) + referTo(tag, "A"))) });
            all.push_back({ kind + " with " + tag + " to nothing",
                TestCamera::description("A", node(kind, "A", body(kind) + referTo(tag, "None"))) });
            all.push_back({ kind + " with " + tag + " to a text of no length",
                TestCamera::description("A B",
                    node(kind, "A", body(kind) + referTo(tag, "B"))
                        + node("StringReg", "B",
                            "<Address>0</Address><pLength>L</pLength><pPort>Device</pPort>")
                        + intReg("L", 8)) });
            all.push_back({ kind + " with " + tag + " in a circle",
                TestCamera::description("A B C",
                    node(kind, "A", body(kind) + referTo(tag, "B"))
                        + node("Integer", "B", referTo("pValue", "C"))
                        + node(
                            "IntConverter", "C", body("IntConverter") + referTo("pValue", "A"))) });
        }
    }
}

void addValues(All& all)
{
    for (const std::string tag : { "Value", "Min", "Max", "Inc", "Address", "Length", "LSB", "MSB",
             "Bit", "OnValue", "CommandValue", "Visibility", "AccessMode", "Sign", "Endianess",
             "Representation", "Unit", "ChunkID", "PollingTime" }) {
        for (const std::string& value : values) {
            std::string nodes;
            std::string members;
            for (const std::string& kind : kinds) {
                const std::string own = body(kind);
                const std::size_t old = own.find("<" + tag + ">");
                const std::size_t end = own.find("</" + tag + ">");
                const std::string kept = old == std::string::npos
                    ? own
                    : own.substr(0, old) + own.substr(end + tag.size() + 3);
                nodes += node(kind, "F" + kind, kept + element(tag, value));
                members += " F" + kind;
            }
            all.push_back({ tag + " " + value, TestCamera::description(members, nodes) });
        }
    }
}

void addFormulas(All& all)
{
    for (const std::string formula : { "", "X", "1/X", "1%X", "X/M", "X%M", "X/(M)", "L/M", "L%M",
             "L/(M*1)", "L / -1", "L/-M", "L%-1", "L/~0", "L/((M))", "(", ")", "((((((((((", "1+",
             "X X", "1<<99999", "L>>-5", "9**9**9", "SQRT(0-1)", "LN(0)", "X?", "X?1",
             "X?1:", "?:", "1e9999", "0x", "Y", "ABS(L)", "NEG(L)", "ROUND(1e300)", "TRUNC(L/M)",
             "L*L*L/M", "(L/M)/(L/M)", "X=X=X", "1/0", "1%0", "0/0", "1.0/0", "&", "\xFF" }) {
        std::string nodes = "<Integer Name=\"M\"><Value>-1</Value></Integer><Integer Name=\"L\">"
                            "<Value>-9223372036854775808</Value></Integer>"
            + intReg("X", 0);
        std::string escaped;
        for (const char c : formula) {
            escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
        }
        std::string variables;
        for (const std::string name : { "X", "M", "L" }) {
            variables += "<pVariable Name=\"" + name + "\">" + name + "</pVariable>";
        }
        for (const std::string kind : { "IntSwissKnife", "SwissKnife" }) {
            nodes += node(kind, "F" + kind, variables + element("Formula", escaped));
        }
        for (const std::string kind : { "IntConverter", "Converter" }) {
            nodes += node(kind, "F" + kind,
                variables + element("FormulaTo", escaped) + element("FormulaFrom", escaped)
                    + "<pValue>X</pValue>");
        }
        all.push_back({ "formula " + formula,
            TestCamera::description(
                "FIntSwissKnife FSwissKnife FIntConverter FConverter", nodes) });
    }
    for (const std::string tag : { "pVariable", "Constant", "Expression" }) {
        std::string nodes = intReg("X", 0);
        for (const std::string kind : { "IntSwissKnife", "SwissKnife" }) {
            nodes += node(kind, "F" + kind, element(tag, "X") + element("Formula", "X"));
        }
        for (const std::string kind : { "IntConverter", "Converter" }) {
            nodes += node(kind, "F" + kind, body(kind) + element(tag, "X") + "<pValue>X</pValue>");
        }
        all.push_back({ tag + " without a name",
            TestCamera::description(
                "FIntSwissKnife FSwissKnife FIntConverter FConverter", nodes) });
    }
    std::string deep;
    for (int i = 0; i < 5000; ++i) {
        deep = "(" + deep + (i % 2 == 0 ? "1)" : "/M)");
    }
    all.push_back({ "formula of parentheses",
        TestCamera::description("F", node("IntSwissKnife", "F", element("Formula", deep))) });
    all.push_back({ "formula of divisions",
        TestCamera::description("F",
            intReg("X", 0)
                + node(
                    "IntSwissKnife", "F", "<pVariable Name=\"X\">X</pVariable><Formula>1" + [] {
                        std::string text;
                        for (int i = 0; i < 3000; ++i) {
                            text += "/X";
                        }
                        return text;
                    }() + "</Formula>")) });
}

void addLengths(All& all)
{
    for (const std::string length :
        { "0", "-1", "-9223372036854775808", "9223372036854775807", "1000000000000", "3" }) {
        for (const std::string kind :
            { "IntReg", "MaskedIntReg", "FloatReg", "StringReg", "Register" }) {
            all.push_back({ kind + " with length " + length,
                TestCamera::description("A B",
                    node(kind, "A",
                        "<Address>0</Address><Length>" + length
                            + "</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>")
                        + node(kind == "StringReg" ? "String" : "Integer", "B",
                            "<pValue>A</pValue>")) });
            all.push_back({ kind + " told length " + length,
                TestCamera::description("A B",
                    node(kind, "A",
                        "<Address>0</Address><pLength>L</pLength>"
                        "<AccessMode>RW</AccessMode><pPort>Device</pPort>")
                        + node(
                            kind == "StringReg" ? "String" : "Integer", "B", "<pValue>A</pValue>")
                        + node("Integer", "L", element("Value", length))) });
        }
    }
}

std::string repeated(int count, const std::function<std::string(int)>& make)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += make(i);
    }
    return text;
}

void addSizes(All& all)
{
    const auto name = [](int i) { return "N" + std::to_string(i); };
    for (const int width : { 2, 5 }) {
        all.push_back({ "fan-out of " + std::to_string(width),
            TestCamera::description("N0", repeated(60, [&](int i) {
                return node("IntSwissKnife", name(i), repeated(width, [&](int v) {
                    return "<pVariable Name=\"V" + std::to_string(v) + "\">" + name(i + 1)
                        + "</pVariable>";
                }) + "<Formula>V0+V1</Formula>");
            }) + node("Integer", "N60", "<Value>1</Value>")) });
    }
    all.push_back({ "fan-out of conditions",
        TestCamera::description(
            repeated(3000, [&](int i) { return "F" + std::to_string(i) + " "; }),
            repeated(3000, [&](int i) {
                return node("Integer", "F" + std::to_string(i),
                    "<Value>1</Value><pIsAvailable>N0</pIsAvailable>"
                    "<pIsImplemented>N0</pIsImplemented><pIsLocked>N0</pIsLocked>");
            }) + repeated(15, [&](int i) {
                return node("IntSwissKnife", name(i),
                    "<pVariable Name=\"A\">" + name(i + 1) + "</pVariable><pVariable Name=\"B\">"
                        + name(i + 1) + "</pVariable><Formula>A*B</Formula>");
            }) + intReg("N15", 0)) });
    all.push_back({ "chain of 50,000", TestCamera::description("N0", repeated(50000, [&](int i) {
                       return node("Integer", name(i), "<pValue>" + name(i + 1) + "</pValue>");
                   }) + node("Integer", "N50000", "<Value>1</Value>")) });
    all.push_back({ "selectors of each other",
        TestCamera::description(
            repeated(300, [&](int i) { return name(i) + " "; }), repeated(300, [&](int i) {
                return node("Integer", name(i), "<Value>1</Value>" + repeated(300, [&](int s) {
                    return "<pSelected>" + name(s) + "</pSelected>";
                }));
            })) });
    all.push_back({ "200,000 features",
        TestCamera::description(repeated(200000, [&](int i) { return name(i) + " "; }),
            repeated(
                200000, [&](int i) { return node("Integer", name(i), "<Value>1</Value>"); })) });
    all.push_back({ "100,000 entries",
        TestCamera::description("E", node("Enumeration", "E", repeated(100000, [&](int i) {
            return "<EnumEntry Name=\"" + name(i) + "\"><Value>1</Value></EnumEntry>";
        }) + "<Value>0</Value>")) });
    all.push_back({ "deep elements", TestCamera::description("A", repeated(100000, [](int) {
                       return "<Group>";
                   }) + repeated(100000, [](int) { return "</Group>"; })) });
    all.push_back({ "deep categories", TestCamera::description("C0", repeated(20000, [](int i) {
                       return "<Category Name=\"C" + std::to_string(i) + "\"><pFeature>C"
                           + std::to_string(i + 1) + "</pFeature></Category>";
                   }) + intReg("C20000", 0)) });
    all.push_back({ "enormous name",
        TestCamera::description(
            "A", node("Integer", std::string(3000000, 'n'), "<Value>1</Value>")) });
    all.push_back({ "enormous text",
        TestCamera::description(
            "A", node("String", "A", element("Value", std::string(12000000, 'x')))) });
    all.push_back({ "overlapping registers",
        TestCamera::description(
            "N0", repeated(20000, [&](int i) { return intReg(name(i), 0); })) });
}

void addText(All& all)
{
    const std::string good = TestCamera::description("A B",
        intReg("A", 0)
            + "<Enumeration Name=\"B\"><EnumEntry "
              "Name=\"E\"/><EnumEntry/><pValue>A</pValue></Enumeration>");
    for (std::size_t cut = 0; cut < good.size(); cut += good.size() / 25) {
        all.push_back({ "cut at " + std::to_string(cut), good.substr(0, cut) });
    }
    std::mt19937 random(7);
    for (int i = 0; i < 120; ++i) {
        std::string damaged = good;
        for (int n = 0; n < 1 + i % 4; ++n) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        all.push_back({ "damaged " + std::to_string(i), damaged });
    }
    const auto headed = [&good](const std::string& head) {
        return head + good.substr(good.find("<RegisterDescription"));
    };
    const std::string bomb = repeated(20, [](int i) {
        return "<!ENTITY e" + std::to_string(i + 1) + " \"&e" + std::to_string(i) + ";&e"
            + std::to_string(i) + ";&e" + std::to_string(i) + ";\">";
    });
    all.push_back({ "entity bomb", headed("<!DOCTYPE r [<!ENTITY e0 \"x\">" + bomb + "]>") });
    all.push_back({ "entity used",
        TestCamera::description(
            "A", node("String", "A", "<Value>&e20;&#0;&#xFFFFFF;&bad</Value>")) });
    all.push_back({ "external entity",
        headed("<!DOCTYPE r [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>") });
    all.push_back(
        { "comments and sections", headed("<?xml version=\"1.0\"?><!-- -- --><?pi <a> ?>") });
    all.push_back({ "zeros", std::string(5000, '\0') });
    all.push_back({ "zero within", good.substr(0, 200) + std::string(3, '\0') + good.substr(200) });
    all.push_back({ "UTF-16 mark only", "\xFF\xFE" });
    all.push_back({ "UTF-16 odd", std::string("\xFF\xFE<") + std::string(1, char()) + "R" });
    all.push_back({ "names of blanks and marks",
        TestCamera::description("A",
            intReg(" ", 0) + intReg("", 0) + intReg("%s%n&lt;b&gt;", 0) + intReg("\xC3\x28", 0)
                + intReg("A", 0) + intReg("A", 4) + node("Float", "A", "")) });
    all.push_back({ "root named twice",
        TestCamera::description("A",
            "<Category Name=\"Root\"><pFeature>Root</pFeature></Category><Integer "
            "Name=\"Main\"/>") });
    all.push_back({ "root is a number",
        "<RegisterDescription><Integer Name=\"Root\"/></RegisterDescription>" });
    all.push_back({ "struct",
        TestCamera::description("S T U",
            "<StructReg><Address>0</Address><Length>4</Length><pPort>Device</pPort>"
            "<StructEntry Name=\"S\"><LSB>40</LSB><MSB>99</MSB></StructEntry>"
            "<StructEntry Name=\"T\"><Bit>3</Bit></StructEntry></StructReg><StructEntry "
            "Name=\"U\"/>") });
    all.push_back({ "port that refers to what cannot be read",
        TestCamera::description("A",
            node("IntReg", "A", "<Address>0</Address><Length>4</Length><pPort>P</pPort>")
                + node("Port", "P", referTo("pVariable", "A") + referTo("pValue", "B"))
                + node("StructEntry", "B", "")) });
    all.push_back({ "port missing",
        TestCamera::description("A", node("IntReg", "A", "<Address>0</Address>")) });
}

} // namespace

std::vector<HostileDescription> hostileDescriptions()
{
    All all;
    addReferences(all);
    addValues(all);
    addFormulas(all);
    addLengths(all);
    addSizes(all);
    addText(all);
    return all;
}
