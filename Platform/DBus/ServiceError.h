// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/PlatformError.h"

namespace platform {

/// A service of the desktop, another program on the bus, did not do what it was asked.
class ServiceError : public PlatformError {
public:
    enum class Code {
        unavailable, ///< nobody offers the service, it could not be started, or there is no bus
        refused,     ///< it answered with an error
        unanswered,  ///< no answer came in time, or it ended without one
    };

    ServiceError(Code code, const QString& description) : PlatformError(description), code_(code) {}

    Code code() const { return code_; }

private:
    Code code_;
};

} // namespace platform
