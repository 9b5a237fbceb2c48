// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Label.h"

#include <QWidget>

#include <optional>

namespace quorvel {

/// A message that something is wrong, with the sign for that before it; there while there is one.
class Notice final : public QWidget {
    Q_OBJECT

public:
    /// @param tone warning or error
    explicit Notice(platform::Label::Tone tone, QWidget* parent = nullptr);

    /// Hides the notice where absent.
    void setMessage(const std::optional<QString>& message);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::Label* line_;
};

} // namespace quorvel
