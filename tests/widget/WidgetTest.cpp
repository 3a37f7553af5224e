#include "WidgetTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>

namespace featurebrowser {

namespace {

QModelIndex find(const QAbstractItemModel& model, const QByteArray& name, const QModelIndex& parent)
{
    const int nameRole = model.roleNames().key("name");
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex index = model.index(i, 0, parent);
        if (index.data(nameRole).toByteArray() == name) {
            return index;
        }
        const QModelIndex below = find(model, name, index);
        if (below.isValid()) {
            return below;
        }
    }
    return {};
}

} // namespace

WidgetTest::WidgetTest()
    : browser(std::make_unique<CameraFeatureBrowser>(nullptr))
{
    // Ends the test program at the first thing that no view may rely on.
    new QAbstractItemModelTester(tree()->model(),
        QAbstractItemModelTester::FailureReportingMode::Fatal, browser->GetWidget());
    const auto none = SELECTOR_NONE;
    CameraFeatureBrowser& b = *browser;
    b.addCategory("Camera", LEVEL_BEGINNER);
    b.addIntFeature("Camera", "Width", 640, 16, 4096, 16, LEVEL_BEGINNER, false, true, none, "");
    b.addDoubleFeature("Camera", "ExposureTime", 5000, 1, 1e6, 0, LEVEL_BEGINNER,
        SLIDER_LOGARITHMIC, false, true, none, "");
    b.addStringFeature(
        "Camera", "DeviceUserID", "left", LEVEL_EXPERT, 8, false, true, ADDRESS_NONE, none, "");
    b.addEnumFeature("Camera", "PixelFormat", 0, { "Mono8", "Mono12", "RGB8" }, LEVEL_BEGINNER,
        false, false, true, none, "");
    b.addEnumFeature(
        "Camera", "ReverseX", 0, { "False", "True" }, LEVEL_BEGINNER, false, true, true, none, "");
    b.addCommandFeature(
        "Camera", "AcquisitionStart", "Start", LEVEL_BEGINNER, false, true, none, "");
    b.addStringFeature("Camera", "GevCurrentIPAddress", "10.0.0.1", LEVEL_GURU, 0, false, true,
        ADDRESS_IPV4, none, "");
    b.addStringFeature("Camera", "GevMACAddress", "00:00:00:00:00:01", LEVEL_GURU, 0, true, true,
        ADDRESS_MAC, none, "");
}

void WidgetTest::show()
{
    browser->showDialog(&journal, 600, 700, {}, {});
    ASSERT_TRUE(QTest::qWaitForWindowActive(browser->GetWidget()));
    tree()->expandAll();
    tree()->setFocus();
    QApplication::processEvents();
    journal.take();
}

void WidgetTest::addInteger(const std::string& category, const std::string& name, long value,
    TYPE_LEVEL level, const std::string& selectors) const
{
    browser->addIntFeature(category, name, value, 0, 9, 1, level, false, true,
        selectors.empty() ? SELECTOR_NONE : SELECTOR_SELECTED, selectors);
}

void WidgetTest::setText(const std::string& name, const char* value, bool readOnly) const
{
    browser->modifyFeature(name, value, CAM_TYPE_STRING, {}, readOnly, true);
}

void WidgetTest::setChoice(
    const std::string& name, const char* index, std::list<std::string> entries, bool readOnly) const
{
    browser->modifyFeature(name, index, CAM_TYPE_ENUMERATION, std::move(entries), readOnly, true);
}

void WidgetTest::setStates(std::map<std::string, FEATURE_STATE> states) const
{
    browser->modifyFeatureStates(states);
}

QTreeView* WidgetTest::tree() const
{
    return child<QTreeView>("featureTree");
}

QModelIndex WidgetTest::row(const std::string& name, int column) const
{
    const QModelIndex found = find(*tree()->model(), QByteArray::fromStdString(name), {});
    return found.isValid() ? found.siblingAtColumn(column) : found;
}

QVariant WidgetTest::role(const std::string& name, const char* roleName) const
{
    return row(name).data(tree()->model()->roleNames().key(roleName));
}

std::string WidgetTest::text(const std::string& name) const
{
    return role(name, "value").toString().toStdString();
}

std::string WidgetTest::message() const
{
    QApplication::processEvents();
    const auto* label = child<QLabel>("messageText");
    return label->isVisible() ? label->text().toStdString() : std::string();
}

bool WidgetTest::isShown(const std::string& name) const
{
    QApplication::processEvents();
    return tree()->visualRect(row(name)).isValid();
}

void WidgetTest::select(const std::string& name) const
{
    tree()->setCurrentIndex(row(name, 1));
}

void WidgetTest::press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

void WidgetTest::type(const char* text)
{
    // keyClicks knows no letters beyond ASCII.
    for (const QChar letter : QString::fromUtf8(text)) {
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, {});
    }
}

void WidgetTest::edit(const std::string& name, const char* text, Qt::Key key) const
{
    select(name);
    press(Qt::Key_F2);
    QTest::keySequence(QApplication::focusWidget(), QKeySequence::SelectAll);
    press(Qt::Key_Delete);
    type(text);
    press(key);
}

void WidgetTest::click(const std::string& name, int column, QPoint fromLeft) const
{
    const QRect area = tree()->visualRect(row(name, column));
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
        fromLeft.isNull() ? area.center() : QPoint(area.left(), area.center().y()) + fromLeft);
}

bool WidgetTest::isEditing() const
{
    return QApplication::focusWidget() != nullptr && QApplication::focusWidget() != tree()
        && tree()->viewport()->isAncestorOf(QApplication::focusWidget());
}

} // namespace featurebrowser
