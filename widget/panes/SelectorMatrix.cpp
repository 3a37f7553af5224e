// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/SelectorMatrix.h"

#include "events/ValueWriter.h"
#include "look/ThemeColors.h"
#include "model/RowRoles.h"
#include "panes/MatrixDelegate.h"
#include "panes/SelectorSweep.h"
#include "text/RowFacts.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace featurebrowser {

namespace {

QLabel* plainLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// What a cell keeps of a row.
std::unique_ptr<FeatureRow> copyOf(const FeatureRow& row)
{
    auto copy = std::make_unique<FeatureRow>();
    copy->name = row.name;
    copy->kind = row.kind == RowKind::Boolean ? RowKind::Enumeration : row.kind; // a list, too
    copy->value = row.value;
    copy->hasValue = row.hasValue;
    copy->logarithmic = row.logarithmic;
    copy->ownAbout().unit = rowUnit(row);
    return copy;
}

bool isReadable(const FeatureRow& row)
{
    return row.hasValue && row.state != FEATURE_READ_FAILED && row.state != FEATURE_NOT_AVAILABLE;
}

} // namespace

SelectorMatrix::SelectorMatrix(
    FeatureModel* model, ValueWriter* writer, const std::string& selector, QWidget* parent)
    : QDialog(parent)
    , m_model(model)
    , m_writer(writer)
    , m_sweep(new SelectorSweep(*model, *writer, selector, this))
    , m_table(new QTableWidget(this))
    , m_delegate(new MatrixDelegate(
          [this](const QModelIndex& index) {
              return m_cells.at(static_cast<std::size_t>(index.column()))
                  .at(static_cast<std::size_t>(index.row()))
                  .get();
          },
          this))
    , m_words(plainLabel({}, this))
    , m_progress(new QProgressBar(this))
    , m_cancel(new QPushButton(tr("C&ancel"), this))
{
    setObjectName(QStringLiteral("selectorMatrix"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QString name = toText(selector);
    setWindowTitle(tr("All entries of %1").arg(name));
    makeTable();
    arrange(tr("Read by switching %1 through its entries; it is set back afterwards.").arg(name));
    connect(m_sweep, &SelectorSweep::reached, this, &SelectorMatrix::readColumn);
    connect(m_sweep, &SelectorSweep::finished, this, &SelectorMatrix::filled);
    connect(m_cancel, &QPushButton::clicked, m_sweep, &SelectorSweep::stop);
    connect(m_delegate, &MatrixDelegate::entered, this, &SelectorMatrix::enter);
    connect(m_delegate, &MatrixDelegate::complained, this, &SelectorMatrix::say);
    connect(model, &QAbstractItemModel::modelReset, this, &SelectorMatrix::forget);
}

SelectorMatrix::~SelectorMatrix() = default;

void SelectorMatrix::makeTable()
{
    m_table->setItemDelegate(m_delegate);
    m_table->setAlternatingRowColors(true);
    m_table->horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 8);
    m_table->setTabKeyNavigation(false);
}

void SelectorMatrix::arrange(const QString& note)
{
    m_words->setObjectName(QStringLiteral("matrixMessage"));
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_words->hide();
    m_cancel->setObjectName(QStringLiteral("matrixCancel"));
    m_progress->setObjectName(QStringLiteral("matrixProgress"));
    m_cancel->hide();
    m_progress->hide();
    m_progress->setFormat(tr("%v of %m entries read"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_again = buttons->addButton(tr("&Read again"), QDialogButtonBox::ActionRole);
    // Return ends an edit and nothing else.
    for (QPushButton* button : { m_cancel, m_again, buttons->button(QDialogButtonBox::Close) }) {
        button->setAutoDefault(false);
    }
    connect(m_again, &QPushButton::clicked, this, &SelectorMatrix::fill);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* progress = new QHBoxLayout;
    progress->addWidget(m_progress, 1);
    progress->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(plainLabel(note, this));
    layout->addWidget(m_table, 1);
    layout->addWidget(m_words);
    layout->addLayout(progress);
    layout->addWidget(buttons);
    resize(fontMetrics().height() * 36, fontMetrics().height() * 20);
}

const std::string& SelectorMatrix::selector() const
{
    return m_sweep->selector();
}

bool SelectorMatrix::canShow(const FeatureModel& model, const FeatureRow& row)
{
    return row.isEditable() && !model.selectedBy(row.name).empty() && !selectorEntries(row).empty();
}

// Two that switch at the same time would each read what the other one has set.
bool SelectorMatrix::isOtherBusy() const
{
    const auto all = parent() != nullptr ? parent()->findChildren<const SelectorMatrix*>()
                                         : QList<const SelectorMatrix*>();
    return std::any_of(all.begin(), all.end(),
        [this](const SelectorMatrix* other) { return other != this && other->m_sweep->isBusy(); });
}

void SelectorMatrix::fill()
{
    const FeatureRow* selector = m_model->find(m_sweep->selector());
    if (isOtherBusy()) {
        say(tr("Another selector is being read: try again afterwards"));
        return;
    }
    if (selector == nullptr || !canShow(*m_model, *selector) || !m_sweep->start()) {
        return;
    }
    m_delegate->revert();
    say({});
    prepare();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_progress->setRange(0, m_table->columnCount());
    m_progress->setValue(0);
    m_progress->show();
    m_cancel->show();
    m_again->setEnabled(false);
}

// What was read may be of another camera.
void SelectorMatrix::forget()
{
    m_delegate->revert();
    m_table->clearContents();
    for (auto& column : m_cells) {
        std::for_each(column.begin(), column.end(), [](Cell& cell) { cell.reset(); });
    }
    say(tr("The features were loaded anew: read again"));
}

/// Empty, with the headers of what is going to be read.
void SelectorMatrix::prepare()
{
    m_features.clear();
    QStringList labels;
    for (const FeatureRow* feature : m_model->selectedBy(m_sweep->selector())) {
        if (feature->kind == RowKind::Command) {
            continue;
        }
        m_features.push_back(feature->name);
        const QString unit = rowUnit(*feature);
        labels.append(unit.isEmpty() ? toText(feature->name)
                                     : QStringLiteral("%1 [%2]").arg(toText(feature->name), unit));
    }
    QStringList entries;
    for (const RowValue& entry : m_sweep->entries()) {
        entries.append(heldText(entry));
    }
    m_cells.clear();
    m_cells.resize(m_sweep->entries().size());
    for (auto& column : m_cells) {
        column.resize(m_features.size());
    }
    m_table->clear();
    m_table->setRowCount(static_cast<int>(labels.size()));
    m_table->setColumnCount(static_cast<int>(entries.size()));
    m_table->setVerticalHeaderLabels(labels);
    m_table->setHorizontalHeaderLabels(entries);
    m_others = otherStands();
    const QString name = toText(m_sweep->selector());
    setWindowTitle(m_others.empty()
            ? tr("All entries of %1").arg(name)
            : tr("All entries of %1 at %2").arg(name, standsText(m_others)));
    m_table->setAccessibleName(windowTitle());
}

// Selectors that this one selects go with it.
Stands SelectorMatrix::otherStands() const
{
    Stands others;
    const auto add = [&](const Stand& stand) {
        const FeatureRow* row = m_model->find(stand.selector);
        const auto above = row != nullptr ? selectorNames(*row) : std::vector<std::string>();
        const bool follows = stand.selector == m_sweep->selector()
            || std::find(above.begin(), above.end(), m_sweep->selector()) != above.end();
        if (!follows && std::find(others.begin(), others.end(), stand) == others.end()) {
            others.push_back(stand);
        }
    };
    for (const std::string& name : m_features) {
        if (const FeatureRow* row = m_model->find(name)) {
            const Stands stands = standsOf(*m_model, *row);
            std::for_each(stands.begin(), stands.end(), add);
        }
    }
    return others;
}

QTableWidgetItem* SelectorMatrix::makeItem(const FeatureRow* row, const QString& problem) const
{
    const bool isThere = row != nullptr && problem.isEmpty();
    const bool isKnown = isThere && isReadable(*row);
    auto* item = new QTableWidgetItem(isKnown ? oneLine(valueText(*row)) : noValueText());
    const bool isEditable = isKnown && row->isEditable();
    QString words = problem;
    if (isThere && (!isEditable || row->hasMessage())) {
        words = rowExplanation(*row, rowFacts(*row, m_model->reasonOf(*row)));
    }
    item->setToolTip(words.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
    if (!isEditable) {
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        item->setForeground(colors::dim(palette()));
    }
    return item;
}

void SelectorMatrix::readColumn(std::size_t entry, const QString& problem)
{
    const int column = static_cast<int>(entry);
    for (std::size_t i = 0; i < m_features.size(); ++i) {
        const FeatureRow* row = m_model->find(m_features[i]);
        QTableWidgetItem* item = makeItem(row, problem);
        m_cells[entry][i] = (item->flags() & Qt::ItemIsEditable) != 0 ? copyOf(*row) : nullptr;
        m_table->setItem(static_cast<int>(i), column, item);
    }
    if (!problem.isEmpty()) {
        QTableWidgetItem* header = m_table->horizontalHeaderItem(column);
        header->setToolTip(problem.toHtmlEscaped());
        header->setForeground(colors::dim(palette()));
    }
    m_progress->setValue(column + 1);
}

void SelectorMatrix::filled(const QString& problem)
{
    m_progress->hide();
    m_cancel->hide();
    m_again->setEnabled(true);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
        | QAbstractItemView::AnyKeyPressed);
    m_table->resizeColumnsToContents();
    m_table->resizeRowsToContents();
    say(problem);
}

void SelectorMatrix::enter(int feature, int entry, const EditValue& value)
{
    const auto column = static_cast<std::size_t>(entry);
    const std::string name = m_features.at(static_cast<std::size_t>(feature));
    const Cell& cell = m_cells.at(column).at(static_cast<std::size_t>(feature));
    const auto wanted = cell != nullptr ? withEntered(cell->value, value) : std::nullopt;
    const Stands moved = movedSince(*m_model, m_others);
    if (!moved.empty()) {
        say(tr("Nothing was changed: this was read at %1").arg(standsText(moved)));
        return;
    }
    if (isOtherBusy()) {
        say(tr("Another selector is being read: try again afterwards"));
        return;
    }
    if (!wanted) {
        return;
    }
    const QPointer<SelectorMatrix> self(this);
    QString words;
    const QString back = m_sweep->visit(column, [&](const QString& problem) {
        words = problem.isEmpty() ? write(name, *wanted) : problem;
        if (self && problem.isEmpty()) {
            readColumn(column, {});
            m_table->item(feature, entry)->setToolTip(words.toHtmlEscaped());
        }
    });
    if (self) {
        say(back.isEmpty() ? words : back);
    }
}

QString SelectorMatrix::write(const std::string& name, const RowValue& wanted)
{
    const QPointer<SelectorMatrix> self(this);
    const FeatureRow* row = m_model->find(name);
    const auto value = row != nullptr ? enteredAgain(*row, wanted) : std::nullopt;
    if (!value || !row->isEditable()) {
        return tr("Nothing was changed: %1 cannot be set there now").arg(toText(name));
    }
    if (holds(*row, *value) && !row->hasMessage()) {
        return {};
    }
    m_writer->write(name, *value);
    FeatureRow* now = self ? m_model->find(name) : nullptr;
    if (now == nullptr) {
        return {};
    }
    QString words = now->extras().message;
    m_model->setMessage(*now, {}); // said here; the row is about to show another entry
    return words;
}

void SelectorMatrix::say(const QString& words)
{
    m_words->setText(words);
    m_words->setVisible(!words.isEmpty());
}

// The selector goes back to where it stood before the dialog goes.
void SelectorMatrix::done(int result)
{
    const QPointer<SelectorMatrix> self(this);
    m_delegate->revert();
    m_sweep->stop();
    if (self) {
        QDialog::done(result);
    }
}

} // namespace featurebrowser
