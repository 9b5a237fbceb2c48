// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Popover/Popover.h"
#include "Quorvel/Panel/WatchlistPanel.h"
#include "Tests/Quorvel/Model/ModelFixture.h"

#include <QImage>
#include <QTest>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace test {

/// The panel in its popover, over a scripted model, shown and active.
class PanelFixture : public ModelFixture {
protected:
    /// Makes a model with these pairs on the watchlist and shows the panel. The list of tradeable
    /// pairs has been loaded where `tradeable` is not empty.
    void show(std::initializer_list<const char*> bases,
              std::initializer_list<const char*> tradeable = {});

    /// Closes the popover and opens it again.
    void reopen();

    /// A quote with these texts as the exchange sends them, in the store from now on.
    void apply(const char* base, const char* price, const char* change);

    /// Adds an alert rule to the pair.
    void addAlert(const char* base, bool isEnabled = true);

    /// Puts a series of closing prices into the cache.
    void storeCandles(const char* base, std::initializer_list<int> closes);

    /// The pairs on the watchlist, by base asset.
    std::vector<std::string> bases() const;

    quorvel::WatchlistRows& rows() const;
    quorvel::WatchlistRow& row(const char* base) const;
    QLineEdit& search() const;

    /// The texts of the shown search results, those that cannot be chosen in brackets.
    std::vector<std::string> results() const;

    /// The texts of the messages that are shown, from the top.
    std::vector<std::string> messages() const;

    /// Presses keys as a user does: they go to whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const char* text);

    /// A name for what has the keyboard: "search", "result BTC", "row BTC", "remove BTC", or the
    /// text of a button.
    std::string focus() const;

    /// The entries of the open menu, "-" for a line and disabled ones in brackets; closes it.
    std::vector<std::string> menu();

    /// What a widget looks like.
    static QImage picture(QWidget& widget) { return widget.grab().toImage(); }

private:
    /// The offscreen platform activates menus, and nothing in their place when they close.
    void reactivate();

protected:
    platform::Popover popover_{clock_};
    quorvel::WatchlistPanel* panel_ = nullptr;
};

} // namespace test
