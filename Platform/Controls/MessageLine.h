// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

#include <optional>

namespace platform {

/// A line of text that is there only while there is something to say. Wraps where it
/// is too long, and follows the appearance.
class MessageLine final : public QLabel {
    Q_OBJECT

public:
    /// What the text is for, which decides its colour.
    enum class Kind { secondary, tertiary, warning, error };

    /// @param fontSize in device-independent pixels
    MessageLine(Kind kind, int fontSize, QWidget* parent = nullptr);

    /// Hides the line where absent.
    void setMessage(const std::optional<QString>& message);

protected:
    void changeEvent(QEvent* event) override;

private:
    void adoptPalette();

    Kind kind_;
    bool isAdopting_ = false;
};

} // namespace platform
