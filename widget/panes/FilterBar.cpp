// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/FilterBar.h"

#include "look/GlyphButton.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace featurebrowser {

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent)
    , m_field(new QLineEdit(this))
    , m_hits(new QLabel(m_field))
    , m_reveal(new QPushButton(this))
    , m_levels(new QComboBox(this))
{
    makeField();
    makeLevels();
    m_hits->setObjectName(QStringLiteral("hitLabel"));
    m_hits->setTextFormat(Qt::PlainText);
    m_hits->setForegroundRole(QPalette::Text);
    m_hits->hide();
    m_reveal->setObjectName(QStringLiteral("revealButton"));
    m_reveal->setToolTip(tr("Show the features that the visibility level hides"));
    m_reveal->hide();
    connect(m_reveal, &QPushButton::clicked, this, [this] {
        focusField();
        Q_EMIT levelChosen(LEVEL_GURU);
    });
    auto* expand = new GlyphButton(Glyph::ExpandAll, tr("Expand all categories"), this);
    auto* collapse = new GlyphButton(Glyph::CollapseAll, tr("Collapse all categories"), this);
    expand->setObjectName(QStringLiteral("expandButton"));
    collapse->setObjectName(QStringLiteral("collapseButton"));
    connect(expand, &QToolButton::clicked, this, &FilterBar::expandAll);
    connect(collapse, &QToolButton::clicked, this, &FilterBar::collapseAll);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_field, 1);
    layout->addWidget(m_reveal);
    layout->addWidget(expand);
    layout->addWidget(collapse);
    layout->addWidget(m_levels);
    setTabOrder(collapse, m_levels);
}

void FilterBar::makeField()
{
    m_field->setObjectName(QStringLiteral("filterField"));
    m_field->setPlaceholderText(tr("Find a feature (Ctrl+F)"));
    m_field->setAccessibleName(tr("Find a feature"));
    m_field->setToolTip(tr("Finds words of names, categories, values, entries and descriptions. "
                           "Enter goes to the next "
                           "hit, Shift+Enter back, Down into the tree."));
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &FilterBar::textChanged);
}

void FilterBar::makeLevels()
{
    m_levels->setObjectName(QStringLiteral("levelBox"));
    m_levels->setAccessibleName(tr("Visibility level"));
    m_levels->setToolTip(tr("Show features of this level and below"));
    m_levels->addItem(tr("Beginner"), LEVEL_BEGINNER);
    m_levels->addItem(tr("Expert"), LEVEL_EXPERT);
    m_levels->addItem(tr("Guru"), LEVEL_GURU);
    connect(m_levels, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        Q_EMIT levelChosen(static_cast<TYPE_LEVEL>(m_levels->itemData(index).toInt()));
    });
}

void FilterBar::focusField()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

QString FilterBar::text() const
{
    return m_field->text();
}

TYPE_LEVEL FilterBar::level() const
{
    return m_level;
}

void FilterBar::setLevel(TYPE_LEVEL level)
{
    m_level = level;
    m_levels->setCurrentIndex(m_levels->findData(level));
}

void FilterBar::setHits(int count, int current)
{
    m_hits->setVisible(!text().trimmed().isEmpty());
    m_hits->setText(current < 0
            ? tr("%n hit(s)", nullptr, count)
            : tr("%1 of %2").arg(QString::number(current + 1), QString::number(count)));
    placeHits();
}

// In the field, before its button, so that a narrow window has room for both.
void FilterBar::placeHits()
{
    const auto* button = m_field->findChild<QToolButton*>();
    const QRect taken = button != nullptr ? button->geometry() : QRect(m_field->width(), 0, 0, 0);
    const bool isRight = taken.center().x() > m_field->width() / 2;
    m_hits->resize(m_hits->sizeHint());
    m_hits->move(isRight ? taken.left() - m_hits->width() : taken.right() + 1,
        (m_field->height() - m_hits->height()) / 2);
    const int margin = m_hits->isHidden() ? 0 : m_hits->width() + 4;
    m_field->setTextMargins(isRight ? 0 : margin, 0, isRight ? margin : 0, 0);
}

void FilterBar::setHitsAboveLevel(int count)
{
    m_reveal->setVisible(count > 0);
    m_reveal->setText(tr("Show %n more", "features found beyond the visibility level", count));
}

bool FilterBar::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        placeHits();
    }
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(object, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Escape:
        if (m_field->text().isEmpty()) {
            return false;
        }
        m_field->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT hitWanted(!key->modifiers().testFlag(Qt::ShiftModifier));
        return true;
    case Qt::Key_Down:
        Q_EMIT finished();
        return true;
    default:
        return false;
    }
}

} // namespace featurebrowser
