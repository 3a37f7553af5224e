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

TEST_F(ReentrancyTest, AHandlerMayEmptyAndRefillTheTree)
{
    journal.answer = [this](const std::string&) {
        browser->clearFeatureItems();
        addInteger("", "Width");
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    edit("Width", "32", Qt::Key_Tab);
    EXPECT_EQ(journal.take(), Lines { "Int Width 32" });
    EXPECT_EQ(text("Width"), "1");
}

TEST_F(ReentrancyTest, AMessageBoxInAHandlerCausesNoSecondEvent)
{
    journal.answer = [this](const std::string&) {
        QDialog box;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &box, [this, &box] {
            setInteger("Width", 64);
            box.accept();
        });
        timer.start(50);
        box.exec();
    };
    edit("Width", "64");
    EXPECT_EQ(journal.take(), Lines { "Int Width 64" });
    EXPECT_EQ(text("Width"), "64");
}

TEST_F(ReentrancyTest, ARowCanBeEditedWhileItsEventIsHandled)
{
    journal.answer = [this](const std::string& line) {
        if (line == "Int Width 32") {
            edit("Width", "48");
        }
        setInteger("Width", 48);
    };
    edit("Width", "32");
    EXPECT_EQ(journal.take(), (Lines { "Int Width 32", "Int Width 48" }));
    EXPECT_EQ(text("Width"), "48");
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
