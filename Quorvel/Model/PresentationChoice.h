// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Desktop/StatusItemDesktop.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/StatusBar/StatusItemPresentationKind.h"

#include <QObject>
#include <QString>

#include <optional>

namespace quorvel {

/// How the user wants prices shown in the panel, and what this desktop makes of it. Main thread.
class PresentationChoice : public QObject {
    Q_OBJECT

public:
    using Kind = platform::StatusItemPresentationKind;

    /// @param defaults must outlive the choice
    explicit PresentationChoice(platform::UserDefaults& defaults) : defaults_(defaults) {}

    /// Absent: whatever fits the desktop.
    std::optional<Kind> preferred() const;
    void setPreferred(std::optional<Kind> kind);

    /// What the program has found of the desktop.
    void setDesktop(const platform::StatusItemDesktop& desktop);

    /// Why `kind` cannot be seen on this desktop, in the interface language; absent where it can.
    std::optional<QString> obstacle(Kind kind) const;

    /// Whether nobody but the user can say if prices are seen: the panel is an unknown one, and the
    /// user has neither chosen nor been asked yet.
    bool isQuestionDue() const;

    /// The user has said that prices are seen.
    void confirm();

Q_SIGNALS:
    void preferredChanged();
    void desktopChanged();

    /// Whether the question is due may have changed.
    void questionChanged();

private:
    platform::UserDefaults& defaults_;
    platform::StatusItemDesktop desktop_;
};

} // namespace quorvel
