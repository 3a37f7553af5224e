// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "images/ChunkPane.h"

#include "images/ImagePane.h"

#include "featurebrowser/ZQImageView.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace zqviewer {

using featurebrowser::ZQImageView;

ChunkPane::ChunkPane(ImagePane& images, QWidget* parent)
    : QWidget(parent)
    , m_images(images)
    , m_none(new QLabel(tr("Nothing came along with this image. With ChunkModeActive the camera "
                           "sends what ChunkEnable asks for."),
          this))
    , m_table(new QTableWidget(0, 2, this))
{
    m_none->setWordWrap(true);
    m_none->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    m_table->setObjectName(QStringLiteral("chunks"));
    m_table->setAccessibleName(tr("Chunk data"));
    m_table->setHorizontalHeaderLabels({ tr("Feature"), tr("Value") });
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    m_table->verticalHeader()->hide();
    m_table->setAlternatingRowColors(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_none);
    layout->addWidget(m_table, 1);
    m_timer.setSingleShot(true);
    m_timer.setInterval(100);
    connect(&m_timer, &QTimer::timeout, this, &ChunkPane::refresh);
    connect(&m_images.view(), &ZQImageView::imageChanged, this, [this] {
        if (isVisible() && !m_timer.isActive()) {
            m_timer.start();
        }
    });
}

void ChunkPane::showEvent(QShowEvent*)
{
    refresh();
}

void ChunkPane::refresh()
{
    const auto values = m_images.shownChunks();
    m_none->setHidden(!values.empty());
    m_table->setHidden(values.empty());
    m_table->setRowCount(static_cast<int>(values.size()));
    const auto show = [this](int row, int column, const std::string& text) {
        QTableWidgetItem* item = m_table->item(row, column);
        if (item == nullptr) {
            item = new QTableWidgetItem;
            m_table->setItem(row, column, item);
        }
        item->setText(QString::fromStdString(text));
    };
    int row = 0;
    for (const featurebrowser::ZQChunkValue& value : values) {
        show(row, 0, value.name);
        show(row, 1, value.unit.empty() ? value.text : value.text + ' ' + value.unit);
        ++row;
    }
}

} // namespace zqviewer
