// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/DBus/DBusObject.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

#include <algorithm>

namespace platform {

namespace {

const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

void requireSignature(const QDBusMessage& message, QStringView signature) {
    if (message.signature() != signature)
        throw DBusCallError(QDBusError::InvalidArgs, "The arguments have the wrong types");
}

/// An element for each complete type in the signature: one letter, or all of a pair of brackets,
/// behind any number of `a`.
QString argumentElements(const QString& signature, QStringView direction) {
    QString elements;
    QString type;
    qsizetype depth = 0;
    for (const QChar letter : signature) {
        type += letter;
        depth += QStringView(u"({").contains(letter)   ? 1
                 : QStringView(u")}").contains(letter) ? -1
                                                       : 0;
        if (depth > 0 || letter == u'a')
            continue;
        elements += QStringLiteral("<arg type=\"%1\" direction=\"%2\"/>").arg(type, direction);
        type.clear();
    }
    return elements;
}

} // namespace

DBusObject::DBusObject(QString interface, QObject* parent)
    : QDBusVirtualObject(parent), interface_(std::move(interface)) {}

void DBusObject::addMethod(const char* name, const char* signature, const char* reply,
                           Method method) {
    methods_.push_back({QString::fromLatin1(name), QString::fromLatin1(signature),
                        QString::fromLatin1(reply), std::move(method)});
}

void DBusObject::addSignal(const char* name, const char* signature) {
    signals_.emplace_back(QString::fromLatin1(name), QString::fromLatin1(signature));
}

bool DBusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    // Qt asks `introspect` for these.
    if (message.interface() == QStringLiteral("org.freedesktop.DBus.Introspectable"))
        return false;
    caller_ = message.service();
    QDBusMessage reply;
    try {
        reply = message.createReply(answer(message));
    } catch (const DBusCallError& error) {
        reply = message.createErrorReply(error.type(), QString::fromUtf8(error.what()));
    }
    caller_.clear();
    if (message.isReplyRequired())
        connection.send(reply);
    return true;
}

QString DBusObject::introspect(const QString&) const {
    QString text = QStringLiteral("<interface name=\"%1\">").arg(interface_);
    for (const auto [name, value] : properties().asKeyValueRange())
        text += QStringLiteral("<property name=\"%1\" type=\"%2\" access=\"read\"/>")
                    .arg(name, QLatin1StringView(QDBusMetaType::typeToSignature(value.metaType())));
    for (const NamedMethod& method : methods_)
        text += QStringLiteral("<method name=\"%1\">%2%3</method>")
                    .arg(method.name, argumentElements(method.signature, u"in"),
                         argumentElements(method.reply, u"out"));
    for (const auto& [name, signature] : signals_)
        text += QStringLiteral("<signal name=\"%1\">%2</signal>")
                    .arg(name, argumentElements(signature, u"out"));
    return text + QStringLiteral("</interface>");
}

QVariantList DBusObject::answer(const QDBusMessage& message) const {
    const QString interface = message.interface();
    if (interface == propertiesInterface)
        return answerPropertiesCall(message);
    // A call may leave the interface out.
    if (interface.isEmpty() || interface == interface_)
        return answerOwnCall(message);
    throw DBusCallError(QDBusError::UnknownInterface, "No such interface");
}

QVariantList DBusObject::answerOwnCall(const QDBusMessage& message) const {
    const auto found = std::ranges::find(methods_, message.member(), &NamedMethod::name);
    if (found == methods_.end())
        throw DBusCallError(QDBusError::UnknownMethod, "No such method");
    requireSignature(message, found->signature);
    return found->method(message.arguments());
}

QVariantList DBusObject::answerPropertiesCall(const QDBusMessage& message) const {
    const QVariantList arguments = message.arguments();
    if (message.member() == QStringLiteral("Get")) {
        requireSignature(message, u"ss");
        requireOwnInterface(arguments[0].toString());
        return {QVariant::fromValue(QDBusVariant(property(arguments[1].toString())))};
    }
    if (message.member() == QStringLiteral("GetAll")) {
        requireSignature(message, u"s");
        requireOwnInterface(arguments[0].toString());
        return {properties()};
    }
    if (message.member() == QStringLiteral("Set")) {
        requireSignature(message, u"ssv");
        requireOwnInterface(arguments[0].toString());
        property(arguments[1].toString());
        throw DBusCallError(QDBusError::PropertyReadOnly, "The property cannot be written");
    }
    throw DBusCallError(QDBusError::UnknownMethod, "No such method");
}

QVariant DBusObject::property(const QString& name) const {
    const QVariantMap all = properties();
    const auto found = all.find(name);
    if (found == all.end())
        throw DBusCallError(QDBusError::UnknownProperty, "No such property");
    return *found;
}

void DBusObject::requireOwnInterface(const QString& interface) const {
    if (!interface.isEmpty() && interface != interface_)
        throw DBusCallError(QDBusError::UnknownInterface, "No such interface");
}

QDBusMessage DBusObject::propertiesChangedMessage(const QString& path,
                                                  const QVariantMap& changed) const {
    QDBusMessage message =
        QDBusMessage::createSignal(path, propertiesInterface, QStringLiteral("PropertiesChanged"));
    return message << interface_ << changed << QStringList();
}

QDBusMessage DBusObject::signalMessage(const QString& path, const QString& name,
                                       const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createSignal(path, interface_, name);
    message.setArguments(arguments);
    return message;
}

} // namespace platform
