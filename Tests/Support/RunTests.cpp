// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/RunTests.h"

#include <QCoreApplication>
#include <QEvent>

#include <gtest/gtest.h>

namespace test {

namespace {

class DeletesWhatWaits final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

int runTests(int& argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The list owns it.
    testing::UnitTest::GetInstance()->listeners().Append(new DeletesWhatWaits);
    return RUN_ALL_TESTS();
}

} // namespace test
