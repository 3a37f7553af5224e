#include "window/MessageCallout.h"

#include "look/Glyphs.h"
#include "look/ThemeColors.h"
#include "tree/FeatureTreeView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace featurebrowser {

MessageCallout::MessageCallout(FeatureTreeView* tree)
    : QFrame(tree->viewport())
    , m_tree(tree)
    , m_text(new QLabel(this))
    , m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("messageCallout"));
    m_text->setObjectName(QStringLiteral("messageText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setWordWrap(true);
    m_close->setObjectName(QStringLiteral("dismissButton"));
    m_close->setAutoRaise(true);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setToolTip(tr("Dismiss this message"));
    m_close->setAccessibleName(tr("Dismiss this message"));
    auto* layout = new QHBoxLayout(this);
    const int sign = fontMetrics().height();
    layout->setContentsMargins(sign + 14, 6, 6, 6);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    connect(m_close, &QToolButton::clicked, this, [this] { showRow(nullptr); });
    connect(tree, &FeatureTreeView::moved, this, &MessageCallout::follow);
    hide();
}

void MessageCallout::showRow(const FeatureRow* row)
{
    const bool hasMessage = row != nullptr && row->hasMessage();
    m_rowName = hasMessage ? row->name : std::string();
    follow();
}

void MessageCallout::follow()
{
    if (m_rowName.empty() && isHidden()) {
        return;
    }
    const FeatureRow* row = m_rowName.empty() ? nullptr : m_tree->features().find(m_rowName);
    if (row == nullptr || !row->hasMessage()) {
        m_rowName.clear();
        hide();
        return;
    }
    const QRect area = m_tree->rowRect(*row);
    if (area.isEmpty() || row->hidden) {
        hide();
        return;
    }
    if (m_text->text() != row->extras().message) {
        m_text->setText(row->extras().message);
        setAccessibleName(row->extras().message);
    }
    const int width
        = std::min(m_tree->viewport()->width() - 16, fontMetrics().averageCharWidth() * 90);
    const int height = std::max(layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : 0,
        layout()->minimumSize().height());
    const int room = m_tree->viewport()->height();
    const int top = area.bottom() + 2 + height <= room || area.top() < height
        ? area.bottom() + 2
        : area.top() - height - 1;
    const int left
        = layoutDirection() == Qt::RightToLeft ? 8 : m_tree->viewport()->width() - width - 8;
    setGeometry(left, top, width, height);
    show();
    raise();
}

void MessageCallout::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor alarm = colors::alarm(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(alarm, 1));
    painter.setBrush(colors::alarmBackground(palette()));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    const int side = fontMetrics().height();
    const QRect sign(8, 7, side, side);
    drawGlyph(painter, Glyph::Warning, QStyle::visualRect(layoutDirection(), rect(), sign), alarm);
}

} // namespace featurebrowser
