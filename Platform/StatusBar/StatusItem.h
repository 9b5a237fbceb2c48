// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/SystemAppearance.h"
#include "Platform/Desktop/StatusItemDesktopObserver.h"
#include "Platform/Desktop/SystemTray.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/StatusBar/StatusItemOptions.h"
#include "Platform/StatusContent/StatusItemContent.h"
#include "Platform/StatusContent/StatusItemEvents.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusContent/StatusItemPresentation.h"
#include "Platform/StatusNotifier/StatusNotifierItem.h"

#include <QDBusConnection>
#include <QRect>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

/// The program's item in the status bar: an image, a title, a tooltip and a menu. How it is shown
/// depends on the desktop, and changes when that does.
///
/// Setters only note what is wanted. What was set in one turn of the event loop goes out together
/// in the next, so that panels, which ask for everything again at each change, ask once. Setting an
/// equal value does nothing. Lives on the GUI thread.
class StatusItem final : public StatusItemEvents {
    Q_OBJECT

public:
    /// How soon a change has to be seen.
    enum class Urgency {
        /// With the next change that is due; at most one a second goes out, and only the latest.
        routine,
        /// At once, as befits the answer to something the user did.
        immediate,
    };

    /// The least time between two routine changes.
    static constexpr std::chrono::seconds routineInterval{1};

    /// How long a desktop that seems to need a strip has to come up with something better before it
    /// gets one: panels may start later than the program, in several steps, and start anew.
    static constexpr std::chrono::seconds panelPatience{2};

    /// The item appears once the desktop is known, or when a panel comes up, with what has been set
    /// until then.
    ///
    /// @param clock must outlive the item
    /// @param bus   the session bus; a connection carries one item
    StatusItem(StatusItemIdentity identity, Clock& clock, const QDBusConnection& bus,
               StatusItemOptions options = {}, QObject* parent = nullptr);
    ~StatusItem() override;

    /// Goes out at once.
    void setImage(StatusItemImage image);

    /// A title without text is shown as no title at all.
    void setTitle(AttributedTitle title, Urgency urgency = Urgency::routine);

    /// One line of plain text.
    void setToolTip(QString toolTip, Urgency urgency = Urgency::routine);

    /// Says what is wrong with what the item shows, at once: text and icon are drawn faintly where
    /// this program draws them, and the tooltip tells it. Absent: nothing is wrong.
    void setNotice(std::optional<QString> notice);

    /// Shows the item in another way, at once where that can be had. Absent: what fits the desktop.
    void setPreferredPresentation(std::optional<StatusItemPresentationKind> kind);

    /// Where something else shows the text, the item is an icon that panels may put away, and there
    /// is no strip.
    void setTextShownElsewhere(bool isShown);

    /// What there is on the desktop for the item.
    const StatusItemDesktop& desktop() const { return desktop_.desktop(); }

    /// What the program's own widgets have to know besides.
    void setWidgetHint(QString hint);

    /// Must be called in the turn of the event loop in which the item was made, if at all. The ids
    /// of entries that are no separators must differ.
    void setMenu(std::vector<MenuEntry> entries);

    /// Where the item is on the screen, in global device-independent coordinates. Absent where it
    /// is a panel's, which does not tell.
    std::optional<QRect> frame() const;

Q_SIGNALS:
    void desktopChanged();

private:
    /// What decides how a presentation is made.
    struct Manner {
        StatusItemPresentationKind kind;
        bool keepsEmptyLabel = false;
        bool isTextShownElsewhere = false;

        bool operator==(const Manner&) const = default;
    };

    template <typename Value>
    void set(Value& field, Value value, Urgency urgency);
    void schedule(Urgency urgency);
    void show();
    void setListed(bool isListed);
    StatusItemDesktop usableDesktop() const;
    void chooseSoon();
    StatusItemPresentationKind fittingKind() const;
    void present(StatusItemPresentationKind kind);
    void showIconBesideStrip();
    std::unique_ptr<StatusItemPresentation> makePresentation(StatusItemPresentationKind kind);
    std::unique_ptr<StatusNotifierItem> makeNotifierItem(StatusNotifierRendering::Style style);

    StatusItemIdentity identity_;
    Clock& clock_;
    QDBusConnection bus_;
    StatusItemOptions options_;
    SystemAppearance appearance_;
    SystemTray tray_;
    StatusItemDesktopObserver desktop_;
    bool isListed_ = true; ///< false: the desktop's watcher does not take the item
    bool isTextShownElsewhere_ = false;
    std::optional<Manner> manner_; ///< of `presentation_`
    std::unique_ptr<StatusItemPresentation> presentation_;
    int notifierItems_ = 0;                    ///< made so far
    std::unique_ptr<StatusNotifierItem> icon_; ///< beside a strip, where there is a watcher
    StatusItemContent content_;
    std::optional<StatusItemContent> shown_;
    std::optional<std::chrono::nanoseconds> shownAt_;
    /// Uptime at which `timer_` falls due; absent when it does not run.
    std::optional<std::chrono::nanoseconds> dueAt_;
    std::unique_ptr<ClockTimer> timer_;
    std::unique_ptr<ClockTimer> patience_;
};

} // namespace platform
