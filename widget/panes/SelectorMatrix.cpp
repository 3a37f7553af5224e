#include "panes/SelectorMatrix.h"

#include "events/ValueWriter.h"
#include "text/ValueText.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace featurebrowser {

SelectorMatrix::SelectorMatrix(
    FeatureModel* model, ValueWriter* writer, const std::string& selector, QWidget* parent)
    : QDialog(parent)
    , m_model(model)
    , m_writer(writer)
    , m_selector(selector)
    , m_table(new QTableWidget(this))
{
    setObjectName(QStringLiteral("selectorMatrix"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QString name = toText(selector);
    setWindowTitle(tr("All entries of %1").arg(name));
    auto* note = new QLabel(
        tr("Read by switching %1 through its entries; it is set back afterwards.").arg(name), this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 8);
    m_table->setAccessibleName(windowTitle());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* again = buttons->addButton(tr("&Read again"), QDialogButtonBox::ActionRole);
    again->setAutoDefault(false);
    connect(again, &QPushButton::clicked, this, &SelectorMatrix::fill);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addWidget(m_table, 1);
    layout->addWidget(buttons);
    resize(fontMetrics().height() * 36, fontMetrics().height() * 20);
}

bool SelectorMatrix::canShow(const FeatureModel& model, const FeatureRow& row)
{
    return row.kind == RowKind::Enumeration && row.isEditable()
        && !model.selectedBy(row.name).empty();
}

// Every switch runs the application's code, so nothing is kept across it but names.
void SelectorMatrix::fill()
{
    const FeatureRow* selector = m_model->find(m_selector);
    if (m_filling || selector == nullptr || !canShow(*m_model, *selector)) {
        return;
    }
    m_filling = true;
    const QPointer<SelectorMatrix> self(this);
    const QStringList entries = entryTexts(*selector);
    const int before = std::get<ChoiceValue>(selector->value).index;
    m_features.clear();
    QStringList labels;
    for (const FeatureRow* feature : m_model->selectedBy(m_selector)) {
        if (feature->kind == RowKind::Command) {
            continue;
        }
        m_features.push_back(feature->name);
        labels.append(toText(feature->name));
    }
    m_table->setRowCount(labels.size());
    m_table->setColumnCount(entries.size());
    m_table->setVerticalHeaderLabels(labels);
    m_table->setHorizontalHeaderLabels(entries);
    for (int entry = 0; self && entry < entries.size(); ++entry) {
        fillColumn(entry);
    }
    if (!self) {
        return;
    }
    if (before >= 0) {
        m_writer->write(m_selector, EntryIndex { before });
    }
    if (!self) {
        return;
    }
    m_table->resizeColumnsToContents();
    m_table->resizeRowsToContents();
    m_filling = false;
}

void SelectorMatrix::fillColumn(int entry)
{
    const QPointer<SelectorMatrix> self(this);
    m_writer->write(m_selector, EntryIndex { entry });
    if (!self) {
        return;
    }
    const FeatureRow* selector = m_model->find(m_selector);
    const bool isSwitched
        = selector != nullptr && holds(*selector, EntryIndex { entry }) && !selector->hasMessage();
    for (std::size_t i = 0; i < m_features.size(); ++i) {
        const FeatureRow* row = m_model->find(m_features[i]);
        const bool isKnown = isSwitched && row != nullptr && row->state != FEATURE_READ_FAILED;
        m_table->setItem(static_cast<int>(i), entry,
            new QTableWidgetItem(isKnown ? valueText(*row) : noValueText()));
    }
}

} // namespace featurebrowser
