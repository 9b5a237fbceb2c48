// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusError>
#include <QDBusVirtualObject>
#include <QVariant>

#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

class QDBusMessage;

namespace platform {

/// Why a call from the bus was refused; thrown by a method, sent as the error reply.
class DBusCallError : public std::runtime_error {
public:
    DBusCallError(QDBusError::ErrorType type, const char* message)
        : std::runtime_error(message), type_(type) {}

    QDBusError::ErrorType type() const { return type_; }

private:
    QDBusError::ErrorType type_;
};

/// An object on the bus with one interface, which answers every call itself: its methods, its
/// properties, and its own description.
///
/// Done by hand because Qt's adaptors can neither leave a property out nor check what a stranger
/// sends. A call with the wrong arguments, to an unknown method, property or interface, gets an
/// error reply; a method is run only with arguments of exactly its signature.
class DBusObject : public QDBusVirtualObject {
public:
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) final;
    QString introspect(const QString& path) const final;

protected:
    /// Takes the arguments of a call, gives the values of the reply. May throw `DBusCallError`.
    using Method = std::function<QVariantList(const QVariantList& arguments)>;

    /// @param interface the name of the only interface
    DBusObject(QString interface, QObject* parent);

    /// Makes the object answer calls to `name`.
    ///
    /// @param signature of the arguments
    /// @param reply     the signature of the reply
    void addMethod(const char* name, const char* signature, const char* reply, Method method);

    /// The bus name of whose call a method is answering; empty outside of methods.
    const QString& caller() const { return caller_; }

    /// Makes the object's description tell of a signal with arguments of this signature.
    void addSignal(const char* name, const char* signature);

    /// The properties that exist at the moment, by name, each with a value of its type on the bus.
    virtual QVariantMap properties() const = 0;

    /// The signal by which clients that keep copies of properties hear of their new values.
    QDBusMessage propertiesChangedMessage(const QString& path, const QVariantMap& changed) const;

    /// A signal of the interface, sent from `path`, ready to be sent.
    QDBusMessage signalMessage(const QString& path, const QString& name,
                               const QVariantList& arguments = {}) const;

private:
    struct NamedMethod {
        QString name;
        QString signature;
        QString reply;
        Method method;
    };

    QVariantList answer(const QDBusMessage& message) const;
    QVariantList answerOwnCall(const QDBusMessage& message) const;
    QVariantList answerPropertiesCall(const QDBusMessage& message) const;
    QVariant property(const QString& name) const;
    void requireOwnInterface(const QString& interface) const;

    QString interface_;
    QString caller_;
    std::vector<NamedMethod> methods_;
    std::vector<std::pair<QString, QString>> signals_; ///< names and signatures
};

} // namespace platform
