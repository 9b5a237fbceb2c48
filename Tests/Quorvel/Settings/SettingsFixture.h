// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Settings/SettingsWindow.h"
#include "Tests/Quorvel/Model/ModelFixture.h"

#include <QTest>

#include <string>
#include <vector>

class QAbstractButton;
class QComboBox;
class QLineEdit;

namespace test {

/// The settings window over a scripted model, shown and active.
class SettingsFixture : public ModelFixture {
protected:
    /// Makes a model with these pairs on the watchlist and shows the window.
    void show(const QByteArray& watchlist = twoPairs);

    /// The control with this accessible name that can be seen; null where there is none.
    template <typename Control>
    Control* find(const char* name) const {
        for (auto* const control : window_->findChildren<Control*>()) {
            if (control->accessibleName() == QString::fromUtf8(name) && control->isVisible())
                return control;
        }
        return nullptr;
    }

    /// The same; throws where there is none.
    template <typename Control>
    Control& get(const char* name) const {
        if (auto* const control = find<Control>(name))
            return *control;
        throw std::out_of_range(std::string("nothing seen is called ") + name);
    }

    /// The button with this text that can be seen; null where there is none.
    QAbstractButton* button(const char* text) const;

    /// Where a new alert's threshold is typed.
    QLineEdit& threshold() const;

    /// The texts that can be seen outside of controls, from the top.
    std::vector<std::string> texts() const;

    /// Scrolls the widget into view and clicks into the middle of it, or of `area`.
    void click(QWidget& widget, QRect area = {});

    /// Opens the combo box with a click and chooses the item by keys.
    void choose(const char* comboBox, const char* item);

    /// The items of a combo box.
    std::vector<std::string> items(const char* comboBox) const;

    /// The item of a combo box that is chosen.
    std::string chosen(const char* comboBox) const;

    /// Presses a key as a user does: it goes to whatever has the keyboard.
    void press(Qt::Key key);

    /// A rule of the model's, made by hand.
    const quorvel::AlertRule& addRule(const char* base, quorvel::AlertConditionKind kind,
                                      const char* threshold, bool repeats);

    /// What the preferences file holds under a key, as text.
    std::string stored(const char* key) const;

    std::unique_ptr<quorvel::SettingsWindow> window_;
};

} // namespace test
