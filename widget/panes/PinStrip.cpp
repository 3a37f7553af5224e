#include "panes/PinStrip.h"

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

PinStrip::PinStrip(FeatureModel* model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_layout(new QGridLayout(this))
{
    setObjectName(QStringLiteral("pinStrip"));
    setAccessibleName(tr("Pinned features"));
    m_layout->setContentsMargins(4, 2, 0, 2);
    m_layout->setVerticalSpacing(3);
    m_layout->setColumnStretch(0, 3);
    m_layout->setColumnStretch(1, 2);
    hide();
    connect(model, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& index) { showValue(*FeatureModel::row(index)); });
    connect(model, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex& parentIndex, int first) {
            showValue(*FeatureModel::row(m_model->index(first, 0, parentIndex)));
        });
}

void PinStrip::setPinned(const std::string& name, bool pinned)
{
    if (pinned == isPinned(name)) {
        return;
    }
    if (pinned) {
        add(name);
    } else {
        remove(name);
    }
    setVisible(!m_pins.empty());
    Q_EMIT pinsChanged();
}

void PinStrip::add(const std::string& name)
{
    const QString words = tr("Unpin %1").arg(toText(name));
    const Pin pin { name, plainLabel(this), plainLabel(this), new Sparkline(this),
        new GlyphButton(Glyph::Close, words, this) };
    pin.unpin->setToolTip(tr("Unpin"));
    pin.name->setText(toText(name));
    pin.line->setAccessibleName(tr("Recent values of %1").arg(toText(name)));
    connect(pin.unpin, &QToolButton::clicked, this, [this, name] { setPinned(name, false); });
    m_layout->addWidget(pin.name, m_nextLine, 0);
    m_layout->addWidget(pin.value, m_nextLine, 1);
    m_layout->addWidget(pin.line, m_nextLine, 2);
    m_layout->addWidget(pin.unpin, m_nextLine, 3);
    ++m_nextLine;
    m_pins.push_back(pin);
    if (const FeatureRow* row = m_model->find(name)) {
        showValue(*row);
        valueSeen(*row);
    }
}

void PinStrip::remove(const std::string& name)
{
    const auto pin = find(name);
    for (QWidget* part :
        std::initializer_list<QWidget*> { pin->name, pin->value, pin->line, pin->unpin }) {
        part->deleteLater();
    }
    m_pins.erase(pin);
}

std::vector<PinStrip::Pin>::const_iterator PinStrip::find(const std::string& name) const
{
    return std::find_if(
        m_pins.begin(), m_pins.end(), [&](const Pin& pin) { return pin.feature == name; });
}

QByteArrayList PinStrip::pinned() const
{
    QByteArrayList names;
    for (const Pin& pin : m_pins) {
        names.append(QByteArray::fromStdString(pin.feature));
    }
    return names;
}

void PinStrip::pinOnly(const QByteArrayList& names)
{
    const auto before = pinned();
    for (const QByteArray& name : before) {
        if (!names.contains(name)) {
            setPinned(name.toStdString(), false);
        }
    }
    for (const QByteArray& name : names) {
        setPinned(name.toStdString(), true);
    }
}

void PinStrip::valueSeen(const FeatureRow& row)
{
    const auto pin = find(row.name);
    if (pin != m_pins.end()) {
        pin->line->add(plotted(row));
    }
}

void PinStrip::showValue(const FeatureRow& row)
{
    const auto pin = find(row.name);
    if (pin != m_pins.end()) {
        pin->value->setText(valueWithUnit(row));
    }
}

} // namespace featurebrowser
