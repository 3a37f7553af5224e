#include "panes/DescriptionPane.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace featurebrowser {

namespace {

// Descriptions come with line ends of several systems and blanks before them.
QString tidyLines(QString text)
{
    // Blanks are looked at from their first one only: the time does not grow with their square.
    static const QRegularExpression lineEnd(
        QStringLiteral("(?<![^\\S\\r\\n])[^\\S\\r\\n]*+(?:\\r\\n?|\\n)"),
        QRegularExpression::UseUnicodePropertiesOption);
    return text.replace(lineEnd, QStringLiteral("\n")).trimmed();
}

} // namespace

DescriptionPane::DescriptionPane(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("descriptionPane"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_text->setObjectName(QStringLiteral("descriptionText"));
    m_text->setAccessibleName(tr("Description"));
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setTabChangesFocus(true);
    m_text->setMinimumHeight(fontMetrics().lineSpacing() * 3);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    showRow(nullptr);
}

void DescriptionPane::showRow(const FeatureRow* row)
{
    m_title->setText(row != nullptr ? toText(row->name) : QString());
    m_title->setVisible(row != nullptr);
    const QString text = row != nullptr ? tidyLines(toText(row->extras().description)) : QString();
    m_text->setPlaceholderText(row == nullptr ? tr("Select a feature to read about it here")
            : row->isCategory()               ? QString()
                                              : tr("The camera does not describe this feature"));
    if (text != m_text->toPlainText()) {
        m_text->setPlainText(text);
    }
}

} // namespace featurebrowser
