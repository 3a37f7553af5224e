// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "WidgetTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include <set>

namespace featurebrowser {

/// The browser with a selector and what it selects, in a window with its menus and strips.
class ComfortTest : public WidgetTest {
protected:
    ComfortTest()
    {
        browser->addSubCategory("Camera", "Analog", LEVEL_BEGINNER);
        addSelector("Analog", "GainSelector", { "Red", "Green" }, 1);
        browser->addDoubleFeature("Analog", "Gain", 2.5, 0, 48, 0, LEVEL_BEGINNER, SLIDER_LINEAR,
            false, true, SELECTOR_SELECTED, "GainSelector");
        show();
    }
    /// The menu's words; chooses `words` in it.
    QString choose(const std::string& name, const QString& words = {}) const
    {
        const QPoint at = tree()->visualRect(row(name)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree()->viewport()->mapToGlobal(at));
        QApplication::sendEvent(tree()->viewport(), &event);
        auto* menu = child<QMenu>("rowMenu");
        EXPECT_TRUE(menu->isVisible());
        QStringList all;
        std::set<QString> mnemonics;
        const auto actions = menu->actions();
        for (QAction* action : actions) {
            const QString text = action->isSeparator() ? "-" : action->text().remove('&');
            all.append(text);
            const QString mnemonic = QKeySequence::mnemonic(action->text()).toString();
            EXPECT_TRUE(action->isSeparator() || mnemonics.insert(mnemonic).second)
                << action->text().toStdString();
            if (text == words) {
                action->trigger();
            }
        }
        menu->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return all.join(", ").replace("-, -", "-"); // Qt shows them as one
    }
    void pressButton(const char* name) const
    {
        QTest::mouseClick(child<QWidget>(name), Qt::LeftButton);
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

const QString showEntries = QString::fromUtf8("Show all entries of this selector\u2026");

} // namespace featurebrowser
