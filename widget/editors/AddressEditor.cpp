// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/AddressEditor.h"

#include "look/UnitField.h"
#include "text/AddressInput.h"

namespace featurebrowser {

AddressEditor::AddressEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_isMac(row.kind == RowKind::Mac)
{
    addField(makeTextField());
}

std::optional<EditValue> AddressEditor::value(QString& problem) const
{
    const QString text = textField()->text();
    const auto address = m_isMac ? readMac(text) : readIpv4(text);
    if (address) {
        return *address;
    }
    const QString sentence = m_isMac
        ? tr("“%1” is not a MAC address: six pairs of hexadecimal digits with colons between")
        : tr("“%1” is not an IPv4 address: four numbers from 0 to 255 with points between");
    problem = sentence.arg(text.trimmed());
    return std::nullopt;
}

} // namespace featurebrowser
