// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

/// What the system calls a process of this machine: its executable's name, cut after 15
/// characters. Empty where there is no such process, or it may not be seen.
QString processName(qint64 process);

} // namespace platform
