// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// The sizes of the form's texts, in device-independent pixels.
struct FormFonts {
    static constexpr int label = 14; ///< also of what stands in a control
    static constexpr int caption = 11;
};

} // namespace quorvel
