// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QDialog>
#include <QTimer>
#include <QVBoxLayout>

namespace featurebrowser {

namespace {

class ReentrancyTest : public WidgetTest {
protected:
    ReentrancyTest() { show(); }
};

} // namespace

TEST_F(ReentrancyTest, AHandlerMayRefillTheTreeShowABoxOrEditTheRow)
{
    struct Case {
        std::function<void(const std::string&)> answer;
        Qt::Key key;
        Lines events;
        const char* value;
    };
    const Case refills { [this](const std::string&) {
                            setFloat("ExposureTime", 7);
                            browser->clearFeatureItems();
                            addInteger("", "Width");
                            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                        },
        Qt::Key_Tab, { "Int Width 32" }, "1" };
    const Case showsABox { [this](const std::string&) {
                              QDialog box;
                              QTimer::singleShot(0, &box, [this, &box] {
                                  setInteger("Width", 64);
                                  box.accept();
                              });
                              box.exec();
                          },
        Qt::Key_Return, { "Int Width 32" }, "64" };
    const Case edits { [this](const std::string& line) {
                          if (line == "Int Width 32") {
                              edit("Width", "48");
                          }
                          setInteger("Width", 48);
                      },
        Qt::Key_Return, { "Int Width 32", "Int Width 48" }, "48" };
    for (const Case& c : { showsABox, edits, refills }) {
        journal.answer = c.answer;
        edit("Width", "32", c.key);
        EXPECT_EQ(journal.take(), c.events);
        EXPECT_EQ(text("Width"), c.value);
    }
}

TEST_F(ReentrancyTest, AHandlerMayEmptyTheTreeBeforeTheNextRowIsEdited)
{
    journal.hearsSelection = true;
    for (const std::string last : { "Selection ExposureTime", "Int Width 32" }) {
        addInteger("", "Width");
        addInteger("", "ExposureTime");
        journal.answer = [this, last](const std::string& line) {
            if (line == last) {
                browser->clearFeatureItems();
            }
        };
        edit("Width", "32", Qt::Key_Tab);
        EXPECT_EQ(journal.take().back(), last);
        EXPECT_FALSE(isEditing());
    }
}

TEST_F(ReentrancyTest, TwoBrowsersDoNotKnowOfEachOther)
{
    EventJournal others;
    CameraFeatureBrowser other(nullptr);
    other.addIntFeature("", "Width", 3, 0, 9, 1, LEVEL_GURU, false, true, SELECTOR_NONE, "");
    other.showDialog(&others, 0, 0, {}, {});
    browser->setVisibility(LEVEL_BEGINNER);
    setInteger("Width", 32, 16, 64);
    browser->closeDialog();
    const auto* view = other.GetWidget()->findChild<QTreeView*>("featureTree");
    EXPECT_EQ(view->model()->index(0, 1).data(), QVariant("3"));
    EXPECT_FALSE(view->isRowHidden(0, {}));
    EXPECT_TRUE(other.isVisible() && others.lines.empty());
    EXPECT_EQ(journal.take().size(), 1U);
}

TEST_F(ReentrancyTest, DeletingTheBrowserWhileEmbeddedIsClean)
{
    auto dock = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(dock.get());
    layout->addWidget(browser->GetWidget());
    dock->show();
    browser->showDialog(&journal, 0, 0, {}, {});
    EXPECT_FALSE(window()->isWindow());
    EXPECT_TRUE(browser->isVisible());
    browser.reset();
    EXPECT_EQ(layout->count(), 0);

    // The other way round the window dies first and the browser becomes inert.
    browser = std::make_unique<CameraFeatureBrowser>(nullptr);
    layout->addWidget(browser->GetWidget());
    dock.reset();
    browser->addCategory("Camera", LEVEL_BEGINNER);
    setInteger("Width", 1, 0, 9, 1);
    browser->setVisibility(LEVEL_GURU);
    browser->showDialog();
    EXPECT_EQ(browser->GetWidget(), nullptr);
    EXPECT_FALSE(browser->isVisible());
}

} // namespace featurebrowser
