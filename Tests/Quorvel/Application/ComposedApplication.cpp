// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/ComposedApplication.h"

#include "Platform/StatusNotifier/DBusMenuTypes.h"
#include "Platform/StatusNotifier/StatusNotifierTypes.h"
#include "Tests/Support/WaitUntil.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

namespace test {

using namespace quorvel;

namespace {

const auto itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Symbol pair(const char* base) {
    return {base, "USDT"};
}

} // namespace

ComposedApplication::ComposedApplication()
    : desktopPalette_(QApplication::palette()),
      watcher_(std::make_unique<FakeStatusNotifierWatcher>(panelsBus_)),
      notifications_(std::make_unique<FakeNotificationService>(bus_.connect())),
      loginManager_(std::make_unique<FakeLoginManager>(bus_.connect())) {
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

ComposedApplication::~ComposedApplication() {
    delegate_.reset();
    QApplication::setPalette(desktopPalette_);
}

void ComposedApplication::haveWatchlist(std::initializer_list<const char*> bases) {
    QJsonArray items;
    for (const char* const base : bases) {
        const QJsonObject symbol{{QStringLiteral("base"), QString::fromUtf8(base)},
                                 {QStringLiteral("quote"), QStringLiteral("USDT")}};
        items.append(QJsonObject{{QStringLiteral("symbol"), symbol},
                                 {QStringLiteral("isPinnedToStatusBar"), false}});
    }
    platform::FileManager::writeAtomically(QJsonDocument(items).toJson(),
                                           path("share/Quorvel/watchlist.json"));
}

void ComposedApplication::havePreferences(const QByteArray& lines) {
    platform::FileManager::writeAtomically("[General]\n" + lines + "\n", path("Quorvel.conf"));
}

void ComposedApplication::launch(std::initializer_list<const char*> pairs) {
    defaults_ = std::make_unique<platform::UserDefaults>(path("Quorvel.conf"));
    delegate_ = std::make_unique<AppDelegate>(
        AppDelegate::Environment{.clock = clock_,
                                 .files = files_,
                                 .defaults = *defaults_,
                                 .iconDirectory = path("icons"),
                                 .autostartDirectory = path("autostart"),
                                 .sessionBus = programsBus_,
                                 .systemBus = bus_.connect(),
                                 .makeProvider = [this](const ConnectionReports& reports) {
                                     reports_ = reports;
                                     auto provider = std::make_unique<ScriptedProvider>();
                                     provider_ = provider.get();
                                     return provider;
                                 }});
    QObject::connect(delegate_.get(), &AppDelegate::terminated, [this] { hasEnded_ = true; });
    delegate_->applicationDidFinishLaunching();
    settle();
    if (pairs.size() > 0)
        deliverPairs(pairs);
    ASSERT_TRUE(
        waitUntil([this] { return watcher_->answerCount() > 0 || findWindow("Quorvel", true); }));
    ASSERT_TRUE(waitUntil([this] { return loginManager_->heldLocks() == 1; }));
}

void ComposedApplication::deliverPairs(std::initializer_list<const char*> bases) {
    std::vector<Symbol> pairs;
    std::ranges::transform(bases, std::back_inserter(pairs), pair);
    provider_->pairs.addResult(pairs);
    provider_->pairs.finish();
    settle();
}

void ComposedApplication::quote(const char* base, const char* price, const char* change) {
    EXPECT_TRUE(provider_->push({pair(base), *Decimal::fromAPIString(price),
                                 *Decimal::fromAPIString(change), clock_.now()}));
    drainEvents();
}

void ComposedApplication::report(const ConnectionEvent& event) {
    if (event.kind != ConnectionEvent::Kind::lost)
        reports_.lastHeard->store(clock_.uptime().count());
    reports_.events.push(event);
    settle();
}

QString ComposedApplication::toolTipBody() {
    return qdbus_cast<platform::NotifierToolTip>(itemProperties()[QStringLiteral("ToolTip")]).body;
}

void ComposedApplication::pass(std::chrono::nanoseconds time) {
    clock_.advance(time);
    drainEvents();
}

void ComposedApplication::settle() {
    pass({});
}

void ComposedApplication::comeFromElsewhere() {
    // The offscreen platform gives nobody the keyboard when a window closes.
    if (!isPanelOpen())
        clickElsewhere();
}

void ComposedApplication::clickItem() {
    comeFromElsewhere();
    panelPeer_.call(programsBus_.baseService(), QStringLiteral("/StatusNotifierItem"),
                    itemInterface, QStringLiteral("Activate"), {0, 0});
    settle();
}

QVariantList ComposedApplication::callMenu(const char* member, const QVariantList& arguments) {
    return panelPeer_
        .call(programsBus_.baseService(), QStringLiteral("/MenuBar"),
              QStringLiteral("com.canonical.dbusmenu"), QString::fromLatin1(member), arguments)
        .arguments();
}

void ComposedApplication::chooseFromItemMenu(const QString& entry) {
    comeFromElsewhere();
    const auto layout = qdbus_cast<platform::MenuLayoutItem>(
        callMenu("GetLayout", {0, -1, QStringList()}).value(1));
    for (const auto& item : layout.children) {
        if (item.properties.value(QStringLiteral("label")) != entry)
            continue;
        callMenu("Event",
                 {item.id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
        settle();
        return;
    }
    throw std::out_of_range("the item's menu has no " + entry.toStdString());
}

QVariantMap ComposedApplication::itemProperties(int ordinal) {
    settle();
    QString path = QStringLiteral("/StatusNotifierItem");
    if (ordinal > 1)
        path += u'/' + QString::number(ordinal);
    const QDBusMessage reply = panelPeer_.call(programsBus_.baseService(), path,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("GetAll"), {itemInterface});
    return qdbus_cast<QVariantMap>(reply.arguments().value(0));
}

std::string ComposedApplication::label() {
    return itemProperties().value(QStringLiteral("XAyatanaLabel")).toString().toStdString();
}

QString ComposedApplication::itemProperty(const char* name, int ordinal) {
    return itemProperties(ordinal).value(QString::fromLatin1(name)).toString();
}

QImage ComposedApplication::icon() {
    return QImage(itemProperties().value(QStringLiteral("IconName")).toString());
}

QWidget* ComposedApplication::findWindow(const char* title, bool isStrip) const {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == QString::fromUtf8(title) &&
            window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus) == isStrip)
            return window;
    }
    return nullptr;
}

WindowUser ComposedApplication::panel() const {
    if (QWidget* const window = findWindow("Quorvel", false))
        return WindowUser(*window);
    throw std::out_of_range("the panel is closed");
}

WindowUser ComposedApplication::settings() const {
    if (QWidget* const window = findWindow("Quorvel Settings", false))
        return WindowUser(*window);
    throw std::out_of_range("the settings are closed");
}

WindowUser ComposedApplication::strip() const {
    if (QWidget* const window = findWindow("Quorvel", true))
        return WindowUser(*window);
    throw std::out_of_range("there is no strip");
}

WindowUser ComposedApplication::openPanel() {
    clickItem();
    WindowUser user = panel();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.window()));
    settle();
    return user;
}

