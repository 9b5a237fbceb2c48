// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <exception>
#include <optional>

namespace platform {

/// A failure of the platform: the network, the file system, a service. Its description is meant for
/// people and goes into messages as it stands.
class PlatformError : public std::exception {
public:
    explicit PlatformError(QString description)
        : description_(std::move(description)), what_(description_.toUtf8()) {}

    /// One line for the user, in the language that the platform gives it.
    const QString& localizedDescription() const { return description_; }

    const char* what() const noexcept override { return what_.constData(); }

private:
    QString description_;
    QByteArray what_;
};

/// What to tell the user of any error: the platform's own wording where it has one.
inline QString localizedDescription(const std::exception& error) {
    if (const auto* const platformError = dynamic_cast<const PlatformError*>(&error))
        return platformError->localizedDescription();
    return QString::fromUtf8(error.what());
}

/// Does `action`, and words what went wrong: `text` with the description of the error in the place
/// of its %1; absent where nothing did.
template <typename Action>
std::optional<QString> failureOf(Action action, const QString& text) {
    try {
        action();
        return std::nullopt;
    } catch (const std::exception& error) {
        return text.arg(localizedDescription(error));
    }
}

} // namespace platform
