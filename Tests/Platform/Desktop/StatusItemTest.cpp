#include "Tests/Platform/Desktop/StatusItemFixture.h"

#include <gmock/gmock.h>

#include <functional>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using StatusItemTiming = StatusItemFixture;
using Texts = std::vector<std::string>;

TEST_F(StatusItemTiming, RoutineTitlesGoOutOncePerSecondAndOnlyTheLatest) {
    showItem();
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    clock_.advance(400ms);
    item_->setTitle(title(QStringLiteral("BTC 3.00")));
    clock_.advance(599ms);
    EXPECT_THAT(takeSignals(), IsEmpty());
    clock_.advance(1ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(BTC 3.00, BTC 8.88)"));

    // A steady flow of prices never makes two in a second.
    std::size_t labelCount = 0;
    for (int step = 0; step < 50; ++step) {
        item_->setTitle(title(QStringLiteral("BTC %1.50").arg(step)));
        clock_.advance(100ms);
        labelCount += takeSignals().size();
    }
    EXPECT_EQ(labelCount, 5U);
}

TEST_F(StatusItemTiming, ARoutineTitleAfterAQuietSecondGoesOutInTheNextTurn) {
    showItem();
    clock_.advance(1s);
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    item_->setToolTip(QStringLiteral("BTC 2.00"));
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(BTC 2.00, BTC 8.88)", "NewToolTip()"));
}

TEST_F(StatusItemTiming, AnImmediateTitleGoesOutAtOnceAndTheNextRoutineOneWaitsForIt) {
    showItem();
    clock_.advance(300ms);
    item_->setTitle(title(QStringLiteral("ETH 1.00")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 1.00, ETH 8.88)"));
    item_->setTitle(title(QStringLiteral("ETH 2.00")));
    clock_.advance(999ms);
    EXPECT_THAT(takeSignals(), IsEmpty());
    clock_.advance(1ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 2.00, ETH 8.88)"));
}

TEST_F(StatusItemTiming, AWaitingTitleGoesOutAtOnceWhenTheUserAsksForTheSame) {
    showItem();
    item_->setTitle(title(QStringLiteral("ETH 1.00")));
    item_->setTitle(title(QStringLiteral("ETH 1.00")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 1.00, ETH 8.88)"));
}

TEST_F(StatusItemTiming, NothingIsSentWhenNothingChangedInTheEnd) {
    showItem();
    item_->setImage(image(Qt::red));
    item_->setToolTip(QStringLiteral("BTC 1.00"), Urgency::immediate);
    item_->setTitle(title(QStringLiteral("BTC 1.00")), Urgency::immediate);
    item_->setMenu({});
    EXPECT_EQ(clock_.timerCount(), 0U);
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    item_->setTitle(title(QStringLiteral("BTC 1.00")));
    clock_.advance(2s);
    EXPECT_THAT(takeSignals(), IsEmpty());
}

struct Change {
    std::string name;
    std::function<void(StatusItem&)> apply;
    Texts signals_;
};

class StatusItemSignals : public StatusItemFixture, public testing::WithParamInterface<Change> {
public:
    using StatusItemFixture::image;
    using StatusItemFixture::title;
};

TEST_P(StatusItemSignals, TellOnlyWhatChanged) {
    showItem();
    GetParam().apply(*item_);
    clock_.advance(1s);
    EXPECT_EQ(takeSignals(), GetParam().signals_);
}

INSTANTIATE_TEST_SUITE_P(
    StatusItem, StatusItemSignals,
    testing::Values(
        Change{"anotherImage",
               [](StatusItem& item) { item.setImage(StatusItemSignals::image(Qt::blue)); },
               {"NewIcon()"}},
        Change{"imageSwitchedOff",
               [](StatusItem& item) { item.setImage(StatusItemSignals::image(Qt::red, false)); },
               {"NewIcon()"}},
        Change{"anotherToolTip",
               [](StatusItem& item) { item.setToolTip(QStringLiteral("Quorvel")); },
               {"NewToolTip()"}},
        Change{"noTitle", [](StatusItem& item) { item.setTitle({}); }, {"XAyatanaNewLabel(, )"}},
        // Hosts draw a label in one colour and size, so to them nothing changed.
        Change{"sameTextInAnotherColor",
               [](StatusItem& item) {
                   item.setTitle({{{QStringLiteral("BTC "), std::nullopt, 0},
                                   {QStringLiteral("1.00"), DynamicColor{Qt::red, Qt::blue}, -2}}});
               },
               {}},
        Change{"firstMenu",
               [](StatusItem& item) { item.setMenu({{1, QStringLiteral("Open"), true, false}}); },
               {"LayoutUpdated(2, 0)"}}),
    [](const auto& instance) { return instance.param.name; });

} // namespace