WindowUser ComposedApplication::openSettings() {
    chooseFromItemMenu(QStringLiteral("Settings…"));
    WindowUser user = settings();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.window()));
    settle();
    return user;
}

void ComposedApplication::clickElsewhere() {
    otherProgram_.show();
    otherProgram_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&otherProgram_));
    drainEvents();
}

void ComposedApplication::endSession() {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    settle();
}

std::vector<std::string> ComposedApplication::savedPairs() const {
    std::vector<std::string> pairs;
    const auto items =
        QJsonDocument::fromJson(contents(path("share/Quorvel/watchlist.json"))).array();
    for (const auto item : items) {
        const QJsonObject object = item.toObject();
        const bool isPinned = object.value(QStringLiteral("isPinnedToStatusBar")).toBool();
        const QString base = object.value(QStringLiteral("symbol"))
                                 .toObject()
                                 .value(QStringLiteral("base"))
                                 .toString();
        pairs.push_back(base.toStdString() + (isPinned ? "*" : ""));
    }
    return pairs;
}

QByteArray ComposedApplication::savedAlerts() const {
    return contents(path("share/Quorvel/alerts.json"));
}

QString ComposedApplication::preference(const char* key) const {
    // As the next start will find it.
    return platform::UserDefaults(path("Quorvel.conf"))
        .string(QString::fromUtf8(key))
        .value_or(QString());
}

} // namespace test
