#include "editors/AddressEditor.h"

#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace featurebrowser {

AddressEditor::AddressEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_field(new QLineEdit(this))
{
    m_field->setFrame(false);
    static const QRegularExpression typing(QStringLiteral("[0-9.]{0,15}"));
    m_field->setValidator(new QRegularExpressionValidator(typing, m_field));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_field);
    useField(m_field);
    connect(m_field, &QLineEdit::textEdited, this, [this] { touch(); });
}

void AddressEditor::showLimits(const FeatureRow&) { }

void AddressEditor::showValue(const FeatureRow& row)
{
    m_field->setText(row.hasValue ? valueText(row) : QString());
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
