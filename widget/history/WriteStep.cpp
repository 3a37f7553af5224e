// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "history/WriteStep.h"

#include "text/RowText.h"
#include "text/ValueText.h"

namespace featurebrowser {

namespace {

constexpr int mostLetters = 60;

} // namespace

QString stepText(const RowValue& value, const QString& unit)
{
    if (std::holds_alternative<std::monostate>(value)) {
        return noValueText();
    }
    QString text = oneLine(heldText(value));
    if (text.size() > mostLetters) {
        text = text.left(mostLetters) + QChar(0x2026);
    }
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

WriteStep::WriteStep(const FeatureModel& model, const FeatureRow& row, const WriteResult& result)
    : m_model(model)
    , m_name(result.name)
    , m_kind(row.kind)
    , m_before(result.before)
    , m_after(row.value)
    , m_unit(rowUnit(row))
    , m_stands(standsOf(model, row))
    , m_isPassing(result.entry == WriteEntry::Passing)
{
    describe();
}

void WriteStep::describe()
{
    setText(toText(m_name) + QStringLiteral(": ") + stepText(m_before, {})
        + QStringLiteral(" \u2192 ") + stepText(m_after, m_unit));
}

bool WriteStep::isThere() const
{
    const FeatureRow* row = m_model.find(m_name);
    return row != nullptr && row->kind == m_kind;
}

void WriteStep::close()
{
    m_isPassing = false;
    setObsolete(!isThere());
}

bool WriteStep::mergeWith(const QUndoCommand* other)
{
    const auto& next = static_cast<const WriteStep&>(*other);
    if (!m_isPassing || !next.m_isPassing || next.m_name != m_name || next.m_stands != m_stands) {
        return false;
    }
    m_after = next.m_after;
    describe();
    return true;
}

} // namespace featurebrowser
