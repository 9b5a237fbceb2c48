// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/VirtualDisplay.h"
#include "Tests/Support/RunTests.h"

#include <QApplication>

#include <cstdio>
#include <exception>

/// For what has to be seen on an X display: each process has one of its own.
int main(int argc, char** argv) {
    try {
        const test::VirtualDisplay display;
        qputenv("QT_QPA_PLATFORM", "xcb");
        const QApplication application(argc, argv);
        return test::runTests(argc, argv);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        return 1;
    }
}
