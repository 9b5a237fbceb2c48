// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/MessageLine.h"
#include "Platform/Controls/Reveal.h"

#include <QWidget>

#include <optional>

namespace quorvel {

/// A message that something is wrong, with the sign for that before it.
class Notice final : public QWidget {
    Q_OBJECT

public:
    /// @param kind warning or error
    explicit Notice(platform::MessageLine::Kind kind, QWidget* parent = nullptr);

    void setText(const QString& text) { line_->setText(text); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::MessageLine* line_;
};

/// Shows a message in the notice that `reveal` holds, or nothing where absent.
void setMessage(platform::Reveal& reveal, Notice& notice, const std::optional<QString>& message);

} // namespace quorvel
