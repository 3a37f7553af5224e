#include "editors/AddressEditor.h"

#include "text/ValueText.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace featurebrowser {

AddressEditor::AddressEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_field(makeTextField())
{
    static const QRegularExpression typing(QStringLiteral("[0-9.]{0,15}"));
    m_field->setValidator(new QRegularExpressionValidator(typing, m_field));
    addField(m_field);
}

void AddressEditor::showLimits(const FeatureRow&) { }

void AddressEditor::showValue(const FeatureRow& row)
{
    m_field->setText(editText(row));
    m_field->selectAll();
}

std::optional<EditValue> AddressEditor::value(QString& problem) const
{
    // No leading zeros: some readers take them for octal numbers.
    static const QRegularExpression whole(
        QStringLiteral("\\A(?:(?:25[0-5]|2[0-4][0-9]|1[0-9]{2}|[1-9]?[0-9])"
                       "(?:\\.(?!\\z)|\\z)){4}\\z"));
    const QString text = m_field->text();
    if (whole.match(text).hasMatch()) {
        return text.toStdString();
    }
    problem = tr("“%1” is not an IPv4 address: four numbers from 0 to 255 with points between")
                  .arg(text);
    return std::nullopt;
}

} // namespace featurebrowser
