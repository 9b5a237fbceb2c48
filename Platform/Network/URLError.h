// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/PlatformError.h"

#include <optional>

namespace platform {

/// A transfer or a connection failed before or beside any answer of the server's.
class URLError : public PlatformError {
public:
    enum class Code {
        cancelled,           ///< given up by this side
        timedOut,            ///< the other side did not answer in time
        cannotConnect,       ///< no address, no route, refused, or not a server of the right kind
        refused,             ///< the server answered the opening of a connection with a status
        connectionLost,      ///< an established connection broke
        connectionClosed,    ///< the other side closed it in order
        insecureConnection,  ///< no trustworthy encryption
        dataTooLarge,        ///< more than this side is willing to take
        unsupportedLocation, ///< not a place this kind of transfer can go to
    };

    /// @param statusCode the HTTP status of a refusal
    URLError(Code code, const QString& description, std::optional<int> statusCode = {})
        : PlatformError(description), code_(code), statusCode_(statusCode) {}

    Code code() const { return code_; }

    /// The HTTP status where the code is `refused`, else absent.
    std::optional<int> statusCode() const { return statusCode_; }

private:
    Code code_;
    std::optional<int> statusCode_;
};

} // namespace platform
