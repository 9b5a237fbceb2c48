// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertStore.h"

#include "Tests/QuorvelKit/Stores/ScriptedPersistence.h"
#include "Tests/Support/MarketSamples.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::Date;
using platform::TimeInterval;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Date noon{TimeInterval(785000000)};

class Persistence final : public ScriptedPersistence<AlertPersistence, AlertRule> {
public:
    /// @param kept counts the saves before which what was stored had been put aside
    Persistence(StoredState<AlertRule>& state, int& kept)
        : ScriptedPersistence(state), kept_(kept) {}

    void save(const std::vector<AlertRule>& rules) override {
        kept_ += std::exchange(keepsNext_, false) ? 1 : 0;
        ScriptedPersistence::save(rules);
    }
    void keepStoredOnNextSave() override { keepsNext_ = true; }

private:
    int& kept_;
    bool keepsNext_ = false;
};

AlertRule ruleOf(const Symbol& symbol, AlertRule::RepeatMode mode) {
    return {QUuid::createUuid(), symbol, {AlertConditionKind::priceRisesAbove, 100}, mode, true,
            std::nullopt};
}

class Alerts : public testing::Test {
protected:
    const AlertRule once_ = ruleOf(btc, AlertRule::RepeatMode::once());
    const AlertRule other_ = ruleOf(eth, AlertRule::RepeatMode::once());
    const AlertRule repeating_ = ruleOf(btc, AlertRule::RepeatMode::repeating(15min));
    StoredState<AlertRule> state_{.stored = {once_, other_, repeating_}};
    int kept_ = 0;
    AlertStore store_{std::make_unique<Persistence>(state_, kept_)};
    QSignalSpy changes_{&store_, &AlertStore::rulesChanged};
};

/// A rule as it is after it has fired.
AlertRule fired(AlertRule rule, bool isEnabled) {
    rule.lastTriggeredAt = noon;
    rule.isEnabled = isEnabled;
    return rule;
}

} // namespace

TEST_F(Alerts, LoadsWithoutSaving) {
    EXPECT_THAT(store_.rules(), ElementsAre(once_, other_, repeating_));
    EXPECT_THAT(store_.rules(btc), ElementsAre(once_, repeating_));
    EXPECT_THAT(store_.rules(sol), IsEmpty());
    state_.failsToLoad = true;
    const AlertStore unreadable(std::make_unique<Persistence>(state_, kept_));
    EXPECT_TRUE(unreadable.rules().empty());
    EXPECT_EQ(unreadable.lastPersistError(), std::nullopt);
    EXPECT_EQ(state_.saves, 0);
}

TEST_F(Alerts, SavesEachAdditionAndRemovalOnce) {
    const AlertRule added = ruleOf(eth, AlertRule::RepeatMode::once());
    store_.add(added);
    EXPECT_EQ(state_.saves, 1);
    store_.remove(other_.id);
    EXPECT_EQ(state_.saves, 2);
    store_.remove(other_.id);
    EXPECT_EQ(state_.saves, 2);
    EXPECT_THAT(store_.rules(), ElementsAre(once_, repeating_, added));
    EXPECT_EQ(state_.stored, store_.rules().all());
    EXPECT_EQ(changes_.count(), 2);
}

TEST_F(Alerts, ActsOnTheFirstOfTwoRulesWithOneID) {
    AlertRule twin = repeating_;
    twin.id = once_.id;
    store_.add(twin);
    store_.setEnabled(false, once_.id);
    EXPECT_FALSE(store_.rules()[0].isEnabled);
    EXPECT_TRUE(store_.rules()[3].isEnabled);
    store_.remove(once_.id);
    EXPECT_THAT(store_.rules(), ElementsAre(other_, repeating_, twin));
}

TEST_F(Alerts, ArmsAOnceRuleAnewAndLetsACooldownRun) {
    store_.markTriggered({once_, repeating_}, noon);
    store_.setEnabled(false, repeating_.id);
    EXPECT_THAT(store_.rules(), ElementsAre(fired(once_, false), other_, fired(repeating_, false)));
    state_.saves = 0;
    store_.setEnabled(true, once_.id);
    store_.setEnabled(true, repeating_.id);
    EXPECT_EQ(state_.saves, 2);
    EXPECT_THAT(store_.rules(), ElementsAre(once_, other_, fired(repeating_, true)));
    store_.setEnabled(true, once_.id);
    store_.setEnabled(false, QUuid::createUuid());
    EXPECT_EQ(state_.saves, 2);
}

TEST_F(Alerts, MarksWhatIsStoredNotWhatFired) {
    AlertRule stale = repeating_;
    stale.repeatMode = AlertRule::RepeatMode::once();
    stale.condition.threshold = 7;
    store_.markTriggered({stale, once_}, noon);
    EXPECT_THAT(store_.rules(), ElementsAre(fired(once_, false), other_, fired(repeating_, true)));
    EXPECT_EQ(state_.saves, 1);
    EXPECT_EQ(changes_.count(), 1);
}

TEST_F(Alerts, SavesAFiringOfARuleThatHasGoneButTellsOfNoChange) {
    store_.markTriggered({}, noon);
    EXPECT_EQ(state_.saves, 0);
    store_.markTriggered({ruleOf(btc, AlertRule::RepeatMode::once())}, noon);
    EXPECT_EQ(state_.saves, 1);
    EXPECT_EQ(changes_.count(), 0);
}

TEST_F(Alerts, DropsRulesOfPairsThatAreNotWatchedAndPutsDoubtfulOnesAside) {
    store_.removeOrphans({btc, eth}, false);
    store_.removeAll(sol);
    EXPECT_EQ(state_.saves, 0);
    store_.removeOrphans({btc}, true);
    EXPECT_THAT(store_.rules(), ElementsAre(once_, repeating_));
    EXPECT_EQ(kept_, 0);
    store_.add(other_);
    store_.removeOrphans({btc}, false);
    EXPECT_EQ(kept_, 1);
    store_.removeAll(btc);
    EXPECT_TRUE(store_.rules().empty());
    EXPECT_EQ(state_.saves, 4);
    EXPECT_EQ(kept_, 1);
}

TEST_F(Alerts, KeepsAChangeThatCannotBeSavedAndSaysWhy) {
    QSignalSpy messages(&store_, &AlertStore::lastPersistErrorChanged);
    state_.failsToSave = true;
    store_.remove(once_.id);
    store_.remove(other_.id);
    EXPECT_EQ(store_.lastPersistError(),
              QStringLiteral("Couldn't save alerts: No space left on device"));
    EXPECT_THAT(store_.rules(), ElementsAre(repeating_));
    EXPECT_EQ(messages.count(), 1);
    state_.failsToSave = false;
    store_.setEnabled(false, repeating_.id);
    EXPECT_EQ(store_.lastPersistError(), std::nullopt);
    EXPECT_EQ(messages.count(), 2);
    EXPECT_EQ(state_.stored, store_.rules().all());
}
