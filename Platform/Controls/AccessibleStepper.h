// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

/// Lets assistive technology read and change a stepper's value. To be called before it meets one.
void installAccessibleStepper();

} // namespace platform
