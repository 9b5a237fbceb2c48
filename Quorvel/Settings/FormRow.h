// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Reveal.h"
#include "Platform/Controls/TextLine.h"

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

    /// Takes `hint` over and puts it below, where it is there while revealed.
    platform::Reveal* addHint(QWidget* hint);

private:
    platform::TextLine* label_;
    QWidget* control_;
    QVBoxLayout* lines_;
};

/// What of a control's width belongs to marks outside of what is seen of it, at its right side.
int overhang(const QWidget& control);

} // namespace quorvel
