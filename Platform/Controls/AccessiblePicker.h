// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

/// Has assistive technology read a picker's own name, and its choice as its value: the toolkit
/// gives out the choice as both. To be called before it meets one.
void installAccessiblePicker();

} // namespace platform
