#include "WidgetTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>

#include <sstream>

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

template <typename... T> std::string line(const T&... parts)
{
    std::ostringstream stream;
    stream.precision(17);
    ((stream << parts << ' '), ...);
    std::string text = stream.str();
    text.pop_back();
    return text;
}

} // namespace

void Journal::add(const std::string& text)
{
    lines.push_back(text);
    if (answer) {
        answer(text);
    }
}

void Journal::FeatureIntModified(std::string name, long value)
{
    add(line("Int", name, value));
}
void Journal::FeatureEnumModified(std::string name, std::string entry, int index)
{
    add(line("Enum", name, entry, index));
}
void Journal::FeatureBoolModified(std::string name, int value)
{
    add(line("Bool", name, value));
}
void Journal::FeatureStringModified(std::string name, std::string value)
{
    add(line("String", name, value));
}
void Journal::FeatureIPModified(std::string name, const std::string& text)
{
    add(line("IP", name, text));
}
void Journal::FeatureDoubleModified(std::string name, double value)
{
    add(line("Double", name, value));
}
void Journal::FeatureExecCommand(std::string name)
{
    add(line("Command", name));
}
void Journal::ItemSelectionChanged(std::string name)
{
    if (hearsSelection) {
        add(line("Selection", name));
    }
}
void Journal::ItemColumnResized(int column, int width)
{
    add(line("Column", column, width));
}
void Journal::FeatureCloseDialog(int width, int height, TYPE_LEVEL level)
{
    add(line("Close", width, height, level));
}
void Journal::SendError(int code, std::string text)
{
    add(line("Error", code, text));
}
void Journal::FeatureLevelChanged(TYPE_LEVEL level)
{
    add(line("Level", level));
}
void Journal::AllConfigChanged()
{
    add("AllConfigChanged");
}

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
