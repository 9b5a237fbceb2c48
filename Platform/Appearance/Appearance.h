// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

/// What a surface looks like behind text drawn on it.
enum class Appearance { light, dark };

} // namespace platform
