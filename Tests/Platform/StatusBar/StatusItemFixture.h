// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusBar/StatusItem.h"
#include "Tests/Support/Bus/BusPeer.h"
#include "Tests/Support/Bus/FakeStatusNotifierWatcher.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// One status item and a panel on a bus of their own.
class StatusItemFixture : public testing::Test {
protected:
    using Urgency = platform::StatusItem::Urgency;

    static platform::AttributedTitle title(const QString& text);
    static platform::StatusItemImage image(Qt::GlobalColor color, bool isShown = true);

    /// Makes the item with a title, a tooltip, an image and a menu of two entries.
    void makeItem(platform::StatusItemOptions options = {});

    /// Starts a watcher and makes the item, and waits until the panel knows it.
    void showItem(platform::StatusItemOptions options = {});

    void waitForRegistrations(qsizetype count);

    QDBusMessage call(const char* path, const char* interface, const char* member,
                      const QVariantList& arguments = {});

    /// The value of a property of the item; invalid when it has none of that name.
    QVariant property(const char* name);

    /// The item's properties; empty when the call fails.
    QVariantMap properties();

    /// Every signal since the last time, as the name and the arguments in parentheses.
    std::vector<std::string> takeSignals();

    test::PrivateBus bus_;
    test::ManualClock clock_;
    QTemporaryDir icons_;
    QDBusConnection panelBus_ = bus_.connect();
    test::BusPeer panel_{panelBus_};
    std::unique_ptr<test::FakeStatusNotifierWatcher> watcher_;
    std::unique_ptr<platform::StatusItem> item_;
    QString service_;
};
