// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/FormulaProgram.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <array>
#include <cmath>
#include <unordered_map>

namespace zqcameralib {

namespace {

using Kind = FormulaSymbol::Kind;

constexpr std::size_t maxFormulaLength = 20000;
/// Expressions within expressions, and the terms of all of them; real ones reach 3 and a few dozen.
constexpr int maxNesting = 50;
constexpr std::size_t maxCost = 100000;

struct Suffix {
    std::string_view text;
    Kind kind;
};
constexpr std::array<Suffix, 4> suffixes { {
    { ".Value", Kind::Value },
    { ".Min", Kind::Minimum },
    { ".Max", Kind::Maximum },
    { ".Inc", Kind::Increment },
} };

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() > end.size() && text.substr(text.size() - end.size()) == end;
}

/// The value of the entry of that name.
std::optional<Number> entryValue(const DescriptionNode& enumeration, std::string_view name)
{
    for (const pugi::xml_node& entry : enumeration.element.children("EnumEntry")) {
        if (entry.attribute("Name").value() == name) {
            const std::string_view text = childText(entry, "Value");
            return parseNumber(text);
        }
    }
    return std::nullopt;
}

} // namespace

/// Finds what the symbols of one node's formulas stand for.
class FormulaBinder {
public:
    FormulaBinder(const Description& description, std::size_t node, FormulaProgram& program)
        : m_description(description)
        , m_element(description.node(node).element)
        , m_kind(description.node(node).kind)
        , m_program(program)
    {
    }

    Status bindAll()
    {
        m_program.m_arithmetic
            = m_kind == NodeKind::IntSwissKnife || m_kind == NodeKind::IntConverter
            ? Arithmetic::Integer
            : Arithmetic::Real;
        if (!collectNames()) {
            return { notEvaluable, translated("its formula has a variable without a name") };
        }
        if (isFormula(m_kind)) {
            return bind(m_element.child("Formula"), m_program.m_value);
        }
        m_inputName = "FROM";
        if (Status status = bind(m_element.child("FormulaTo"), m_program.m_toRegister);
            !status.isOk()) {
            return status;
        }
        m_inputName = "TO";
        m_expressions.clear(); // they may use the other input
        return bind(m_element.child("FormulaFrom"), m_program.m_fromRegister);
    }

private:
    bool collectNames()
    {
        for (const pugi::xml_node& child : m_element.children()) {
            const std::string_view tag = child.name();
            if (tag == "pVariable" || tag == "Constant" || tag == "Expression") {
                m_names.emplace(child.attribute("Name").value(), child);
            }
        }
        return m_names.count("") == 0;
    }

    Status bind(const pugi::xml_node& element, FormulaProgram::Part& part)
    {
        const std::string_view text = elementText(element);
        if (text.size() > maxFormulaLength) {
            return { notEvaluable, translated("its formula is too long") };
        }
        Result<Formula> formula = Formula::parse(text);
        if (!formula.isOk()) {
            return formula.status().withText(
                translated("its formula is wrong") + ": " + formula.status().words());
        }
        part.formula = std::move(formula.value());
        part.cost = part.formula.size();
        for (const std::string& symbol : part.formula.symbols()) {
            Result<FormulaSymbol> found = resolve(symbol);
            if (!found.isOk()) {
                return found.status();
            }
            addCost(part, found.value());
            part.symbols.push_back(found.value());
        }
        return part.cost <= maxCost
            ? Status()
            : Status(notEvaluable, translated("it takes too long to evaluate"));
    }

    void addCost(FormulaProgram::Part& part, const FormulaSymbol& symbol) const
    {
        if (symbol.kind == Kind::Expression) {
            part.cost += part.formula.places(part.symbols.size())
                * m_program.m_expressions[symbol.index].cost;
        }
    }

    Result<FormulaSymbol> resolve(const std::string& symbol)
    {
        const auto named = m_names.find(symbol);
        if (named != m_names.end()) {
            return ofElement(symbol, named->second);
        }
        if (symbol == m_inputName) {
            return FormulaSymbol {};
        }
        if (symbol == "PI" || symbol == "E") {
            return constant(Number::of(symbol == "E" ? M_E : M_PI));
        }
        const auto owner = m_names.find(symbol.substr(0, symbol.find('.')));
        if (owner != m_names.end() && owner->second.name() == std::string_view("pVariable")) {
            return ofVariable(symbol, owner->second);
        }
        return Status(
            notEvaluable, worded("its formula uses %s, which is not defined", symbol.c_str()));
    }

