// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/UserDefaults.h"

#include <QLocale>
#include <QStandardPaths>

#include <cmath>
#include <limits>

namespace platform {

namespace {

/// A value as it stands in the file.
struct Stored {
    QVariant operator()(std::monostate) const { return {}; }
    QVariant operator()(const QString& text) const { return text; }
    QVariant operator()(double number) const {
        return QLocale::c().toString(number, 'g', QLocale::FloatingPointShortest);
    }
    QVariant operator()(std::int64_t number) const { return QString::number(number); }
    QVariant operator()(bool isTrue) const {
        return isTrue ? QStringLiteral("true") : QStringLiteral("false");
    }
    QVariant operator()(const QStringList& texts) const { return texts; }
};

} // namespace

UserDefaults::UserDefaults(const QString& path)
    : settings_(std::make_unique<QSettings>(path, QSettings::IniFormat)) {}

QString UserDefaults::standardPath(const QString& name) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + name +
           u'/' + name + QStringLiteral(".conf");
}

bool UserDefaults::hasObject(const QString& key) const {
    return settings_->contains(key);
}

std::optional<QString> UserDefaults::string(const QString& key) const {
    const QVariant value = settings_->value(key);
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
    const QVariant value = settings_->value(key);
    if (!value.isValid())
        return std::nullopt;
    return value.toStringList();
}

bool UserDefaults::set(const QString& key, const Value& value) {
    return set({{key, value}});
}

bool UserDefaults::set(std::initializer_list<std::pair<QString, Value>> values) {
    return set(std::span(values.begin(), values.end()));
}

bool UserDefaults::set(std::span<const std::pair<QString, Value>> values) {
    // Who has met an error tells of it for ever. The new one has the values, which they share.
    if (settings_->status() != QSettings::NoError)
        settings_ = std::make_unique<QSettings>(settings_->fileName(), QSettings::IniFormat);
    for (const auto& [key, value] : values) {
        if (std::holds_alternative<std::monostate>(value))
            settings_->remove(key);
        else
            settings_->setValue(key, std::visit(Stored(), value));
    }
    settings_->sync();
    return settings_->status() == QSettings::NoError;
}

} // namespace platform
