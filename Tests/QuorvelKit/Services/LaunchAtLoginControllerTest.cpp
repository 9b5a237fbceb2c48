// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Services/LaunchAtLoginController.h"

#include "Platform/Foundation/PlatformError.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using quorvel::LaunchAtLoginController;

namespace {

/// What the controller works on, and how often it was changed.
struct System {
    bool isEnabled = false;
    std::optional<QString> failure; ///< what the next changes fail with
    int changes = 0;
};

class FakeService final : public quorvel::LaunchAtLoginManaging {
public:
    explicit FakeService(System& system) : system_(system) {}

    bool isEnabled() const override { return system_.isEnabled; }

    void setEnabled(bool enabled) override {
        ++system_.changes;
        if (system_.failure)
            throw platform::PlatformError(*system_.failure);
        system_.isEnabled = enabled;
    }

private:
    System& system_;
};

class LaunchAtLogin : public testing::Test {
protected:
    System system_;
    LaunchAtLoginController controller_{std::make_unique<FakeService>(system_)};
    QSignalSpy enabledSpy_{&controller_, &LaunchAtLoginController::isEnabledChanged};
    QSignalSpy messageSpy_{&controller_, &LaunchAtLoginController::lastErrorMessageChanged};
};

TEST_F(LaunchAtLogin, TellsOfAFailureUntilAChangeSucceeds) {
    system_.failure = QStringLiteral("No space left on device");
    controller_.setEnabled(true);
    EXPECT_FALSE(controller_.isEnabled());
    EXPECT_EQ(controller_.lastErrorMessage(),
              QStringLiteral("Couldn't change launch at login: No space left on device"));
    controller_.setEnabled(false);
    EXPECT_EQ(system_.changes, 1) << "it is off";
    EXPECT_TRUE(controller_.lastErrorMessage());
    system_.failure = QStringLiteral("Read-only file system");
    controller_.setEnabled(true);
    EXPECT_FALSE(controller_.isEnabled());
    EXPECT_EQ(controller_.lastErrorMessage(),
              QStringLiteral("Couldn't change launch at login: Read-only file system"));
    EXPECT_EQ(system_.changes, 2);
    EXPECT_EQ(messageSpy_.count(), 2);
    EXPECT_EQ(enabledSpy_.count(), 0);
    system_.failure.reset();
    controller_.setEnabled(true);
    EXPECT_TRUE(controller_.isEnabled());
    EXPECT_TRUE(system_.isEnabled);
    EXPECT_EQ(controller_.lastErrorMessage(), std::nullopt);
    EXPECT_EQ(enabledSpy_.count(), 1);
    EXPECT_EQ(messageSpy_.count(), 3);
}

TEST_F(LaunchAtLogin, ShowsAfterAFailureHowItReallyIs) {
    system_.isEnabled = true; // changed elsewhere
    EXPECT_FALSE(controller_.isEnabled()) << "not noticed";
    system_.failure = QStringLiteral("x");
    controller_.setEnabled(true);
    EXPECT_TRUE(controller_.isEnabled());
    EXPECT_EQ(enabledSpy_.count(), 1);
}

} // namespace
