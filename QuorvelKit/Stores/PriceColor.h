// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// The colours that tell rising from falling; which shade each is, the views decide.
enum class PriceColor { red, green };

} // namespace quorvel
