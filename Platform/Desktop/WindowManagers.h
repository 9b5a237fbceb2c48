// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

/// Whether the display's window manager leaves a small dock where it puts itself, in the size it
/// gives itself. True where there is none to ask.
bool leavesDocksInPlace();

/// Whether the program knows where the pointer is when it is not over one of its windows. On
/// Wayland it does not.
bool isPointerKnown();

} // namespace platform
