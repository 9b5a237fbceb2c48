// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/AppDelegate.h"

#include "Platform/Foundation/StringTable.h"
#include "Platform/StatusNotifier/StatusItemIconFile.h"
#include "Quorvel/Model/FeedTexts.h"
#include "Quorvel/Model/StatusItemPreferences.h"
#include "Quorvel/Settings/SettingsWindow.h"
#include "Quorvel/Shell/StatusIcon.h"
#include "Quorvel/Shell/StatusMenu.h"
#include "Quorvel/Shell/StatusTitle.h"
#include "QuorvelKit/Alerts/SystemNotificationDelivering.h"
#include "QuorvelKit/Feed/ResilientProvider.h"
#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"
#include "QuorvelKit/Services/SystemLaunchAtLoginService.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QPixmap>
#include <QScreen>

namespace quorvel {

using platform::StatusItem;

namespace {

ExchangeChoice exchangeChoice(platform::UserDefaults& defaults) {
    return {defaults,
            {BinanceProvider::defaultRESTURL(), BinanceProvider::defaultStreamURL()},
            {BinanceProvider::mirrorRESTURL(), BinanceProvider::mirrorStreamURL()}};
}

std::unique_ptr<MarketDataProvider> makeProvider(const AppDelegate::Environment& environment,
                                                 platform::Workspace& workspace, FeedStatus& feed) {
    auto [events, writer] = platform::AsyncStream<ConnectionEvent>::make();
    const ConnectionReports reports{.events = std::move(writer)};
    std::unique_ptr<MarketDataProvider> provider;
    std::function<void()> renew;
    if (environment.makeProvider) {
        provider = environment.makeProvider(reports);
    } else {
        const auto endpoints = exchangeChoice(environment.defaults).endpoints();
        auto live =
            BinanceProvider::live(environment.clock, endpoints.rest, endpoints.stream, reports);
        renew = [exchange = live.get()] { exchange->renew(); };
        provider = std::move(live);
    }
    return std::make_unique<ResilientProvider>(
        ResilientProvider::Collaborators{.provider = std::move(provider),
                                         .renew = std::move(renew),
                                         .events = std::move(events),
                                         .lastHeard = reports.lastHeard,
                                         .sleepCenter = workspace.notificationCenter(),
                                         .clock = environment.clock,
                                         .status = feed});
}

platform::NotificationSender notificationSender(const QString& iconDirectory) {
    constexpr int iconSide = 64; // pixels; daemons scale it down
    return {.name = QStringLiteral("Quorvel"),
            .icon = platform::StatusItemIconFile::pathOf(StatusIcon::image(iconSide), iconDirectory,
                                                         QStringLiteral("quorvel-notification")),
            .desktopEntry = QStringLiteral("quorvel")};
}

platform::LoginItem loginItem(const QString& autostartDirectory) {
    return {{.id = QStringLiteral("quorvel"),
             .name = QStringLiteral("Quorvel"),
             .executable = QCoreApplication::applicationFilePath()},
            autostartDirectory};
}

platform::Workspace::Program workspaceProgram() {
    return {.name = QStringLiteral("Quorvel"),
            .sleepReason = platform::localized("Quorvel", "Closing the stream of prices"),
            .executable = QCoreApplication::applicationFilePath()};
}

/// The chosen language alone, or those of the session, best first.
QStringList preferredLanguages(AppLanguage language) {
    const auto identifier = localeIdentifier(language);
    return identifier ? QStringList(QString::fromUtf8(identifier->data(), std::ssize(*identifier)))
                      : QLocale::system().uiLanguages();
}

} // namespace

AppDelegate::AppDelegate(const Environment& environment)
    : environment_(environment),
      settings_(environment.defaults),
      exchange_(exchangeChoice(environment.defaults)),
      presentation_(environment.defaults),
      tables_(preferredLanguages(settings_.language())),
      notificationCenter_(notificationSender(environment.iconDirectory), environment.sessionBus,
                          environment.clock),
      workspace_(workspaceProgram(), environment.systemBus, environment.clock),
      feed_(environment.clock),
      model_({.provider = makeProvider(environment, workspace_, feed_),
              .feed = feed_,
              .settings = settings_,
              .exchange = exchange_,
              .presentation = presentation_,
              .delivering = std::make_unique<SystemNotificationDelivering>(notificationCenter_),
              .loginService = std::make_unique<SystemLaunchAtLoginService>(
                  loginItem(environment.autostartDirectory)),
              .workspace = workspace_,
              .files = environment.files,
              .clock = environment.clock}),
      appearance_(settings_, environment.sessionBus, environment.clock),
      service_(environment.sessionBus),
      plasmaWidget_(QStringLiteral("org.quorvel.line"), environment.sessionBus, environment.clock) {
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    constexpr int windowIconSide = 128; // pixels; window managers scale it down
    setUpStatusItem();
    setUpPopover();
    setUpSettingsWindow();
    setUpWidgets();
    connect(&model_, &AppModel::statusBarSegmentsChanged, this,
            [this] { updateStatusItem(StatusItem::Urgency::routine); });
    connect(&settings_, &SettingsStore::displayChanged, this,
            [this] { updateStatusItem(StatusItem::Urgency::immediate); });
    connect(&feed_, &FeedStatus::outageChanged, this,
            [this] { updateStatusItem(StatusItem::Urgency::immediate); });
    // The model follows the watchlist within this event.
    connect(
        &model_.watchlist(), &WatchlistStore::itemsChanged, this,
        [this] { updateStatusItem(StatusItem::Urgency::immediate); }, Qt::QueuedConnection);
    connect(&model_, &AppModel::relaunchRequested, this, [this] {
        isRelaunching_ = true;
        terminate();
    });
    QCoreApplication::instance()->installEventFilter(this);
    QGuiApplication::setWindowIcon(QIcon(QPixmap::fromImage(StatusIcon::image(windowIconSide))));
    appearance_.apply();
    startTask_ = platform::startTask(model_.start());
}

void AppDelegate::setUpPopover() {
    popover_ = std::make_unique<platform::Popover>(environment_.clock);
    popover_->setWindowTitle(QStringLiteral("Quorvel"));
    panel_ = new WatchlistPanel(model_, [this] { openSettings(); });
    popover_->setContent(panel_);
    connect(panel_, &WatchlistPanel::quitRequested, this, &AppDelegate::terminate);
}

void AppDelegate::setUpSettingsWindow() {
    constexpr QSize contentSize(SettingsWindow::contentWidth, 400);
    settingsWindow_ = std::make_unique<SettingsWindow>(model_);
    settingsWindow_->setWindowFlags(Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    settingsWindow_->setWindowTitle(platform::localized("Quorvel", "Quorvel Settings"));
    settingsWindow_->resize(contentSize);
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    settingsWindow_->move(available.center() - settingsWindow_->rect().center());
}

void AppDelegate::togglePopover(std::optional<QPoint> clickedAt) {
    if (popover_->isVisible()) {
        popover_->hide();
        return;
    }
    // The press of this very click took the popover's activation away.
    if (!popover_->wasJustDismissed())
        showPopover(clickedAt);
}

void AppDelegate::openPanel() {
    if (!popover_->isVisible()) {
        showPopover(std::nullopt);
        return;
    }
    popover_->raise();
    popover_->activateWindow();
}

void AppDelegate::showPopover(std::optional<QPoint> clickedAt) {
    prefetchTask_ = platform::startTask(model_.prefetchCandles());
    if (model_.loadError())
        model_.catchUp();
    // A panel that tells of a click shows the item, whatever there is of it besides.
    if (const auto frame = statusItem_->frame(); frame && !clickedAt)
        popover_->showBeside(*frame);
    else
        popover_->showBeside(platform::Popover::anchor(clickedAt));
    panel_->focusSearch();
}

void AppDelegate::openSettings() {
    popover_->hide();
    settingsWindow_->show();
    settingsWindow_->raise();
    settingsWindow_->activateWindow();
}

void AppDelegate::setUpStatusItem() {
    const platform::StatusItemIdentity identity{.id = QStringLiteral("quorvel"),
                                                .title = QStringLiteral("Quorvel"),
                                                .iconDirectory = environment_.iconDirectory};
    statusItem_ =
        std::make_unique<StatusItem>(identity, environment_.clock, environment_.sessionBus,
                                     StatusItemPreferences::options(environment_.defaults));
    statusItem_->setMenu(StatusMenu::entries());
    connect(statusItem_.get(), &StatusItem::activated, this, &AppDelegate::togglePopover);
    connect(statusItem_.get(), &StatusItem::clicked, this, [this] { togglePopover(std::nullopt); });
    connect(statusItem_.get(), &StatusItem::stripMoved, this,
            [this](const platform::StripPosition& position, const QString& screen) {
                StatusItemPreferences::setStripPlace(environment_.defaults, position, screen);
            });
    connect(&presentation_, &PresentationChoice::preferredChanged, statusItem_.get(),
            [this] { statusItem_->setPreferredPresentation(presentation_.preferred()); });
    connect(statusItem_.get(), &StatusItem::desktopChanged, &presentation_,
            [this] { presentation_.setDesktop(statusItem_->desktop()); });
    connect(statusItem_.get(), &StatusItem::menuTriggered, this, &AppDelegate::chooseFromMenu);
    updateStatusItem(StatusItem::Urgency::immediate);
}

void AppDelegate::setUpWidgets() {
    using platform::PlasmaWidgetWatch;
    connect(&service_, &QuorvelService::lineShownChanged, this, &AppDelegate::followWidgets);
    connect(&plasmaWidget_, &PlasmaWidgetWatch::stateChanged, this, [this] {
        followWidgets();
        if (plasmaWidget_.state() == PlasmaWidgetWatch::State::offered)
            offerTask_ = platform::startTask(offerPlasmaWidget());
    });
    connect(&service_, &QuorvelService::panelRequested, this, [this](std::optional<QPoint> point) {
        if (point)
            togglePopover(point);
        else
            openPanel();
    });
}

void AppDelegate::followWidgets() {
    const bool isOnPlasma = plasmaWidget_.state() == platform::PlasmaWidgetWatch::State::shown;
    statusItem_->setTextShownElsewhere(service_.isLineShown() || isOnPlasma);
}

platform::Task<> AppDelegate::offerPlasmaWidget() {
    if (StatusItemPreferences::isWidgetOffered(environment_.defaults))
        co_return;
    StatusItemPreferences::setWidgetOffered(environment_.defaults);
    try {
        co_await notificationCenter_.add(
            {.title = platform::localized("Quorvel", "Prices in the panel itself"),
             .body = platform::localized(
                 "Quorvel", "Right-click the panel, choose Add Widgets, and drag Quorvel there."),
             .soundName = {}});
    } catch (const std::exception&) {
        // Nobody shows notifications here; the strip is there.
    }
}

void AppDelegate::chooseFromMenu(int id) {
    switch (id) {
    case StatusMenu::open:
        togglePopover(std::nullopt);
        break;
    case StatusMenu::settings:
        openSettings();
        break;
    case StatusMenu::quit:
        terminate();
        break;
    default:
        break;
    }
}

void AppDelegate::updateStatusItem(StatusItem::Urgency urgency) {
    const auto& segments = model_.statusBarSegments();
    const auto title = statusTitle(segments, settings_.display());
    const QString text = title.plainText();
    statusItem_->setWidgetHint(QuorvelService::colorSchemeName(settings_.display().colorScheme));
    service_.setLine(segments, feed_.outage(), settings_.display());
    // Without any text the icon is all there is, so it shows whatever the setting says.
    const auto& outage = feed_.outage();
    statusItem_->setImage(
        outage ? StatusIcon::crossedImage()
               : StatusIcon::statusItemImage(segments.empty() || settings_.display().showsIcon));
    statusItem_->setNotice(outage ? std::optional(FeedTexts::notice(*outage, model_.now()))
                                  : std::nullopt);
    statusItem_->setTitle(title, urgency);
    statusItem_->setToolTip(text.isEmpty() ? QStringLiteral("Quorvel") : text, urgency);
}

void AppDelegate::terminate() {
    if (stopTask_)
        return;
    Q_EMIT terminating();
    startTask_ = {};
    stopTask_ = platform::startTask(stopModel());
    // The user asked the program to end; a network that does not answer is no reason to stay.
    constexpr std::chrono::seconds longestStop{4};
    stopDeadline_ = environment_.clock.startTimer(longestStop, [this] { Q_EMIT terminated(); });
}

bool AppDelegate::eventFilter(QObject* application, QEvent* event) {
    if (event->type() != QEvent::Quit || application != QCoreApplication::instance())
        return false;
    terminate();
    return true;
}

platform::Task<> AppDelegate::stopModel() {
    try {
        co_await model_.stop();
    } catch (const std::exception&) {
        // The network thread has gone already: nothing is left to stop.
    }
    Q_EMIT terminated();
}

} // namespace quorvel
