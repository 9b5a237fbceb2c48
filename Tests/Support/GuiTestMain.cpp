// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/RunTests.h"

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return test::runTests(argc, argv);
}
