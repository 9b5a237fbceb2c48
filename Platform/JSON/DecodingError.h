// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Why a document, or a value inside it, could not be read.
///
/// Thrown where the fault is found; each level on the way out adds its own key or index in front of
/// the coding path.
class DecodingError : public std::exception {
public:
    enum class Kind {
        dataCorrupted, ///< not well-formed, or a value that breaks a rule of its type
        typeMismatch,  ///< a value of another JSON type, or a number that the type cannot hold
        keyNotFound,   ///< a required key is absent
    };

    DecodingError(Kind kind, std::string description)
        : kind_(kind), description_(std::move(description)) {}

    Kind kind() const { return kind_; }

    /// Keys and array indices from the outermost value to the faulty one; empty for the document.
    const std::vector<std::string>& codingPath() const { return codingPath_; }

    /// One sentence in English, or the text that the rule prescribes. In UTF-8.
    const std::string& description() const { return description_; }

    const char* what() const noexcept override { return description_.c_str(); }

    /// Puts the key or index of an enclosing level in front of the coding path.
    void prependToPath(std::string_view component) {
        codingPath_.insert(codingPath_.begin(), std::string(component));
    }

private:
    Kind kind_;
    std::vector<std::string> codingPath_;
    std::string description_;
};

} // namespace platform
