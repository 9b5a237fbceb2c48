// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QWidget>

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

    /// @param model must outlive the window
    explicit SettingsWindow(AppModel& model, QWidget* parent = nullptr);
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;
    ~SettingsWindow() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeForm();
    QWidget* makeUnsavedNotice();
    void makeScrollArea(QWidget* form);
    void keepEnd(int maximum);
    void followFocus(QWidget* focus);

    AppModel& model_;
    AlertsSection* alerts_ = nullptr;
    QScrollArea* scrollArea_ = nullptr;
    int lastMaximum_ = 0; ///< of the scroll bar
};

} // namespace quorvel
