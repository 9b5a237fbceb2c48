// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/EndToEnd/QuorvelProcess.h"
#include "Tests/Support/BusPeer.h"
#include "Tests/Support/FakeStatusNotifierWatcher.h"
#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/SimulatorProcess.h"

#include <QElapsedTimer>
#include <QVariant>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace test {

/// The whole program between an exchange and a panel: a simulator, a session bus with a watcher,
/// and Quorvel with BTC and ETH pinned and SOL not. Everything is a process of its own but the
/// watcher.
class LiveSession : public testing::Test {
protected:
    LiveSession();

    /// Starts the program; its prices stand at BTC 65432.1 +1.234 % and ETH 0.00001234 -0.5 %.
    void start();

    void push(const char* symbol, const char* price, const char* change) const;

    /// A property of the status item; invalid where it has none of that name.
    QVariant property(const QString& name);

    /// The label; absent while the item has none.
    std::optional<std::string> label();

    /// The title of the tooltip.
    std::string toolTip();

    /// Whether the label becomes `text`, within a second and a half unless told otherwise.
    bool showsLabel(const std::string& text,
                    std::chrono::milliseconds limit = std::chrono::milliseconds(1500));

    /// Whether the label becomes anything with a price in it, within ten seconds.
    bool showsPrices();

    bool isRegistered() const;
    qsizetype connectionCount() const { return simulator_.connectionCount(); }

    /// How many requests whose target begins with `path` the exchange has got.
    qsizetype requestCount(QStringView path) const;

    /// The code of the last close frame that the exchange got from the program; absent without one.
    std::optional<int> closeCode() const { return simulator_.closeCode(); }

    SimulatorProcess simulator_;
    PrivateBus bus_;
    QDBusConnection panelBus_ = bus_.connect();
    BusPeer panel_{panelBus_};
    std::unique_ptr<FakeStatusNotifierWatcher> watcher_ =
        std::make_unique<FakeStatusNotifierWatcher>(panelBus_);
    QuorvelProcess quorvel_;
};

} // namespace test