    Result<FormulaSymbol> ofElement(const std::string& symbol, const pugi::xml_node& element)
    {
        const std::string_view tag = element.name();
        if (tag == "pVariable") {
            return ofVariable(symbol, element);
        }
        if (tag == "Constant") {
            const std::string_view text = elementText(element);
            const auto number = parseNumber(text);
            return number
                ? constant(*number)
                : Status(notEvaluable, worded("its constant %s is no number", symbol.c_str()));
        }
        return ofExpression(symbol, element);
    }

    static Result<FormulaSymbol> constant(const Number& value)
    {
        return FormulaSymbol { Kind::Constant, value, 0 };
    }

    /// The name, of the variable or in the formula, may go on with what is meant of the node.
    Result<FormulaSymbol> ofVariable(const std::string& symbol, const pugi::xml_node& element)
    {
        const std::size_t node = m_description.find(elementText(element));
        if (node == Description::absent) {
            return Status(notEvaluable,
                worded("it refers to %s, which does not exist",
                    std::string(elementText(element)).c_str()));
        }
        for (const Suffix& suffix : suffixes) {
            if (endsWith(symbol, suffix.text)) {
                return FormulaSymbol { suffix.kind, {}, node };
            }
        }
        return ofEntry(symbol, node);
    }

    Result<FormulaSymbol> ofEntry(const std::string& symbol, std::size_t node) const
    {
        for (const std::string_view marker : { ".Enum", ".Entry" }) {
            const std::size_t at = symbol.find(marker);
            if (at == std::string::npos || at + marker.size() == symbol.size()) {
                continue;
            }
            const std::string name = symbol.substr(at + marker.size() + 1);
            const auto value = entryValue(m_description.node(node), name);
            return value
                ? constant(*value)
                : Status(notEvaluable,
                    worded("its formula uses the entry %s, which does not exist", name.c_str()));
        }
        return FormulaSymbol { Kind::Value, {}, node };
    }

    Result<FormulaSymbol> ofExpression(const std::string& name, const pugi::xml_node& element)
    {
        constexpr std::size_t unfinished = SIZE_MAX;
        const auto [known, isFirst] = m_expressions.emplace(name, unfinished);
        if (!isFirst) {
            return known->second == unfinished
                ? Result<FormulaSymbol>(Status(
                    notEvaluable, worded("its expression %s depends on itself", name.c_str())))
                : FormulaSymbol { Kind::Expression, {}, known->second };
        }
        FormulaProgram::Part part;
        if (++m_nesting > maxNesting) {
            return Status(notEvaluable, translated("its expressions are nested too deeply"));
        }
        if (Status status = bind(element, part); !status.isOk()) {
            return status;
        }
        --m_nesting;
        m_program.m_expressions.push_back(std::move(part));
        const std::size_t index = m_program.m_expressions.size() - 1;
        m_expressions[name] = index;
        return FormulaSymbol { Kind::Expression, {}, index };
    }

    const Description& m_description;
    pugi::xml_node m_element;
    NodeKind m_kind;
    FormulaProgram& m_program;
    std::unordered_map<std::string, pugi::xml_node> m_names;
    std::unordered_map<std::string, std::size_t> m_expressions;
    std::string m_inputName;
    int m_nesting = 0;
};

Result<FormulaProgram> FormulaProgram::compile(const Description& description, std::size_t node)
{
    FormulaProgram program;
    const Status status = FormulaBinder(description, node, program).bindAll();
    return status.isOk() ? Result<FormulaProgram>(std::move(program)) : status;
}

Result<Number> FormulaProgram::run(Entry entry, const Number& input, const Lookup& lookup) const
{
    return run(entry == Entry::Value     ? m_value
            : entry == Entry::ToRegister ? m_toRegister
                                         : m_fromRegister,
        input, lookup);
}

Result<Number> FormulaProgram::run(
    const Part& part, const Number& input, const Lookup& lookup) const
{
    const auto asOperand = [this](Result<Number> value) -> Result<Number> {
        if (m_arithmetic == Arithmetic::Real || !value.isOk()) {
            return value;
        }
        const auto integer = value.value().rounded();
        return integer ? Result<Number>(Number::of(*integer))
                       : Status(notEvaluable, translated("its formula takes 64-bit integers only"));
    };
    const auto symbolValue = [&](std::size_t index) -> Result<Number> {
        const FormulaSymbol& symbol = part.symbols[index];
        switch (symbol.kind) {
        case Kind::Input:
            return asOperand(input);
        case Kind::Constant:
            return symbol.constant;
        case Kind::Expression:
            return run(m_expressions[symbol.index], input, lookup);
        default:
            return asOperand(lookup(symbol));
        }
    };
    return part.formula.evaluate(m_arithmetic, symbolValue);
}

} // namespace zqcameralib
