// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/FutureAwaiter.h"
#include "Platform/Foundation/PlatformError.h"
#include "QuorvelKit/Alerts/NotificationDelivering.h"

#include <QPromise>

#include <optional>
#include <string>
#include <vector>

namespace test {

/// A notification service as a test wants it: notes what it is asked for, and answers at once
/// unless told to hold back.
class ScriptedDelivering final : public quorvel::NotificationDelivering {
public:
    /// "ask", and for each delivery its title, a bar and its body; noted when asked for.
    std::vector<std::string> calls;
    bool grants = true;
    /// Why deliveries fail; none do where absent.
    std::optional<QString> failure;

    /// From now on nothing is answered until `release`.
    void hold() {
        gate_.emplace();
        gate_->start();
    }

    void release() {
        gate_->finish();
        gate_.reset();
    }

    platform::Task<bool> requestAuthorization() override {
        calls.emplace_back("ask");
        if (gate_)
            co_await gate_->future();
        co_return grants;
    }

    platform::Task<> deliver(QString title, QString body) override {
        calls.push_back(title.toStdString() + " | " + body.toStdString());
        if (gate_)
            co_await gate_->future();
        if (failure)
            throw platform::PlatformError(*failure);
    }

private:
    std::optional<QPromise<void>> gate_;
};

} // namespace test
