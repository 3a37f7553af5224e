// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/DescriptionPane.h"

#include "look/ThemeColors.h"
#include "model/SelectorContext.h"

#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

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

QLabel* plainLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    const bool isMirrored = parent->layoutDirection() == Qt::RightToLeft;
    label->setAlignment(
        Qt::AlignTop | Qt::AlignAbsolute | (isMirrored ? Qt::AlignRight : Qt::AlignLeft));
    return label;
}

} // namespace

DescriptionPane::DescriptionPane(const FeatureModel* model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_title(new QLabel(this))
    , m_text(new QPlainTextEdit(this))
    , m_body(new QBoxLayout(QBoxLayout::TopToBottom))
    , m_factsArea(new QScrollArea(this))
    , m_facts(new QWidget)
    , m_form(new QFormLayout(m_facts))
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
    m_factsArea->setObjectName(QStringLiteral("factsArea"));
    m_factsArea->setFrameShape(QFrame::NoFrame);
    m_factsArea->setWidgetResizable(true);
    m_factsArea->setFocusPolicy(Qt::NoFocus);
    m_factsArea->setWidget(m_facts);
    m_form->setContentsMargins(2, 2, 2, 2);
    m_form->setVerticalSpacing(2);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_body->setContentsMargins(0, 0, 0, 0);
    m_body->addWidget(m_text, 1);
    m_body->addWidget(m_factsArea, 1);
    layout->addLayout(m_body, 1);
    showRow(nullptr);
}

void DescriptionPane::showRow(const FeatureRow* row)
{
    m_title->setText(row != nullptr ? toText(row->name) : QString());
    m_title->setVisible(row != nullptr);
    QString text;
    if (row != nullptr) {
        const std::string& about = row->about().text;
        text = tidyLines(toText(about.empty() ? row->extras().description : about));
    }
    m_text->setPlaceholderText(row == nullptr ? tr("Select a feature to read about it here")
            : row->isCategory()               ? QString()
                                              : tr("The camera does not describe this feature"));
    if (text != m_text->toPlainText()) {
        m_text->setPlainText(text);
    }
    showFacts(row);
}

void DescriptionPane::showFacts(const FeatureRow* row)
{
    const auto facts = row != nullptr ? allFacts(*m_model, *row) : std::vector<RowFact>();
    QStringList shown;
    for (const RowFact& fact : facts) {
        shown << fact.label << fact.text;
    }
    m_factsArea->setVisible(!facts.empty());
    if (std::exchange(m_shown, shown) == shown) {
        return; // the user may have selected something in it
    }
    while (m_form->rowCount() > 0) {
        m_form->removeRow(0);
    }
    for (const RowFact& fact : facts) {
        if (fact.label.isEmpty()) {
            m_form->addRow(plainLabel(fact.text, m_facts));
            continue;
        }
        auto* label = plainLabel(fact.label, m_facts);
        label->setWordWrap(false);
        QPalette dim = palette();
        dim.setColor(QPalette::WindowText, colors::dim(palette()));
        label->setPalette(dim);
        m_form->addRow(label, plainLabel(fact.text, m_facts));
    }
}

QSize DescriptionPane::sizeHint() const
{
    return { fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * 10 };
}

// Beside the text where there is room for both.
void DescriptionPane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isWide = width() > fontMetrics().averageCharWidth() * 70;
    m_body->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

} // namespace featurebrowser
