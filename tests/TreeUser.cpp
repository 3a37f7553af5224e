// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TreeUser.h"

#include <QApplication>
#include <QLabel>

#include <stdexcept>

QModelIndex TreeUser::row(const std::string& name, int column) const
{
    const QAbstractItemModel& model = *tree()->model();
    const auto found = model.match(model.index(0, 0), model.roleNames().key("name"),
        QByteArray::fromStdString(name), 1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first().siblingAtColumn(column);
}

QVariant TreeUser::role(const std::string& name, const char* roleName) const
{
    return row(name).data(tree()->model()->roleNames().key(roleName));
}

std::string TreeUser::text(const std::string& name) const
{
    return role(name, "value").toString().toStdString();
}

std::string TreeUser::message() const
{
    QApplication::processEvents();
    const auto* label = child<QLabel>("messageText");
    return label->isVisible() ? label->text().toStdString() : std::string();
}

bool TreeUser::waitForActive(const QWidget* window)
{
    return QTest::qWaitFor([=] { return QApplication::activeWindow() == window; });
}

void TreeUser::select(const std::string& name) const
{
    if (QApplication::activeWindow() == nullptr) { // a dialog that went gives its focus to nobody
        tree()->window()->activateWindow();
        waitForActive(tree()->window());
    }
    tree()->setFocus();
    tree()->setCurrentIndex(row(name, 1));
}

void TreeUser::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (QApplication::focusWidget() == nullptr) {
        throw std::runtime_error("no window has the focus");
    }
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void TreeUser::type(const char* text)
{
    // keyClicks knows no letters beyond ASCII.
    for (const QChar letter : QString::fromUtf8(text)) {
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, {});
    }
}

void TreeUser::open(const std::string& name) const
{
    select(name);
    press(Qt::Key_F2);
}

void TreeUser::run(const std::string& command) const
{
    open(command);
    if (child<QWidget>("commandQuestion")->isVisible()) {
        press(Qt::Key_Left);
        press(Qt::Key_Return);
    }
}

void TreeUser::edit(const std::string& name, const char* text, Qt::Key key) const
{
    open(name);
    QTest::keySequence(QApplication::focusWidget(), QKeySequence::SelectAll);
    press(Qt::Key_Delete);
    type(text);
    press(key);
}

void TreeUser::click(const std::string& name, int column, QPoint fromLeft) const
{
    tree()->scrollTo(row(name, column));
    const QRect area = tree()->visualRect(row(name, column));
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
        fromLeft.isNull() ? area.center() : QPoint(area.left(), area.center().y()) + fromLeft);
}

QWidget* TreeUser::popup()
{
    const bool isOpen
        = QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, 1000);
    return isOpen ? QApplication::activePopupWidget() : nullptr;
}

void TreeUser::choose(const std::string& name, const char* entry) const
{
    open(name);
    if (popup() == nullptr) {
        throw std::runtime_error("no list for " + name);
    }
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(entry));
    press(Qt::Key_Return);
    QApplication::processEvents();
}

bool TreeUser::isEditing() const
{
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus != tree() && tree()->viewport()->isAncestorOf(focus);
}
