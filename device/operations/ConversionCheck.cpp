#include "operations/ConversionCheck.h"

#include "base/GObjectPointer.h"
#include "base/GlibError.h"
#include "base/NumberText.h"
#include "description/ReferenceWalk.h"
#include "features/RegisterRange.h"
#include "nodemap/FormulaGuard.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zqcameralib {

namespace {

using EvaluatorPointer = GObjectPointer<ArvEvaluator>;

constexpr double integerLimit = 9223372036854775808.0; // 2^63

std::string guarded(const pugi::xml_node& element, FormulaKind kind)
{
    return guardDivisions(elementText(element), kind);
}

/// False when the node's value is no number that could be asked for.
bool setVariable(ArvEvaluator* evaluator, const char* variable, ArvGcNode* node)
{
    GlibError error;
    if (ARV_IS_GC_INTEGER(node)) {
        arv_evaluator_set_int64_variable(
            evaluator, variable, arv_gc_integer_get_value(ARV_GC_INTEGER(node), error.out()));
    } else if (ARV_IS_GC_FLOAT(node)) {
        arv_evaluator_set_double_variable(
            evaluator, variable, arv_gc_float_get_value(ARV_GC_FLOAT(node), error.out()));
    } else {
        return false;
    }
    return !error;
}

bool setInput(
    ArvEvaluator* evaluator, const pugi::xml_node& element, FormulaKind kind, ArvGc* nodeMap)
{
    const std::string_view tag = element.name();
    const char* name = element.attribute("Name").value();
    const std::string text(elementText(element));
    if (tag == "pVariable") {
        return setVariable(evaluator, name, arv_gc_get_node(nodeMap, text.c_str()));
    }
    if (tag == "Constant") {
        arv_evaluator_set_constant(evaluator, name, text.c_str());
    } else if (tag == "Expression") {
        arv_evaluator_set_sub_expression(evaluator, name, guarded(element, kind).c_str());
    }
    return true;
}

/// Converts `value` as the node does; what is wrong with that, if anything. Where the node's inputs
/// cannot be told, `isKnown` is false and nothing is said.
std::string convert(const DescriptionNode& node, ArvGc* nodeMap, Number& value, bool& isKnown)
{
    const bool isFloat = node.kind == NodeKind::Converter;
    const FormulaKind kind = isFloat ? FormulaKind::Float : FormulaKind::IntegerConverter;
    const EvaluatorPointer evaluator(
        arv_evaluator_new(guarded(node.element.child("FormulaTo"), kind).c_str()));
    const auto inputs = node.element.children();
    isKnown = std::all_of(inputs.begin(), inputs.end(), [&](const pugi::xml_node& input) {
        return setInput(evaluator.get(), input, kind, nodeMap);
    });
    if (!isKnown) {
        return {};
    }
    GlibError error;
    if (isFloat) {
        arv_evaluator_set_double_variable(evaluator.get(), "FROM",
            value.isFloat ? value.real : static_cast<double>(value.integer));
        value = { true, 0, arv_evaluator_evaluate_as_double(evaluator.get(), error.out()) };
    } else if (value.isFloat && std::fabs(value.real) >= integerLimit) {
        return "the camera's formula takes 64-bit integers only";
    } else {
        arv_evaluator_set_int64_variable(evaluator.get(), "FROM",
            value.isFloat ? static_cast<std::int64_t>(value.real) : value.integer);
        value = { false, arv_evaluator_evaluate_as_int64(evaluator.get(), error.out()), 0.0 };
    }
    if (error) {
        return std::string("the camera's formula cannot convert it: ") + error.get()->message;
    }
    return value.isFloat && !std::isfinite(value.real)
        ? "the camera's formula cannot convert it into a number"
        : "";
}

std::string fitFault(const DescriptionNode& node, const Number& value)
{
    if (node.kind == NodeKind::FloatReg) {
        const bool isSingle = childText(node.element, "Length") == "4";
        return isSingle && value.isFloat && std::fabs(value.real) > double(FLT_MAX)
            ? "it is more than its register holds"
            : "";
    }
    const RegisterRange range = registerRange(node);
    const bool isInRange = value.isFloat
        ? std::fabs(value.real) < integerLimit && std::round(value.real) >= double(range.minimum)
            && std::round(value.real) <= double(range.maximum)
        : value.integer >= range.minimum && value.integer <= range.maximum;
    return isInRange ? ""
                     : "it is converted into "
            + (value.isFloat ? floatText(value.real) : integerText(value.integer))
            + ", which its register does not hold";
}

} // namespace

std::string conversionFault(ZQCamera::Impl& camera, const Feature& feature, Number value)
{
    bool isKnown = true;
    std::string fault;
    const Description& description = camera.description();
    const auto chain = valueChain(description, description.indexOf(*feature.node));
    for (auto at = chain.begin(); at != chain.end() && isKnown && fault.empty(); ++at) {
        const DescriptionNode& link = description.node(*at);
        if (isConverter(link.kind)) {
            fault = convert(link, camera.nodeMap(), value, isKnown);
        } else if (at + 1 == chain.end() && feature.endsInRegister) {
            fault = fitFault(link, value);
        }
    }
    return fault;
}

} // namespace zqcameralib
