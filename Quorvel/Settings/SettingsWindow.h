// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QWidget>

#include <functional>

class QScrollArea;

namespace quorvel {

class AlertsSection;

/// The content of the settings window: a form of four sections that scrolls. Each change takes
/// effect at once. Created at launch and kept, so that what was typed into it stays.
class SettingsWindow final : public QWidget {
    Q_OBJECT

public:
    static constexpr int contentWidth = 420;
    static constexpr int minimumContentHeight = 360;
    static constexpr int maximumContentHeight = 640;

    /// @param model      must outlive the window
    /// @param onRelaunch starts the program anew, for a changed language to take effect
    SettingsWindow(AppModel& model, std::function<void()> onRelaunch, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeForm(std::function<void()> onRelaunch);
    void makeScrollArea(QWidget* form);
    void keepEnd(int maximum);
    /// Scrolls to the form for a new alert and lets the user type into it.
    void openAlertForm();

    AppModel& model_;
    AlertsSection* alerts_ = nullptr;
    QScrollArea* scrollArea_ = nullptr;
    int lastMaximum_ = 0;         ///< of the scroll bar
    bool opensAlertForm_ = false; ///< once shown
};

} // namespace quorvel
