// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/TextField.h"
#include "Quorvel/Model/AppModel.h"

namespace quorvel {

/// Where a coin's name is typed. Shows and changes the model's search text.
class SearchField final : public platform::TextField {
    Q_OBJECT

public:
    /// @param model must outlive the field
    explicit SearchField(AppModel& model, QWidget* parent = nullptr);
};

} // namespace quorvel
