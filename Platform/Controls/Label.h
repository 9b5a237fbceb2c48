// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

#include <optional>

namespace platform {

/// A text in one of the strengths or colours that texts have here. Wraps where it is too long, and
/// follows the appearance.
class Label final : public QLabel {
    Q_OBJECT

public:
    enum class Tone { primary, secondary, tertiary, warning, error };

    /// @param fontSize in device-independent pixels
    Label(Tone tone, int fontSize, QWidget* parent = nullptr);

    void setTone(Tone tone);

    /// Shows a text that is there at times only; hides the label where absent.
    void setMessage(const std::optional<QString>& message);

protected:
    void changeEvent(QEvent* event) override;

private:
    void adoptPalette();

    Tone tone_;
    bool isAdopting_ = false;
};

} // namespace platform
