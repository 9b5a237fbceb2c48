// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "QuorvelKit/Services/SystemLaunchAtLoginService.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/ScriptedDelivering.h"
#include "Tests/Support/ScriptedProvider.h"

#include <QDBusConnection>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace test {

inline const quorvel::Symbol btc{"BTC", "USDT"};

inline const QByteArray twoPairs =
    R"([{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":false},)"
    R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":false}])";

/// A model over scripted market data and notifications, with files and a clock of its own.
class ModelFixture : public testing::Test {
protected:
    void make(const QByteArray& watchlist = twoPairs) {
        platform::FileManager::writeAtomically(
            watchlist, directory_.filePath(QStringLiteral("share/Quorvel/watchlist.json")));
        makeFromFiles();
    }

    void makeFromFiles() {
        auto provider = std::make_unique<ScriptedProvider>();
        auto delivering = std::make_unique<ScriptedDelivering>();
        provider_ = provider.get();
        delivering_ = delivering.get();
        model_ = std::make_unique<quorvel::AppModel>(quorvel::AppModel::Collaborators{
            std::move(provider), feed_, settings_, exchange_, presentation_, std::move(delivering),
            std::make_unique<quorvel::SystemLaunchAtLoginService>(platform::LoginItem(
                {QStringLiteral("quorvel"), QStringLiteral("Quorvel"), QStringLiteral("/bin/true")},
                directory_.filePath(QStringLiteral("autostart")))),
            workspace_, files_, clock_});
    }

    /// Starts the model, and loads the list of pairs unless told not to.
    void start(bool loadsPairs = true) {
        startTask_ = platform::startTask(model_->start());
        drainEvents();
        if (!loadsPairs)
            return;
        provider_->pairs.addResult(std::vector{btc});
        provider_->pairs.finish();
        drainEvents();
    }

    quorvel::Quote quote(std::int64_t price) const {
        return {btc, quorvel::Decimal(price), quorvel::Decimal(1), clock_.now()};
    }

    void push(std::int64_t price) {
        EXPECT_TRUE(provider_->push(quote(price)));
        drainEvents();
    }

    std::string text() const {
        return model_->statusBarSegments().empty()
                   ? ""
                   : model_->statusBarSegments()[0].text.toStdString();
    }

    QTemporaryDir directory_;
    platform::FileManager files_{directory_.filePath(QStringLiteral("share")),
                                 directory_.filePath(QStringLiteral("tmp"))};
    platform::UserDefaults defaults_{directory_.filePath(QStringLiteral("Quorvel.conf"))};
    quorvel::SettingsStore settings_{defaults_};
    quorvel::ExchangeChoice exchange_{defaults_, {}, {QUrl(QStringLiteral("https://mirror")), {}}};
    quorvel::PresentationChoice presentation_{defaults_};
    ManualClock clock_;
    quorvel::FeedStatus feed_{clock_};
    /// Without a login manager: tests post sleep and wake themselves.
    platform::Workspace workspace_{{}, QDBusConnection(QString()), clock_};
    ScriptedProvider* provider_ = nullptr;
    ScriptedDelivering* delivering_ = nullptr;
    std::unique_ptr<quorvel::AppModel> model_;
    platform::TaskHandle startTask_;
};

} // namespace test
