// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace test {

/// Runs the tests of a program that has its application object. After each, what was to be deleted
/// by the event loop is deleted, as it would be in a program that goes on.
int runTests(int& argc, char** argv);

} // namespace test
