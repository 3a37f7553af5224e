// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComposedDescription.h"
#include "TestCamera.h"

#include <algorithm>
#include <random>

// Descriptions that no camera should have: circular, absurd, enormous, cut. The same at every call.
namespace {

struct Hostile {
    std::string what;
    std::string text;
};
using All = std::vector<Hostile>;

/// One with these features of the category, and nodes.
void add(All& all, const std::string& what, const std::string& members, const std::string& nodes)
{
    all.push_back({ what, TestCamera::description(members, nodes) });
}

void addComposed(All& all)
{
    std::mt19937 random(7);
    for (int i = 0; i < 400; ++i) {
        std::vector<std::uint8_t> bytes(200);
        std::generate(bytes.begin(), bytes.end(), std::ref(random));
        all.push_back({ "composed " + std::to_string(i),
            composedDescription({ bytes.data(), bytes.size() }) });
    }
}

void addFormulas(All& all)
{
    const std::string nodes = intReg("X", 0) + node("Integer", "M", "<Value>-1</Value>")
        + node("Integer", "L", "<Value>-9223372036854775808</Value>");
    const std::string variables
        = node("pVariable", "X", "X") + node("pVariable", "M", "M") + node("pVariable", "L", "L");
    const std::string deep = std::string(5000, '(') + "1"
        + repeated(5000, [](int i) { return i % 2 == 0 ? ")" : "/M)"; });
    const std::string divisions = "1" + repeated(3000, [](int) { return "/X"; });
    for (const std::string& formula : std::vector<std::string> { deep, divisions, "", "X/M", "X%M",
             "L/M", "L%M", "L/(M*1)", "L/-M", "L%-1", "L/~0", "((((((((((", "1<<99999", "L>>-5",
             "9**9**9", "X?1:", "?:", "1e9999", "0x", "ABS(L)", "ROUND(1e300)", "TRUNC(L/M)",
             "X.Enum", "X.Entry", "L*L*L/M", "(L/M)/(L/M)", "0/0", "&", "\xFF" }) {
        std::string content = variables + "<pValue>X</pValue>";
        for (const char* tag : { "Formula", "FormulaTo", "FormulaFrom" }) {
            content += element(tag, "<![CDATA[" + formula + "]]>");
        }
        add(all, "formula " + formula.substr(0, 20), "A B C D",
            nodes + node("IntSwissKnife", "A", content) + node("SwissKnife", "B", content)
                + node("IntConverter", "C", content) + node("Converter", "D", content));
    }
}

std::string name(int i)
{
    return "N" + std::to_string(i);
}

/// N0 and so on.
void addMany(
    All& all, const std::string& what, int count, const std::function<std::string(int)>& make)
{
    add(all, what, repeated(count, [](int i) { return name(i) + " "; }), repeated(count, make));
}

void addSizes(All& all)
{
    const auto one = [](int i) { return node("Integer", name(i), "<Value>1</Value>"); };
    addMany(all, "selectors of each other", 300, [](int i) {
        return node("Integer", name(i), "<Value>1</Value>" + repeated(300, [](int s) {
            return element("pSelected", name(s));
        }));
    });
    addMany(all, "200,000 features", 200000, one);
    addMany(all, "overlapping registers", 20000, [](int i) { return intReg(name(i), 0); });
    add(all, "deep categories", "N0", repeated(20000, [](int i) {
        return node("Category", name(i), element("pFeature", name(i + 1)));
    }) + intReg("N20000", 0));
    add(all, "100,000 entries", "E", node("Enumeration", "E", repeated(100000, [](int i) {
        return node("EnumEntry", name(i), "<Value>1</Value>");
    }) + "<Value>0</Value>"));
    add(all, "enormous name", "A", node("Integer", std::string(3000000, 'n'), "<Value>1</Value>"));
    add(all, "enormous text", "A",
        node("String", "A", element("Value", std::string(12000000, 'x'))));
}

void addText(All& all)
{
    const std::string good = TestCamera::description(
        "A B", intReg("A", 0) + node("Enumeration", "B", "<EnumEntry/><pValue>A</pValue>"));
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
    std::string bomb = "<!DOCTYPE r [<!ENTITY e0 \"x\">";
    for (int i = 0; i < 20; ++i) {
        const std::string one = "&e" + std::to_string(i) + ";";
        bomb += "<!ENTITY e" + std::to_string(i + 1) + " \"" + one + one + one + "\">";
    }
    for (const std::string& head :
        { bomb + "]>", std::string("<!DOCTYPE r [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>"),
            std::string("<?xml version=\"1.0\"?><!-- -- --><?pi <a> ?>") }) {
        all.push_back({ head, head + good.substr(good.find("<RegisterDescription")) });
    }
    for (const std::string& text :
        { std::string(5000, '\0'), good.substr(0, 200) + std::string(3, '\0') + good.substr(200),
            std::string("\xFF\xFE"), std::string("\xFF\xFE<\0R", 5),
            std::string("<RegisterDescription><Integer Name=\"Root\"/></RegisterDescription>") }) {
        all.push_back({ text, text });
    }
    for (const std::string& nodes : { node("String", "A", "<Value>&e20;&#0;&#xFFFFFF;&bad</Value>"),
             intReg(" ", 0) + intReg("", 0) + intReg("%s%n&lt;b&gt;", 0) + intReg("\xC3\x28", 0)
                 + intReg("A", 0) + intReg("A", 4) + node("Float", "A", ""),
             node("Category", "Root", "<pFeature>Root</pFeature>") + node("Integer", "Main", ""),
             // A port that refers to what cannot be read.
             intReg("A", 0, "<pPort>P</pPort>") + node("StructEntry", "B", "")
                 + node("Port", "P", "<pVariable Name=\"X\">A</pVariable><pValue>B</pValue>") }) {
        add(all, nodes, "A", nodes);
    }
}

std::string criticalMessages;

void keepMessage(const char*, GLogLevelFlags level, const char* message, gpointer)
{
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) != 0) {
        criticalMessages += std::string(message) + "\n";
    }
}

TEST(HostileDescriptions, AreRefusedInOneLineOrToleratedQuietly)
{
    g_log_set_default_handler(keepMessage, nullptr);
    All all;
    for (const auto addSome : { addComposed, addFormulas, addSizes, addText }) {
        addSome(all);
    }
    for (const auto& [what, text] : all) {
        criticalMessages.clear();
        auto opened = zqcameralib::openDescription(text);
        if (opened.isOk()) {
            zqcameralib::ZQCamera camera(std::move(opened.value()));
            useEverything(camera);
        } else {
            EXPECT_EQ(opened.status().text().find('\n'), std::string::npos) << what;
        }
        EXPECT_EQ(criticalMessages, "") << what;
    }
    g_log_set_default_handler(g_log_default_handler, nullptr);
}

} // namespace
