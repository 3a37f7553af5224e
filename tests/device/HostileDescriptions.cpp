#include "HostileDescriptions.h"

#include "TestCamera.h"

#include <random>
#include <regex>

namespace {

using All = std::vector<HostileDescription>;

/// One with these features of the category, and nodes.
void add(All& all, const std::string& what, const std::string& members, const std::string& nodes)
{
    all.push_back({ what, TestCamera::description(members, nodes) });
}

const std::vector<std::string> kinds { "Integer", "IntReg", "MaskedIntReg", "Float", "FloatReg",
    "Boolean", "Enumeration", "String", "StringReg", "Command", "IntSwissKnife", "SwissKnife",
    "IntConverter", "Converter", "Register", "Category" };

const std::vector<std::string> references { "pValue", "pAddress", "pIndex", "pLength", "pMin",
    "pMax", "pInc", "pVariable", "pIsImplemented", "pIsAvailable", "pIsLocked", "pSelected",
    "pInvalidator", "pCommandValue", "pValueIndexed", "pValueDefault", "pFeature", "pPort" };

const std::vector<std::string> values { "", "abc", "-1", "0", "1e999", "NaN", "0x",
    "9223372036854775807", "-9223372036854775808", "18446744073709551616", "1.5", "%s%n",
    "\xFF\xFE" };

const std::string place = "<Address>0</Address><AccessMode>RW</AccessMode><pPort>Device</pPort>";

/// What a node of that kind needs to be evaluated at all.
std::string body(const std::string& kind)
{
    if (kind.find("Reg") != std::string::npos) {
        return place + "<Length>4</Length>"
            + (kind == "MaskedIntReg" ? "<LSB>0</LSB><MSB>3</MSB>" : "");
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
            const auto referring = [&, what = kind + " with " + tag](const std::string& how,
                                       const std::string& to, const std::string& others = {}) {
                add(all, what + how, "A B C",
                    node(kind, "A", body(kind) + referTo(tag, to)) + others);
            };
            referring(" to itself", "A");
            referring(" to nothing", "None");
            referring(" to a text of no length", "B",
                node("StringReg", "B", place + "<pLength>L</pLength>") + intReg("L", 8));
            referring(" in a circle", "B",
                node("Integer", "B", referTo("pValue", "C"))
                    + node("IntConverter", "C", body("IntConverter") + referTo("pValue", "A")));
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
                const std::string kept = std::regex_replace(
                    body(kind), std::regex("<" + tag + ">[^<]*</" + tag + ">"), "");
                nodes += node(kind, "F" + kind, kept + element(tag, value));
                members += " F" + kind;
            }
            add(all, tag + " " + value, members, nodes);
        }
    }
}

/// Four nodes of the same content.
void addFormula(All& all, const std::string& what, const std::string& nodes,
    const std::string& ofKnife, const std::string& ofConverter)
{
    add(all, what, "A B C D",
        nodes + node("IntSwissKnife", "A", ofKnife) + node("SwissKnife", "B", ofKnife)
            + node("IntConverter", "C", ofConverter + "<pValue>X</pValue>")
            + node("Converter", "D", ofConverter + "<pValue>X</pValue>"));
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
            variables += node("pVariable", name, name);
        }
        addFormula(all, "formula " + formula, nodes, variables + element("Formula", escaped),
            variables + element("FormulaTo", escaped) + element("FormulaFrom", escaped));
    }
    for (const std::string tag : { "pVariable", "Constant", "Expression" }) {
        addFormula(all, tag + " without a name", intReg("X", 0),
            element(tag, "X") + element("Formula", "X"), body("Converter") + element(tag, "X"));
    }
    std::string deep;
    for (int i = 0; i < 5000; ++i) {
        deep = "(" + deep + (i % 2 == 0 ? "1)" : "/M)");
    }
    add(all, "formula of parentheses", "F", node("IntSwissKnife", "F", element("Formula", deep)));
    const std::string divisions = "1" + repeated(3000, [](int) { return "/X"; });
    add(all, "formula of divisions", "F",
        intReg("X", 0) + knife("IntSwissKnife", "F", { "X" }, divisions));
}

void addLengths(All& all)
{
    for (const std::string length :
        { "0", "-1", "-9223372036854775808", "9223372036854775807", "1000000000000", "3" }) {
        for (const std::string kind :
            { "IntReg", "MaskedIntReg", "FloatReg", "StringReg", "Register" }) {
            const auto told = [&, user = kind == "StringReg" ? "String" : "Integer"](
                                  const std::string& how, const std::string& tag) {
                add(all, kind + how + length, "A B",
                    node(kind, "A", place + tag) + node(user, "B", "<pValue>A</pValue>")
                        + node("Integer", "L", element("Value", length)));
            };
            told(" with length ", element("Length", length));
            told(" told length ", "<pLength>L</pLength>");
        }
    }
}

