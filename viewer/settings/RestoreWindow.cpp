// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/RestoreWindow.h"

#include "settings/SettingsTable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace zqviewer {

using zqcameralib::ZQRestoredLine;
using zqcameralib::ZQRestoreReport;
using Outcome = ZQRestoredLine::Outcome;

namespace {

QString words(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Restored:
        return RestoreWindow::tr("restored");
    case Outcome::AlreadySo:
        return RestoreWindow::tr("already so");
    case Outcome::Adjusted:
        return RestoreWindow::tr("adjusted by the camera");
    case Outcome::Refused:
        return RestoreWindow::tr("refused");
    case Outcome::UnknownHere:
        return RestoreWindow::tr("unknown here");
    case Outcome::WouldBeWritten:
        return RestoreWindow::tr("would be written");
    case Outcome::NotKnown:
        break;
    }
    return RestoreWindow::tr("not known");
}

constexpr std::array outcomes { Outcome::Restored, Outcome::AlreadySo, Outcome::Adjusted,
    Outcome::Refused, Outcome::UnknownHere, Outcome::WouldBeWritten, Outcome::NotKnown };

bool holds(const ZQRestoredLine& line)
{
    return line.outcome == Outcome::Restored || line.outcome == Outcome::AlreadySo;
}

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

bool RestoreWindow::isGood(const ZQRestoreReport& report)
{
    return report.exitStatus() == 0;
}

QString RestoreWindow::summary(const ZQRestoreReport& report)
{
    QStringList parts;
    for (const Outcome outcome : outcomes) {
        if (const std::size_t count = report.count(outcome); count > 0) {
            parts.append(QStringLiteral("%1 %2").arg(QString::number(count), words(outcome)));
        }
    }
    const QString all = parts.isEmpty() ? tr("no settings") : parts.join(QStringLiteral(", "));
    return report.error.empty() ? all : text(report.error) + QStringLiteral(" \u2013 ") + all;
}

RestoreWindow::RestoreWindow(ZQRestoreReport report, QWidget* parent)
    : QDialog(parent)
    , m_report(std::move(report))
    , m_table(new SettingsTable(
          { tr("Feature"), tr("Wanted"), tr("Before"), tr("Now"), tr("Outcome"), tr("Reason") },
          this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("restoreReport"));
    setWindowTitle(m_report.isDryRun ? tr("What would be restored") : tr("Restored settings"));
    auto* heading = new QLabel(summary(m_report), this);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    for (const std::string& warning : m_report.warnings) {
        auto* label = new QLabel(QStringLiteral("\u26A0 ") + text(warning), this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    auto* all = new QCheckBox(tr("&Also what holds"), this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    layout->addWidget(m_table, 1);
    layout->addWidget(all);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(all, &QCheckBox::toggled, this, &RestoreWindow::fill);
    fill(false);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 28);
}

void RestoreWindow::fill(bool areAllShown)
{
    m_table->model().removeRows(0, m_table->model().rowCount());
    for (const ZQRestoredLine& line : m_report.lines) {
        if (areAllShown || !holds(line)) {
            m_table->addRow({ text(line.line.label()), text(line.line.value), text(line.before),
                text(line.now), words(line.outcome), text(line.reason) });
        }
    }
    m_table->fitColumns();
}

} // namespace zqviewer
