#include "Browser.h"

#include "featurebrowser/ZQCameraRepository.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

using namespace featurebrowser;

Browser::Browser(Ear ear)
{
    std::string error;
    m_camera = zqcameralib::ZQCamera::OpenSimulated(error);
    if (!m_camera) {
        throw std::runtime_error(error);
    }
    m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
    m_device->GetRepository()->Load();
    m_browser = std::make_unique<ZQFeatureBrowser>(
        m_device.get(), ear == Ear::present ? &receiver : nullptr);
    m_browser->LoadFeatureBrowser();
    m_browser->ShowStandalone(900, 900, {}, LEVEL_GURU);
    m_tree = m_browser->GetWidget()->findChild<QTreeView*>(QStringLiteral("featureTree"));
    m_tree->expandAll();
    if (!QTest::qWaitForWindowActive(m_browser->GetWidget()->window())) {
        throw std::runtime_error("the window never became active");
    }
}

Browser::~Browser() = default;

namespace {

QString textOf(const QWidget& widget)
{
    for (const char* property : { "text", "plainText" }) {
        const QVariant text = widget.property(property);
        if (text.isValid()) {
            return text.toString();
        }
    }
    return {};
}

QModelIndex find(
    const QAbstractItemModel& model, int role, const QByteArray& name, const QModelIndex& parent)
{
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex row = model.index(i, 0, parent);
        if (row.data(role).toByteArray() == name) {
            return row;
        }
        const QModelIndex inside = find(model, role, name, row);
        if (inside.isValid()) {
            return inside;
        }
    }
    return {};
}

} // namespace

QModelIndex Browser::row(const char* name) const
{
    const QAbstractItemModel& model = *m_tree->model();
    return find(model, model.roleNames().key("name"), name, {});
}

QVariant Browser::role(const char* name, const char* role) const
{
    return row(name).data(m_tree->model()->roleNames().key(role));
}

std::string Browser::shown(const char* name) const
{
    return role(name, "value").toString().toStdString();
}

bool Browser::showsText(const char* text) const
{
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [text](const QWidget* widget) {
        return widget->isVisible() && textOf(*widget).contains(QString::fromUtf8(text));
    });
}

QPoint Browser::place(const char* name) const
{
    const QModelIndex index = row(name).siblingAtColumn(1);
    m_tree->scrollTo(index, QAbstractItemView::PositionAtCenter);
    const QRect cell = m_tree->visualRect(index);
    return { cell.left() + cell.height() / 2, cell.center().y() }; // on the button or the box
}

void Browser::click(const char* name)
{
    const QPoint point = place(name);
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, point);
}

void Browser::select(const char* name)
{
    m_tree->setFocus();
    m_tree->setCurrentIndex(row(name).siblingAtColumn(1));
    m_tree->scrollTo(m_tree->currentIndex());
}

void Browser::open(const char* name)
{
    select(name);
    press(Qt::Key_F2);
}

QWidget* Browser::editor() const
{
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* top = popup ? popup : QApplication::focusWidget();
    QWidget* inner = top && top->focusWidget() ? top->focusWidget() : top;
    return inner && inner != m_tree ? inner : nullptr;
}

void Browser::type(const char* name, const char* text)
{
    open(name);
    QWidget* field = editor();
    ASSERT_TRUE(field) << "no editor for " << name;
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QString::fromUtf8(text));
    QTest::keyClick(field, Qt::Key_Return);
    QApplication::processEvents();
}

void Browser::choose(const char* name, const char* entry)
{
    open(name);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget(); }))
        << "no list for " << name;
    QTest::keyClicks(editor(), QString::fromUtf8(entry));
    QTest::keyClick(editor(), Qt::Key_Return);
    QApplication::processEvents();
}

void Browser::press(Qt::Key key)
{
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : m_tree, key);
    QApplication::processEvents();
}

long Browser::integer(const char* name)
{
    long value = -1;
    EXPECT_EQ(m_device->GetIntegerValue(name, &value), STATUS_OK) << name;
    return value;
}

double Browser::number(const char* name)
{
    double value = -1;
    EXPECT_EQ(m_device->GetFloatValue(name, &value), STATUS_OK) << name;
    return value;
}
