#include "editors/TextEditor.h"

#include "look/ThemeColors.h"
#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace featurebrowser {

TextEditor::TextEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_field(makeTextField())
    , m_counter(new QLabel(this))
{
    m_counter->setObjectName(QStringLiteral("byteCounter"));
    m_counter->setToolTip(tr("Bytes of the text and the most that the camera takes"));
    auto* layout = addField(m_field);
    layout->setContentsMargins(0, 0, 4, 0);
    layout->addWidget(m_counter);
    connect(m_field, &QLineEdit::textChanged, this, &TextEditor::count);
}

void TextEditor::showLimits(const FeatureRow& row)
{
    m_maxLength = std::get<TextValue>(row.value).maxLength;
    m_counter->setVisible(m_maxLength > 0);
    count();
}

void TextEditor::showValue(const FeatureRow& row)
{
    m_field->setText(editText(row));
    m_field->selectAll();
}

void TextEditor::count()
{
    const int bytes = m_field->text().toUtf8().size();
    const bool isTooLong = m_maxLength > 0 && static_cast<unsigned int>(bytes) > m_maxLength;
    m_counter->setText(QStringLiteral("%1/%2").arg(bytes).arg(m_maxLength));
    QPalette colors = palette();
    colors.setColor(
        QPalette::WindowText, isTooLong ? colors::alarm(palette()) : colors::dim(palette()));
    m_counter->setPalette(colors);
    QFont font = m_field->font();
    font.setBold(isTooLong);
    m_counter->setFont(font);
}

std::optional<EditValue> TextEditor::value(QString& problem) const
{
    const std::string text = m_field->text().toStdString();
    if (m_maxLength > 0 && text.size() > m_maxLength) {
        problem = tr("The text has %1 bytes; the camera takes at most %2")
                      .arg(QString::number(text.size()), QString::number(m_maxLength));
        return std::nullopt;
    }
    return text;
}

} // namespace featurebrowser