void addSizes(All& all)
{
    const auto name = [](int i) { return "N" + std::to_string(i); };
    const auto names
        = [&](int count) { return repeated(count, [&](int i) { return name(i) + " "; }); };
    const auto one = [](const std::string& of, const std::string& more = {}) {
        return node("Integer", of, "<Value>1</Value>" + more);
    };
    for (const int width : { 2, 5 }) {
        add(all, "fan-out of " + std::to_string(width), "N0", repeated(60, [&](int i) {
            return node("IntSwissKnife", name(i), repeated(width, [&](int v) {
                return node("pVariable", "V" + std::to_string(v), name(i + 1));
            }) + "<Formula>V0+V1</Formula>");
        }) + one("N60"));
    }
    add(all, "fan-out of conditions",
        repeated(3000, [&](int i) { return "F" + std::to_string(i) + " "; }),
        repeated(3000, [&](int i) {
            return one("F" + std::to_string(i),
                "<pIsAvailable>N0</pIsAvailable>"
                "<pIsImplemented>N0</pIsImplemented><pIsLocked>N0</pIsLocked>");
        }) + repeated(15, [&](int i) {
            return node("IntSwissKnife", name(i),
                node("pVariable", "A", name(i + 1)) + node("pVariable", "B", name(i + 1))
                    + "<Formula>A*B</Formula>");
        }) + intReg("N15", 0));
    add(all, "chain of 50,000", "N0", repeated(50000, [&](int i) {
        return node("Integer", name(i), "<pValue>" + name(i + 1) + "</pValue>");
    }) + one("N50000"));
    add(all, "selectors of each other", names(300), repeated(300, [&](int i) {
        return one(name(i),
            repeated(300, [&](int s) { return "<pSelected>" + name(s) + "</pSelected>"; }));
    }));
    add(all, "200,000 features", names(200000),
        repeated(200000, [&](int i) { return one(name(i)); }));
    add(all, "100,000 entries", "E", node("Enumeration", "E", repeated(100000, [&](int i) {
        return "<EnumEntry Name=\"" + name(i) + "\"><Value>1</Value></EnumEntry>";
    }) + "<Value>0</Value>"));
    add(all, "deep elements", "A", repeated(100000, [](int) {
        return "<Group>";
    }) + repeated(100000, [](int) { return "</Group>"; }));
    add(all, "deep categories", "C0", repeated(20000, [](int i) {
        return node(
            "Category", "C" + std::to_string(i), element("pFeature", "C" + std::to_string(i + 1)));
    }) + intReg("C20000", 0));
    add(all, "enormous name", "A", one(std::string(3000000, 'n')));
    add(all, "enormous text", "A",
        node("String", "A", element("Value", std::string(12000000, 'x'))));
    add(all, "overlapping registers", "N0",
        repeated(20000, [&](int i) { return intReg(name(i), 0); }));
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
    add(all, "entity used", "A", node("String", "A", "<Value>&e20;&#0;&#xFFFFFF;&bad</Value>"));
    all.push_back({ "external entity",
        headed("<!DOCTYPE r [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>") });
    all.push_back(
        { "comments and sections", headed("<?xml version=\"1.0\"?><!-- -- --><?pi <a> ?>") });
    all.push_back({ "zeros", std::string(5000, '\0') });
    all.push_back({ "zero within", good.substr(0, 200) + std::string(3, '\0') + good.substr(200) });
    all.push_back({ "UTF-16 mark only", "\xFF\xFE" });
    all.push_back({ "UTF-16 odd", std::string("\xFF\xFE<") + std::string(1, char()) + "R" });
    add(all, "names of blanks and marks", "A",
        intReg(" ", 0) + intReg("", 0) + intReg("%s%n&lt;b&gt;", 0) + intReg("\xC3\x28", 0)
            + intReg("A", 0) + intReg("A", 4) + node("Float", "A", ""));
    add(all, "root named twice", "A",
        "<Category Name=\"Root\"><pFeature>Root</pFeature></Category><Integer "
        "Name=\"Main\"/>");
    all.push_back({ "root is a number",
        "<RegisterDescription><Integer Name=\"Root\"/></RegisterDescription>" });
    add(all, "struct", "S T U",
        "<StructReg><Address>0</Address><Length>4</Length><pPort>Device</pPort>"
        "<StructEntry Name=\"S\"><LSB>40</LSB><MSB>99</MSB></StructEntry>"
        "<StructEntry Name=\"T\"><Bit>3</Bit></StructEntry></StructReg><StructEntry "
        "Name=\"U\"/>");
    add(all, "port that refers to what cannot be read", "A",
        node("IntReg", "A", "<Address>0</Address><Length>4</Length><pPort>P</pPort>")
            + node("Port", "P", referTo("pVariable", "A") + referTo("pValue", "B"))
            + node("StructEntry", "B", ""));
    add(all, "port missing", "A", node("IntReg", "A", "<Address>0</Address>"));
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
