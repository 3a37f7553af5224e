// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/ComparisonWindow.h"

#include "settings/SettingsTable.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zqviewer {

using zqcameralib::ZQSettings;
using zqcameralib::ZQSettingsLine;

namespace {

QString shown(const std::optional<ZQSettingsLine>& line)
{
    if (!line) {
        return ComparisonWindow::tr("(none)");
    }
    const QString value = QString::fromStdString(line->value);
    return line->unit.empty()
        ? value
        : QStringLiteral("%1 %2").arg(value, QString::fromStdString(line->unit));
}

} // namespace

ComparisonWindow::ComparisonWindow(ComparedSettings first, ComparedSettings second, QWidget* parent)
    : QDialog(parent)
    , m_first(std::move(first))
    , m_second(std::move(second))
    , m_differences(ZQSettings::Compare(m_first.settings, m_second.settings))
    , m_words(new QLabel(this))
    , m_table(new SettingsTable({ tr("Feature"), m_first.name, m_second.name }, this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("comparison"));
    setWindowTitle(tr("%1 compared with %2").arg(m_first.name, m_second.name));
    arrange();
    fill();
    choiceChanged();
    connect(m_table, &SettingsTable::checksChanged, this, &ComparisonWindow::choiceChanged);
}

void ComparisonWindow::arrange()
{
    m_words->setTextFormat(Qt::PlainText);
    auto* buttons = new QDialogButtonBox(this);
    for (const bool isChecked : { true, false }) {
        auto* check = buttons->addButton(
            isChecked ? tr("Choose &all") : tr("Choose &none"), QDialogButtonBox::ResetRole);
        check->setAutoDefault(false);
        connect(check, &QPushButton::clicked, this,
            [this, isChecked] { m_table->checkShown(isChecked); });
    }
    m_toSecond = makePut(true);
    m_toFirst = makePut(false);
    for (QPushButton* button : { m_toSecond, m_toFirst }) {
        if (button != nullptr) {
            buttons->addButton(button, QDialogButtonBox::ActionRole);
        }
    }
    buttons->addButton(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_words);
    layout->addWidget(m_table, 1);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 30);
}

QPushButton* ComparisonWindow::makePut(bool fromFirst)
{
    const ComparedSettings& target = fromFirst ? m_second : m_first;
    if (!target.isCamera && target.file.isEmpty()) {
        return nullptr;
    }
    auto* button = new QPushButton(target.isCamera ? tr("&Write chosen to the camera")
                                                   : tr("&Put chosen into %1").arg(target.name),
        this);
    button->setObjectName(
        fromFirst ? QStringLiteral("putIntoSecond") : QStringLiteral("putIntoFirst"));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, fromFirst] { put(fromFirst); });
    return button;
}

void ComparisonWindow::fill()
{
    for (const auto& difference : m_differences) {
        m_table->addRow({ QString::fromStdString(difference.label()), shown(difference.first),
                            shown(difference.second) },
            m_toFirst != nullptr || m_toSecond != nullptr);
    }
    m_table->fitColumns();
}

void ComparisonWindow::choiceChanged()
{
    const int count = static_cast<int>(m_table->checkedRows().size());
    m_words->setText(m_differences.empty()
            ? tr("No differences.")
            : tr("%n difference(s)", nullptr, static_cast<int>(m_differences.size())));
    for (QPushButton* button : { m_toSecond, m_toFirst }) {
        if (button != nullptr) {
            button->setEnabled(count > 0);
        }
    }
}

ZQSettings ComparisonWindow::chosen(bool isFirst) const
{
    std::vector<std::string> labels;
    for (const int row : m_table->checkedRows()) {
        labels.push_back(m_differences[static_cast<std::size_t>(row)].label());
    }
    return (isFirst ? m_first : m_second).settings.only(labels);
}

void ComparisonWindow::put(bool fromFirst)
{
    const ZQSettings lines = chosen(fromFirst);
    const ComparedSettings& target = fromFirst ? m_second : m_first;
    close(); // what it shows is over then
    if (target.isCamera) {
        Q_EMIT restoreWanted(lines);
        return;
    }
    ZQSettings all = target.settings;
    for (const ZQSettingsLine& line : lines.lines()) {
        all.put(line);
    }
    Q_EMIT saveWanted(target.file, all);
}

} // namespace zqviewer
