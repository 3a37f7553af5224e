// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "events/ValueWriter.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace featurebrowser {

/// The line below the tree that says what the last write has done: "Width = 512: 4 features
/// followed". Its button goes through them.
class ChangeStrip : public QWidget {
    Q_OBJECT

public:
    /// `model` is not owned and has to outlive the strip.
    ChangeStrip(FeatureModel* model, QWidget* parent);

    void showResult(const WriteResult& result);
    /// Asks for the next of the rows that followed the last write, over and over.
    void goToNext();

Q_SIGNALS:
    void rowWanted(const featurebrowser::FeatureRow& row);

private:
    FeatureModel* m_model;
    QLabel* m_text;
    QWidget* m_next;
    std::vector<std::string> m_rows;
    std::size_t m_position = 0;
};

} // namespace featurebrowser
