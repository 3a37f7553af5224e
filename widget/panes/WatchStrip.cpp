#include "panes/WatchStrip.h"

#include "look/GlyphButton.h"
#include "look/Sparkline.h"
#include "text/ValueText.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <limits>

namespace featurebrowser {

namespace {

double plotted(const FeatureRow& row)
{
    if (!row.hasValue) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        return static_cast<double>(integer->value);
    }
    if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        return number->value;
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        return choice->index;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

QLabel* plainLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

} // namespace

WatchStrip::WatchStrip(FeatureModel* model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_layout(new QGridLayout(this))
{
    setObjectName(QStringLiteral("watchStrip"));
    setAccessibleName(tr("Pinned features"));
    m_layout->setContentsMargins(4, 2, 0, 2);
    m_layout->setVerticalSpacing(3);
    m_layout->setColumnStretch(0, 3);
    m_layout->setColumnStretch(1, 2);
    hide();
    connect(model, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& index) { rowChanged(*FeatureModel::row(index)); });
    connect(model, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex& parentIndex, int first) {
            rowChanged(*FeatureModel::row(m_model->index(first, 0, parentIndex)));
        });
}

void WatchStrip::setPinned(const std::string& name, bool pinned)
{
    if (pinned == isPinned(name)) {
        return;
    }
    if (pinned) {
        add(name);
    } else {
        remove(name);
    }
    setVisible(!m_watches.empty());
    Q_EMIT pinsChanged();
}

void WatchStrip::add(const std::string& name)
{
    const QString words = tr("Unpin %1").arg(toText(name));
    Watch watch { plainLabel(this), plainLabel(this), new Sparkline(this),
        new GlyphButton(Glyph::Close, words, this), m_count++ };
    watch.unpin->setToolTip(tr("Unpin"));
    watch.name->setText(toText(name));
    watch.line->setAccessibleName(tr("Recent values of %1").arg(toText(name)));
    connect(watch.unpin, &QToolButton::clicked, this, [this, name] { setPinned(name, false); });
    m_layout->addWidget(watch.name, watch.order, 0);
    m_layout->addWidget(watch.value, watch.order, 1);
    m_layout->addWidget(watch.line, watch.order, 2);
    m_layout->addWidget(watch.unpin, watch.order, 3);
    m_watches.emplace(name, watch);
    if (const FeatureRow* row = m_model->find(name)) {
        rowChanged(*row);
        valueSeen(*row);
    }
}

void WatchStrip::remove(const std::string& name)
{
    const auto found = m_watches.find(name);
    for (QWidget* part : std::initializer_list<QWidget*> {
             found->second.name, found->second.value, found->second.line, found->second.unpin }) {
        part->deleteLater();
    }
    m_watches.erase(found);
}

QByteArrayList WatchStrip::pinned() const
{
    std::vector<std::pair<int, QByteArray>> ordered;
    for (const auto& [name, watch] : m_watches) {
        ordered.emplace_back(watch.order, QByteArray::fromStdString(name));
    }
    std::sort(ordered.begin(), ordered.end());
    QByteArrayList names;
    for (const auto& entry : ordered) {
        names.append(entry.second);
    }
    return names;
}

void WatchStrip::valueSeen(const FeatureRow& row)
{
    if (m_watches.empty()) {
        return;
    }
    const auto found = m_watches.find(row.name);
    if (found != m_watches.end()) {
        found->second.line->add(plotted(row));
    }
}

void WatchStrip::rowChanged(const FeatureRow& row)
{
    if (m_watches.empty()) {
        return;
    }
    const auto found = m_watches.find(row.name);
    if (found == m_watches.end()) {
        return;
    }
    const QString unit = rowUnit(row);
    found->second.value->setText(
        unit.isEmpty() ? valueText(row) : valueText(row) + QLatin1Char(' ') + unit);
}

} // namespace featurebrowser
