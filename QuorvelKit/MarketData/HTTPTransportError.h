// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

namespace quorvel {

/// An answer came, but not one to use.
class HTTPTransportError : public std::exception {
public:
    /// The server answered with a status outside 200 to 299.
    static HTTPTransportError requestFailed(std::int64_t statusCode) {
        return HTTPTransportError(statusCode);
    }

    /// What answered does not speak HTTP.
    static HTTPTransportError invalidResponse() { return HTTPTransportError(std::nullopt); }

    /// The status of a failed request; absent for an invalid response.
    std::optional<std::int64_t> statusCode() const { return statusCode_; }

    const char* what() const noexcept override { return text_.c_str(); }

    friend bool operator==(const HTTPTransportError& left, const HTTPTransportError& right) {
        return left.statusCode_ == right.statusCode_;
    }

private:
    explicit HTTPTransportError(std::optional<std::int64_t> statusCode)
        : statusCode_(statusCode),
          text_(statusCode ? "HTTP status " + std::to_string(*statusCode) : "not an HTTP answer") {}

    std::optional<std::int64_t> statusCode_;
    std::string text_;
};

} // namespace quorvel
