// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/ChangeStrip.h"

#include "look/GlyphButton.h"
#include "text/ValueText.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr std::size_t namesInToolTip = 20;

} // namespace

ChangeStrip::ChangeStrip(FeatureModel* model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_text(new QLabel(this))
{
    m_text->setObjectName(QStringLiteral("changeText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* next = new GlyphButton(Glyph::Next, tr("Go to the next changed feature (F4)"), this);
    next->setObjectName(QStringLiteral("nextChangeButton"));
    connect(next, &QToolButton::clicked, this, &ChangeStrip::goToNext);
    m_next = next;
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_next);
    hide();
}

void ChangeStrip::showResult(const WriteResult& result)
{
    const FeatureRow* row = m_model->find(result.name);
    if (row == nullptr) {
        return;
    }
    m_rows = result.followers;
    m_position = 0;
    const int count = static_cast<int>(m_rows.size());
    const QString name = toText(row->name);
    QString text = result.isCommand ? name : name + QStringLiteral(" = ") + valueWithUnit(*row);
    if (!result.isCommand && !result.isTaken) {
        text = tr("%1 was not accepted as entered").arg(name);
    }
    if (count > 0) {
        text += QStringLiteral(": ") + tr("%n feature(s) followed", nullptr, count);
    }
    QStringList names;
    for (std::size_t i = 0; i < std::min(m_rows.size(), namesInToolTip); ++i) {
        names.append(toText(m_rows[i]).toHtmlEscaped());
    }
    if (m_rows.size() > namesInToolTip) {
        names.append(QStringLiteral("\u2026"));
    }
    m_text->setText(text);
    m_text->setToolTip(names.join(QStringLiteral("<br>")));
    m_next->setVisible(count > 0);
    show();
}

void ChangeStrip::goToNext()
{
    for (std::size_t tries = 0; tries < m_rows.size(); ++tries) {
        const FeatureRow* row = m_model->find(m_rows[m_position]);
        m_position = (m_position + 1) % m_rows.size();
        if (row != nullptr && !row->hidden) {
            Q_EMIT rowWanted(*row);
            return;
        }
    }
}

} // namespace featurebrowser
