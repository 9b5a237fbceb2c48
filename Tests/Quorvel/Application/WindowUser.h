// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QPoint>
#include <QString>

#include <string>
#include <vector>

class QWidget;

namespace test {

/// Somebody at one window of the program: finds things by the names that assistive technology reads
/// out, clicks and presses keys, and sees what has been painted. Throws std::out_of_range where
/// there is nothing of the name asked for.
class WindowUser {
public:
    explicit WindowUser(QWidget& window) : window_(window) {}

    QWidget& window() const { return window_; }

    /// The control that can be seen, by its name, label or text, or by how that begins; null where
    /// there is none.
    QWidget* find(const QString& name) const;
    QWidget& control(const QString& name) const;

    /// What is told where the pointer rests on a widget; empty where nothing is.
    static QString toolTip(QWidget& widget);

    /// Clicks into the middle of the control, or on another place in it.
    void press(const QString& name);
    void click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton);

    /// Uses a button as assistive technology does, which leaves the windows as they are.
    void activate(const QString& name);
    void click(QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);

    void pointTo(QWidget& widget, QPoint place);

    /// Keeps the button down there until it is released.
    void hold(QWidget& widget, QPoint place);
    void release(QWidget& widget, QPoint place);
    void drag(QWidget& widget, QPoint from, QPoint to);

    /// Chooses an item of a combo box by the keyboard.
    void choose(const QString& name, const QString& item);

    /// Chooses an entry of the menu that a right click opens.
    void chooseFromMenu(QWidget& widget, const QString& entry);

    /// Keys go to what has the keyboard.
    void type(const QString& text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    bool isChecked(const QString& name) const;

    /// The name of what has the keyboard.
    std::string focus() const;

    /// The texts that can be seen outside of controls.
    std::vector<std::string> texts() const;

    /// What the screen shows of a widget.
    QImage picture(const QWidget& widget) const;

private:
    QWidget& window_;
};

} // namespace test
