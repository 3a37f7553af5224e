// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/NodeMap.h"

#include "base/StatusCodes.h"
#include "description/ReferenceWalk.h"
#include "nodemap/AccessMode.h"
#include "nodemap/NodeMapFacts.h"
#include "nodemap/RegisterCodec.h"
#include "words/Words.h"

#include "featurebrowser/FeatureItem.h"

namespace zqcameralib {

namespace {

// Real descriptions reach chains of 40 nodes and 24,000 visits.
constexpr int maxDepth = 450;
constexpr std::uint64_t maxVisits = 300000;

bool isReal(NodeKind kind)
{
    return kind == NodeKind::Float || kind == NodeKind::FloatReg || kind == NodeKind::SwissKnife
        || kind == NodeKind::Converter;
}

} // namespace

NodeMap::Visit::Visit(NodeMap& nodes)
    : m_nodes(nodes)
{
    m_nodes.m_visits = m_nodes.m_depth == 0 ? 0 : m_nodes.m_visits + 1;
    ++m_nodes.m_depth;
}

Status NodeMap::Visit::status() const
{
    if (m_nodes.m_depth > maxDepth) {
        return { notEvaluable, translated("it depends on itself") };
    }
    return m_nodes.m_visits > maxVisits
        ? Status(notEvaluable, translated("it takes too long to evaluate"))
        : Status();
}

NodeMap::NodeMap(const Description& description, RegisterPort& port)
    : m_description(description)
    , m_port(port)
    , m_facts(description.nodes().size())
{
}

NodeMap::~NodeMap() = default;

NodeMap::Facts& NodeMap::facts(std::size_t node)
{
    if (!m_facts[node]) {
        m_facts[node] = std::make_unique<Facts>();
    }
    return *m_facts[node];
}

const ValueFacts& NodeMap::valueFactsOf(std::size_t node)
{
    std::optional<ValueFacts>& known = facts(node).value;
    if (!known) {
        known = valueFacts(m_description, node);
    }
    return *known;
}

const RegisterFacts& NodeMap::registerFactsOf(std::size_t node)
{
    std::optional<RegisterFacts>& known = facts(node).place;
    if (!known) {
        known = registerFacts(m_description, node);
    }
    return *known;
}

/// Of a node that was found not to be broken, which includes that it compiles.
const FormulaProgram& NodeMap::programOf(std::size_t node)
{
    std::optional<FormulaProgram>& known = facts(node).program;
    if (!known) {
        known = std::move(FormulaProgram::compile(m_description, node).value());
    }
    return *known;
}

Result<NumberSource*> NodeMap::selectedSource(std::size_t node)
{
    valueFactsOf(node);
    ValueFacts& known = *facts(node).value;
    if (known.index == Description::absent) {
        return &known.value;
    }
    const Result<Number> index = number(known.index);
    if (!index.isOk()) {
        return index.status();
    }
    const auto at = known.indexed.find(index.value().rounded().value_or(INT64_MIN));
    NumberSource& selected = at == known.indexed.end() ? known.otherwise : at->second;
    if (!selected.isGiven()) {
        return Status(notEvaluable, translated("it has no value for the present index"));
    }
    return &selected;
}

Result<std::size_t> NodeMap::source(std::size_t node)
{
    const Result<NumberSource*> selected = selectedSource(node);
    return selected.isOk() ? Result<std::size_t>(selected.value()->node) : selected.status();
}

Result<Number> NodeMap::sourceNumber(const NumberSource& source, bool asReal)
{
    if (source.node == Description::absent) {
        return source.constant ? Result<Number>(*source.constant)
                               : Status(notEvaluable, translated("it has no value"));
    }
    const bool isNumeric = asReal && node(source.node).kind == NodeKind::Enumeration;
    return isNumeric ? numericValue(source.node) : number(source.node);
}

/// What an entry stands for where a real number is needed.
Result<Number> NodeMap::numericValue(std::size_t enumeration)
{
    Result<Number> value = number(enumeration);
    if (value.isOk()) {
        const auto& numeric = valueFactsOf(enumeration).numeric;
        const auto found = numeric.find(value.value().integer);
        return found == numeric.end() ? value : Number::of(found->second);
    }
    return value;
}

Result<Number> NodeMap::rawNumber(std::size_t node)
{
    const Result<NumberSource*> selected = selectedSource(node);
    return selected.isOk() ? sourceNumber(*selected.value(), isReal(this->node(node).kind))
                           : selected.status();
}

Result<Number> NodeMap::booleanNumber(std::size_t node)
{
    Result<Number> raw = rawNumber(node);
    if (!raw.isOk()) {
        return raw;
    }
    const ValueFacts& facts = valueFactsOf(node);
    if (raw.value() == Number::of(facts.on)) {
        return Number::of(std::int64_t(1));
    }
    return raw.value() == Number::of(facts.off)
        ? Result<Number>(Number::of(std::int64_t(0)))
        : Status(notEvaluable,
            translated("its register holds neither the value for on nor that for off"));
}

/// A command is done when what it has written has gone again, where that can be seen; a zero cannot
/// go.
Result<Number> NodeMap::commandIsDone(std::size_t node)
{
    const ValueFacts& facts = valueFactsOf(node);
    Result<Number> written = sourceNumber(facts.command);
    if (!written.isOk()) {
        return written;
    }
    const bool canBeSeen = staticAccess(m_description, node) == featurebrowser::ACCESS_READ_WRITE;
    if (written.value().isZero() || !canBeSeen) {
        return Number::of(std::int64_t(1));
    }
    Result<Number> present = rawNumber(node);
    if (!present.isOk()) {
        return present;
    }
    return Number::of(std::int64_t(!(present.value() == written.value())));
}

Result<Number> NodeMap::number(std::size_t index)
{
    const Visit visit(*this);
    if (Status status = visit.status(); !status.isOk()) {
        return status;
    }
    const auto known = m_found.find(index);
    if (known != m_found.end()) {
        return known->second;
    }
    Result<Number> value = findNumber(index);
    m_found.emplace(index, value);
    return value;
}

Result<Number> NodeMap::findNumber(std::size_t index)
{
    if (node(index).isBroken()) {
        return Status(notEvaluable, node(index).broken);
    }
    Result<Number> value = valueOf(index);
    if (!value.isOk()) {
        return value;
    }
    if (isReal(node(index).kind)) {
        return Number::of(value.value().asReal());
    }
    const auto integer = value.value().rounded();
    return integer ? Result<Number>(Number::of(*integer))
                   : Status(notEvaluable, translated("its value does not fit into 64 bits"));
}

Result<Number> NodeMap::valueOf(std::size_t index)
{
    const NodeKind kind = node(index).kind;
    switch (kind) {
    case NodeKind::Boolean:
        return booleanNumber(index);
    case NodeKind::Command:
        return commandIsDone(index);
    case NodeKind::IntSwissKnife:
    case NodeKind::SwissKnife:
        return evaluated(index, FormulaProgram::Entry::Value, {});
    case NodeKind::IntConverter:
    case NodeKind::Converter:
        return convertedFrom(index);
    default:
        break;
    }
    if (!isRegister(kind)) {
        return rawNumber(index);
    }
    const Result<std::vector<std::uint8_t>> bytes = readBytes(index);
    if (!bytes.isOk()) {
        return bytes.status();
    }
    const RegisterFacts& facts = registerFactsOf(index);
    const std::uint8_t* data = bytes.value().data();
    const std::size_t size = bytes.value().size();
    if (!(kind == NodeKind::FloatReg ? holdsReal(size) : holdsInteger(facts, size))) {
        return Status(notEvaluable, translated("its register has an impossible length now"));
    }
    return kind == NodeKind::FloatReg ? Number::of(decodeReal(facts, data, size))
                                      : Number::of(decodeInteger(facts, data, size));
}

Result<Number> NodeMap::evaluated(
    std::size_t node, FormulaProgram::Entry entry, const Number& input)
{
    const FormulaProgram& program = programOf(node);
    return program.run(entry, input, [&](const FormulaSymbol& symbol) {
        const bool isNumeric = program.arithmetic() == Arithmetic::Real
            && symbol.kind == FormulaSymbol::Kind::Value
            && this->node(symbol.index).kind == NodeKind::Enumeration;
        return isNumeric ? numericValue(symbol.index) : symbolValue(symbol);
    });
}

Result<Number> NodeMap::symbolValue(const FormulaSymbol& symbol)
{
    using Kind = FormulaSymbol::Kind;
    if (symbol.kind == Kind::Value) {
        return number(symbol.index);
    }
    const Result<Limits> limits = this->limits(symbol.index);
    if (!limits.isOk()) {
        return limits.status();
    }
    const std::optional<Number>& limit = symbol.kind == Kind::Minimum ? limits.value().minimum
        : symbol.kind == Kind::Maximum                                ? limits.value().maximum
                                                                      : limits.value().increment;
    if (limit) {
        return *limit;
    }
    if (symbol.kind == Kind::Increment) {
        return Number::of(std::int64_t(1));
    }
    return Status(notEvaluable,
        worded("it needs a limit of %s, which has none",
            std::string(node(symbol.index).name).c_str()));
}

Result<Number> NodeMap::convertedFrom(std::size_t converter)
{
    Result<Number> raw = rawNumber(converter);
    return raw.isOk() ? evaluated(converter, FormulaProgram::Entry::FromRegister, raw.value())
                      : raw;
}

Status NodeMap::reportedError(std::size_t index)
{
    for (const std::size_t link : valueChain(m_description, index)) {
        if (Status status = errorOf(link); !status.isOk()) {
            return status;
        }
    }
    return {};
}

Status NodeMap::errorOf(std::size_t index)
{
    const std::size_t reporting = node(index).target(ReferenceTag::Error);
    if (reporting == Description::absent) {
        return {};
    }
    const Result<Number> error = number(reporting);
    if (!error.isOk()) {
        return error.status();
    }
    if (error.value().isZero()) {
        return {};
    }
    Words name = worded("error %s", std::to_string(error.value().integer).c_str());
    for (const pugi::xml_node& entry : node(reporting).element.children("EnumEntry")) {
        const std::string_view text = childText(entry, "Value");
        if (parseNumber(text) == error.value()) {
            name = entry.attribute("Name").value();
        }
    }
    return { refused, translated("the camera reports") + " " + name };
}

} // namespace zqcameralib
