// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

/// Whether the display blends translucent windows with what is behind them. Where it does not,
/// their translucent parts come out black. May change while the program runs.
bool isDisplayComposited();

} // namespace platform
