#include "BrowserWindow.h"

#include "DescriptionPane.h"
#include "FeatureDelegate.h"
#include "FeatureTree.h"
#include "MessageCallout.h"
#include "ValueWriter.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace featurebrowser {

BrowserWindow::BrowserWindow(QWidget* parent)
    : QWidget(parent)
    , m_model(new FeatureModel(this))
    , m_writer(new ValueWriter(*m_model, m_events, this))
{
    if (parent != nullptr)
        setWindowFlags(Qt::Dialog); // a window of its own until an application embeds it
    setWindowTitle(tr("Camera features"));
    makeTree();
    m_description = new DescriptionPane(this);
    m_splitter = new QSplitter(Qt::Vertical, this);
    m_splitter->addWidget(m_tree);
    m_splitter->addWidget(m_description);
    m_splitter->setStretchFactor(0, 4);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setCollapsible(0, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(makeFilterBar());
    layout->addWidget(m_splitter, 1);

    connect(m_model, &QAbstractItemModel::rowsInserted, this, &BrowserWindow::rowsAdded);
    const int unit = fontMetrics().height();
    resize(unit * 34, unit * 44);
    m_tree->header()->resizeSection(FeatureModel::NameColumn, unit * 19);
}

void BrowserWindow::makeTree()
{
    m_tree = new FeatureTree(m_model, m_writer, this);
    m_callout = new MessageCallout(m_tree);
    connect(m_writer, &ValueWriter::messageShown, m_callout, &MessageCallout::showRow);
    connect(m_model, &QAbstractItemModel::dataChanged, m_callout, &MessageCallout::follow);
    connect(m_model, &QAbstractItemModel::modelReset, m_callout, &MessageCallout::follow);
    connect(m_tree, &FeatureTree::currentRowChanged, this, &BrowserWindow::rowSelected);
    connect(m_tree->header(), &QHeaderView::sectionResized, this,
        [this](int column, int, int width) { columnResized(column, width); });
}

QWidget* BrowserWindow::makeFilterBar()
{
    auto* bar = new QWidget(this);
    m_filterField = new QLineEdit(bar);
    m_filterField->setObjectName(QStringLiteral("filterField"));
    m_filterField->setPlaceholderText(tr("Find a feature (Ctrl+F)"));
    m_filterField->setAccessibleName(tr("Find a feature"));
    m_filterField->setClearButtonEnabled(true);
    connect(m_filterField, &QLineEdit::textChanged, this, &BrowserWindow::applyFilter);
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, m_filterField, [this] {
        m_filterField->setFocus(Qt::ShortcutFocusReason);
        m_filterField->selectAll();
    });

    m_levelBox = new QComboBox(bar);
    m_levelBox->setObjectName(QStringLiteral("levelBox"));
    m_levelBox->setAccessibleName(tr("Visibility level"));
    m_levelBox->setToolTip(tr("Show features of this level and below"));
    m_levelBox->addItem(tr("Beginner"), LEVEL_BEGINNER);
    m_levelBox->addItem(tr("Expert"), LEVEL_EXPERT);
    m_levelBox->addItem(tr("Guru"), LEVEL_GURU);
    m_levelBox->setCurrentIndex(m_levelBox->findData(m_tree->filter().level));
    connect(
        m_levelBox, QOverload<int>::of(&QComboBox::activated), this, &BrowserWindow::levelChosen);

    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filterField, 1);
    layout->addWidget(m_levelBox);
    return bar;
}

void BrowserWindow::setLevel(TYPE_LEVEL level)
{
    m_levelBox->setCurrentIndex(m_levelBox->findData(level));
    RowFilter filter = m_tree->filter();
    filter.level = level;
    m_tree->setFilter(filter);
}

void BrowserWindow::levelChosen(int index)
{
    const auto level = static_cast<TYPE_LEVEL>(m_levelBox->itemData(index).toInt());
    if (level == m_tree->filter().level)
        return;
    setLevel(level);
    m_events.raise({}, [level](auto& receiver) { receiver.FeatureLevelChanged(level); });
}

void BrowserWindow::applyFilter()
{
    RowFilter filter = m_tree->filter();
    filter.setText(m_filterField->text());
    m_tree->setFilter(filter);
    if (!filter.text().isEmpty())
        m_tree->expandAll();
}

void BrowserWindow::setDescription(FeatureRow& row, std::string text)
{
    m_model->setDescription(row, std::move(text));
    const FeatureRow* current = m_tree->currentRow();
    if (current == nullptr || current == &row)
        m_description->showRow(&row);
}

void BrowserWindow::setSliderSteps(int steps)
{
    m_tree->delegate().setSliderSteps(steps);
}

void BrowserWindow::rowSelected(FeatureRow* row)
{
    m_description->showRow(row);
    m_callout->showRow(row);
    if (row == nullptr || m_ownChange)
        return;
    const std::string name = row->name;
    m_events.raise(name, [&name](auto& receiver) { receiver.ItemSelectionChanged(name); });
}

void BrowserWindow::columnResized(int column, int width)
{
    const QHeaderView* header = m_tree->header();
    const bool follows = header->stretchLastSection() && column == header->count() - 1;
    if (m_ownChange || follows)
        return;
    m_events.raise(
        {}, [column, width](auto& receiver) { receiver.ItemColumnResized(column, width); });
}

void BrowserWindow::rowsAdded(const QModelIndex& parent, int, int)
{
    constexpr int smallTree = 1000;
    if (parent.isValid() && !parent.parent().isValid() && m_model->rowCountTotal() <= smallTree)
        m_tree->expand(parent);
}

void BrowserWindow::clear()
{
    const QScopedValueRollback<bool> own(m_ownChange, true);
    m_model->clear();
    m_description->showRow(nullptr);
}

void BrowserWindow::present(Qt::WindowType type)
{
    const bool embedded = parentWidget() != nullptr && !isWindow();
    if (!embedded && windowType() != type) {
        Qt::WindowFlags flags(type);
        flags |= Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint
            | Qt::WindowSystemMenuHint;
        setWindowFlags(flags);
    }
    show();
    if (!embedded) {
        raise();
        activateWindow();
    }
}

void BrowserWindow::applySizes(int width, int height, const std::vector<int>& columns)
{
    const QScopedValueRollback<bool> own(m_ownChange, true);
    resize(width > 0 ? width : size().width(), height > 0 ? height : size().height());
    QHeaderView* header = m_tree->header();
    for (int column = 0;
         column < header->count() && static_cast<std::size_t>(column) < columns.size(); ++column) {
        const int wanted = columns[static_cast<std::size_t>(column)];
        if (wanted <= 0)
            continue;
        if (column == header->count() - 1)
            header->setStretchLastSection(false);
        header->resizeSection(column, wanted);
    }
}

void BrowserWindow::closeEvent(QCloseEvent* event)
{
    m_tree->delegate().revert();
    QWidget::closeEvent(event);
    const TYPE_LEVEL level = m_tree->filter().level;
    m_events.raise({}, [&](auto& receiver) {
        receiver.FeatureCloseDialog(size().width(), size().height(), level);
    });
}

} // namespace featurebrowser
