// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/UserDefaults.h"

#include <QLocale>
#include <QStandardPaths>

#include <cmath>
#include <limits>

namespace platform {

UserDefaults::UserDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

QString UserDefaults::standardPath(const QString& name) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + name +
           u'/' + name + QStringLiteral(".conf");
}

bool UserDefaults::hasObject(const QString& key) const {
    return settings_.contains(key);
}

std::optional<QString> UserDefaults::string(const QString& key) const {
    const QVariant value = settings_.value(key);
    if (!value.isValid() || value.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

double UserDefaults::doubleValue(const QString& key) const {
    bool isNumber = false;
    const double value = string(key).value_or(QString()).trimmed().toDouble(&isNumber);
    return isNumber ? value : 0;
}

std::int64_t UserDefaults::integer(const QString& key) const {
    using Limits = std::numeric_limits<std::int64_t>;
    bool isInteger = false;
    const std::int64_t exact = string(key).value_or(QString()).trimmed().toLongLong(&isInteger);
    if (isInteger)
        return exact;
    const double value = doubleValue(key);
    if (std::isnan(value))
        return 0;
    constexpr double firstTooLarge = 9223372036854775808.0; // 2^63
    if (value >= firstTooLarge)
        return Limits::max();
    return value < -firstTooLarge ? Limits::min() : static_cast<std::int64_t>(value);
}

bool UserDefaults::boolean(const QString& key) const {
    const QString text = string(key).value_or(QString()).trimmed();
    const auto is = [&text](QLatin1StringView word) {
        return text.compare(word, Qt::CaseInsensitive) == 0;
    };
    return is(QLatin1StringView("true")) || is(QLatin1StringView("yes")) || doubleValue(key) != 0;
}

std::optional<QStringList> UserDefaults::stringArray(const QString& key) const {
    const QVariant value = settings_.value(key);
    if (!value.isValid())
        return std::nullopt;
    return value.toStringList();
}

void UserDefaults::setString(const QString& key, const QString& value) {
    store(key, value);
}

void UserDefaults::setDouble(const QString& key, double value) {
    store(key, QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest));
}

void UserDefaults::setInteger(const QString& key, std::int64_t value) {
    store(key, QString::number(value));
}

void UserDefaults::setBoolean(const QString& key, bool value) {
    store(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void UserDefaults::setStringArray(const QString& key, const QStringList& value) {
    store(key, value);
}

void UserDefaults::remove(const QString& key) {
    settings_.remove(key);
    settings_.sync();
}

void UserDefaults::store(const QString& key, const QVariant& value) {
    settings_.setValue(key, value);
    settings_.sync();
}

} // namespace platform
