// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/WindowUser.h"

#include "Tests/Support/ManualClock.h"
#include "Tests/Support/WaitUntil.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QToolTip>

#include <stdexcept>

namespace test {

namespace {

QString nameOf(QWidget& widget) {
    for (const auto* const label : widget.window()->findChildren<QLabel*>()) {
        if (label->buddy() == &widget)
            return label->text();
    }
    if (!widget.accessibleName().isEmpty())
        return widget.accessibleName();
    if (const auto* const button = qobject_cast<QAbstractButton*>(&widget))
        return button->text();
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

/// A click as a menu takes it; the window that had the keyboard has it again afterwards.
void trigger(QMenu& menu, const QString& entry) {
    for (QAction* const action : menu.actions()) {
        if (action->text() != entry || !action->isEnabled())
            continue;
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
        return;
    }
    menu.close();
    throw std::out_of_range("the menu has no enabled " + entry.toStdString());
}

} // namespace

QWidget* WindowUser::find(const QString& name) const {
    for (auto* const widget : window_.findChildren<QWidget*>()) {
        const bool isText = qobject_cast<QLabel*>(widget) != nullptr;
        if (!isText && widget->isVisible() && nameOf(*widget).startsWith(name))
            return widget;
    }
    return nullptr;
}

QWidget& WindowUser::control(const QString& name) const {
    if (auto* const found = find(name))
        return *found;
    throw std::out_of_range("nothing seen is called " + name.toStdString());
}

void WindowUser::press(const QString& name) {
    click(control(name));
}

void WindowUser::activate(const QString& name) {
    dynamic_cast<QAbstractButton&>(control(name)).click();
    drainEvents();
}

void WindowUser::click(QWidget& widget, Qt::MouseButton button) {
    click(widget, widget.rect().center(), button);
}

void WindowUser::click(QWidget& widget, QPoint place, Qt::MouseButton button) {
    // What has just come may still be on its way into place.
    const bool isSeen = waitUntil([&] {
        for (auto* const area : window_.findChildren<QScrollArea*>()) {
            if (area->isAncestorOf(&widget))
                area->ensureWidgetVisible(&widget);
        }
        drainEvents();
        return widget.visibleRegion().contains(place);
    });
    if (!isSeen)
        throw std::out_of_range(nameOf(widget).toStdString() + " cannot be clicked");
    QTest::mouseClick(window_.windowHandle(), button, {}, widget.mapTo(&window_, place));
    drainEvents();
}

void WindowUser::pointTo(QWidget& widget, QPoint place) {
    QTest::mouseMove(window_.windowHandle(), widget.mapTo(&window_, place));
    drainEvents();
}

void WindowUser::hold(QWidget& widget, QPoint place) {
    const QPoint there = widget.mapTo(&window_, place);
    QTest::mouseMove(window_.windowHandle(), there);
    QTest::mousePress(window_.windowHandle(), Qt::LeftButton, {}, there);
    drainEvents();
}

void WindowUser::release(QWidget& widget, QPoint place) {
    QTest::mouseRelease(window_.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window_, place));
    drainEvents();
}

void WindowUser::drag(QWidget& widget, QPoint from, QPoint to) {
    // A window that follows the pointer moves under it.
    const QPoint before = widget.mapToGlobal(QPoint());
    hold(widget, from);
    for (int step = 1; step <= 4; ++step) {
        const QPoint pointer = before + from + (to - from) * step / 4;
        QTest::mouseMove(window_.windowHandle(), window_.mapFromGlobal(pointer));
        drainEvents();
    }
    release(widget, widget.mapFromGlobal(before + to));
}

void WindowUser::choose(const QString& name, const QString& item) {
    auto* const box = qobject_cast<QComboBox*>(&control(name));
    if (!box)
        throw std::out_of_range(name.toStdString() + " offers no choice");
    box->setFocus(Qt::TabFocusReason);
    const int target = box->findText(item);
    if (target < 0)
        throw std::out_of_range(name.toStdString() + " does not offer " + item.toStdString());
    // Through the items between, as the keyboard goes.
    while (box->currentIndex() != target) {
        const int before = box->currentIndex();
        key(before < target ? Qt::Key_Down : Qt::Key_Up);
        if (box->currentIndex() == before)
            throw std::out_of_range(name.toStdString() + " does not heed the arrow keys");
    }
}

void WindowUser::chooseFromMenu(QWidget& widget, const QString& entry) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, widget.rect().center(),
                            widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &event);
    drainEvents();
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        throw std::out_of_range("no menu is open");
    trigger(*menu, entry);
    drainEvents();
}

void WindowUser::type(const QString& text) {
    for (const QChar c : text)
        QTest::keyClick(window_.windowHandle(), c.toLatin1());
    drainEvents();
}

void WindowUser::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_.windowHandle(), key, modifiers);
    drainEvents();
}

bool WindowUser::isChecked(const QString& name) const {
    return dynamic_cast<QAbstractButton&>(control(name)).isChecked();
}

std::string WindowUser::focus() const {
    QWidget* const focus = window_.focusWidget();
    return focus ? nameOf(*focus).toStdString() : "";
}

std::vector<std::string> WindowUser::texts() const {
    std::vector<std::string> texts;
    for (const auto* const label : window_.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty())
            texts.push_back(label->text().toStdString());
    }
    return texts;
}

QString WindowUser::toolTip(QWidget& widget) {
    const QPoint middle = widget.rect().center();
    QHelpEvent help(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
    QApplication::sendEvent(&widget, &help);
    const QString text = QToolTip::text();
    QToolTip::hideText();
    return text;
}

QImage WindowUser::picture(const QWidget& widget) const {
    drainEvents();
    const QRect area(widget.mapTo(&window_, QPoint()), widget.size());
    return window_.screen()
        ->grabWindow(window_.winId(), area.x(), area.y(), area.width(), area.height())
        .toImage();
}

} // namespace test
