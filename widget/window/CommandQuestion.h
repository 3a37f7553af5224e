// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "window/RowCallout.h"

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace featurebrowser {

/// Asks at its row before a command throws work away. It blocks nothing: the question goes when the
/// user answers, goes to another row, or the command cannot be run any more.
class CommandQuestion : public RowCallout {
    Q_OBJECT

public:
    explicit CommandQuestion(FeatureTreeView* tree);

    /// The keys go to the question until it is answered.
    void ask(const FeatureRow& command);
    /// Takes the question back.
    void cancel();

Q_SIGNALS:
    void confirmed(const std::string& command);

protected:
    bool isWanted(const FeatureRow& row) const override;
    void showContent(const FeatureRow& row) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void confirm();

    QLabel* m_text;
    QPushButton* m_run;
    QPushButton* m_cancel;
};

} // namespace featurebrowser
