#include "Quorvel/Shell/AppDelegate.h"

#include "Platform/Desktop/StatusItemIconFile.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Shell/ExchangeEndpoints.h"
#include "Quorvel/Shell/StatusIcon.h"
#include "Quorvel/Shell/StatusMenu.h"
#include "Quorvel/Shell/StatusTitle.h"
#include "QuorvelKit/Alerts/SystemNotificationDelivering.h"
#include "QuorvelKit/MarketData/BinanceProvider.h"
#include "QuorvelKit/Services/SystemLaunchAtLoginService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QLocale>

namespace quorvel {

using platform::StatusItem;

namespace {

std::unique_ptr<MarketDataProvider> makeProvider(const AppDelegate::Environment& environment) {
    const auto endpoints = ExchangeEndpoints::fromDefaults(environment.defaults);
    return BinanceProvider::live(environment.clock, endpoints.rest, endpoints.stream);
}

platform::NotificationSender notificationSender(const QString& iconDirectory) {
    constexpr int iconSide = 64; // pixels; daemons scale it down
    return {.name = QStringLiteral("Quorvel"),
            .icon = platform::StatusItemIconFile::pathOf(StatusIcon::image(iconSide), iconDirectory,
                                                         QStringLiteral("quorvel-notification")),
            .desktopEntry = QStringLiteral("quorvel")};
}

platform::LoginItem loginItem() {
    return {{.id = QStringLiteral("quorvel"),
             .name = QStringLiteral("Quorvel"),
             .executable = QCoreApplication::applicationFilePath()},
            platform::LoginItem::standardDirectory()};
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
      tables_(preferredLanguages(settings_.language())),
      notificationCenter_(notificationSender(environment.iconDirectory),
                          QDBusConnection::sessionBus(), environment.clock),
      workspace_(workspaceProgram(), QDBusConnection::systemBus(), environment.clock),
      model_({.provider = makeProvider(environment),
              .settings = settings_,
              .delivering = std::make_unique<SystemNotificationDelivering>(notificationCenter_),
              .loginService = std::make_unique<SystemLaunchAtLoginService>(loginItem()),
              .workspace = workspace_,
              .files = environment.files,
              .clock = environment.clock}) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    setUpStatusItem();
    connect(&model_, &AppModel::statusBarSegmentsChanged, this,
            [this] { updateStatusItem(StatusItem::Urgency::routine); });
    connect(&settings_, &SettingsStore::displayChanged, this,
            [this] { updateStatusItem(StatusItem::Urgency::immediate); });
    startTask_ = platform::startTask(model_.start());
}

void AppDelegate::setUpStatusItem() {
    const platform::StatusItemIdentity identity{.id = QStringLiteral("quorvel"),
                                                .title = QStringLiteral("Quorvel"),
                                                .iconDirectory = environment_.iconDirectory};
    statusItem_ =
        std::make_unique<StatusItem>(identity, environment_.clock, QDBusConnection::sessionBus());
    statusItem_->setMenu(StatusMenu::entries());
    connect(statusItem_.get(), &StatusItem::menuTriggered, this, [this](int id) {
        if (id == StatusMenu::quit)
            terminate();
    });
    updateStatusItem(StatusItem::Urgency::immediate);
}

void AppDelegate::updateStatusItem(StatusItem::Urgency urgency) {
    const auto& segments = model_.statusBarSegments();
    const auto title = statusTitle(segments, settings_.display());
    const QString text = title.plainText();
    // Without any text the icon is all there is, so it shows whatever the setting says.
    statusItem_->setImage(
        StatusIcon::statusItemImage(segments.empty() || settings_.display().showsIcon));
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

platform::Task<> AppDelegate::stopModel() {
    try {
        co_await model_.stop();
    } catch (const std::exception&) {
        // The network thread has gone already: nothing is left to stop.
    }
    Q_EMIT terminated();
}

} // namespace quorvel
