// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QMenu>

#include <functional>

namespace quorvel {

/// What can be done with a row of the watchlist. Deletes itself when it closes.
class RowMenu final : public QMenu {
    Q_OBJECT

public:
    /// @param index          the row's place in the watchlist
    /// @param model          must outlive the menu
    /// @param onOpenSettings opens the settings window
    RowMenu(const Symbol& symbol, std::size_t index, AppModel& model,
            const std::function<void()>& onOpenSettings, QWidget* parent);

protected:
    /// Marks what destroys something.
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    QAction* remove_ = nullptr;
};

} // namespace quorvel
