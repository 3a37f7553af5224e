// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/TextEditor.h"

#include "look/ThemeColors.h"
#include "look/UnitField.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace featurebrowser {

TextEditor::TextEditor(const FeatureRow& row, QWidget* parent)
    : RowEditor(row, parent)
    , m_counter(new QLabel(this))
{
    m_counter->setObjectName(QStringLiteral("byteCounter"));
    m_counter->setForegroundRole(QPalette::WindowText); // in a view it would be another one
    m_counter->setToolTip(tr("Bytes of the text and the most that the camera takes"));
    auto* layout = addField(makeTextField());
    layout->addWidget(m_counter);
    layout->addSpacing(4);
    connect(textField(), &QLineEdit::textChanged, this, &TextEditor::count);
}

void TextEditor::showLimits(const FeatureRow& row)
{
    m_maxLength = std::get<TextValue>(row.value).maxLength;
    m_counter->setVisible(m_maxLength > 0);
    count();
}

void TextEditor::changeEvent(QEvent* event)
{
    RowEditor::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        count();
    }
}

void TextEditor::count()
{
    const auto bytes = textField()->text().toUtf8().size();
    const bool isTooLong = m_maxLength > 0 && bytes > qint64 { m_maxLength };
    m_counter->setText(QStringLiteral("%1/%2").arg(bytes).arg(m_maxLength));
    QPalette colors = palette();
    colors.setColor(
        QPalette::WindowText, isTooLong ? colors::alarm(palette()) : colors::dim(palette()));
    m_counter->setPalette(colors);
    QFont font = textField()->font();
    font.setBold(isTooLong);
    m_counter->setFont(font);
}

std::optional<EditValue> TextEditor::value(QString& problem) const
{
    const std::string text = textField()->text().toStdString();
    if (m_maxLength > 0 && text.size() > m_maxLength) {
        problem = tr("The text has %1 bytes; the camera takes at most %2")
                      .arg(QString::number(text.size()), QString::number(m_maxLength));
        return std::nullopt;
    }
    return text;
}

} // namespace featurebrowser
