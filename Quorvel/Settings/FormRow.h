// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Label.h"

#include <QWidget>

class QVBoxLayout;

namespace quorvel {

/// A row of a form: a label on the left, its control on the right, and below both what explains the
/// control. The control is named by the label, for assistive technology too.
class FormRow final : public QWidget {
    Q_OBJECT

public:
    static constexpr int preferredHeight = 40;

    /// Takes `control` over.
    FormRow(const QString& label, QWidget* control, QWidget* parent = nullptr);

    void setLabel(const QString& label);

    /// The label only explains the control, which has a name of its own.
    void makeCaption();

    /// Takes `hint` over and puts it below.
    void addHint(QWidget* hint);

private:
    platform::Label* label_;
    QWidget* control_;
    QVBoxLayout* lines_;
};

} // namespace quorvel
