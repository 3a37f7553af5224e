// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/EditorFactory.h"

#include "editors/AddressEditor.h"
#include "editors/ChoiceEditor.h"
#include "editors/FloatEditor.h"
#include "editors/IntegerEditor.h"
#include "editors/TextEditor.h"

namespace featurebrowser {

namespace {

RowEditor* emptyEditor(const FeatureRow& row, int sliderSteps, QWidget* parent)
{
    switch (row.kind) {
    case RowKind::Integer:
        return new IntegerEditor(row, parent);
    case RowKind::Float:
        return new FloatEditor(row, sliderSteps, parent);
    case RowKind::Text:
        return new TextEditor(row, parent);
    case RowKind::Enumeration:
        return new ChoiceEditor(row, parent);
    case RowKind::Ipv4:
    case RowKind::Mac:
        return new AddressEditor(row, parent);
    default:
        return nullptr;
    }
}

} // namespace

RowEditor* makeEditor(const FeatureRow& row, int sliderSteps, QWidget* parent)
{
    RowEditor* editor = emptyEditor(row, sliderSteps, parent);
    if (editor != nullptr) {
        editor->update(row);
    }
    return editor;
}

} // namespace featurebrowser
