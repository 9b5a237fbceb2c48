// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/VirtualDisplay.h"

#include <stdexcept>

namespace test {

using namespace std::chrono_literals;

VirtualDisplay::VirtualDisplay() : displayBefore_(qgetenv("DISPLAY")) {
    // A client that comes while the server resets itself, after the last one before has gone, is
    // turned away.
    // It writes the number it has chosen to its standard output once it is ready.
    server_.start({"Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp",
                   "-ac", "-noreset"});
    const std::string number = server_.readLine(30s);
    if (number.empty())
        throw std::runtime_error("the virtual display does not start");
    qputenv("DISPLAY", QByteArray::fromStdString(":" + number));
}

VirtualDisplay::~VirtualDisplay() {
    qputenv("DISPLAY", displayBefore_);
}

} // namespace test
