// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/RunTests.h"

#include <QApplication>

int main(int argc, char** argv) {
    // Whoever lists the cases has no display either.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return test::runTests(argc, argv);
}
