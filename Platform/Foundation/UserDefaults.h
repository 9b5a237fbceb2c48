// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <variant>

namespace platform {

/// The user's preferences, kept as text in one INI file that a person may edit.
///
/// Every assignment is on disk when it returns, and merges with what other processes have written
/// meanwhile. A typed getter converts the text it finds; a file that is missing, damaged or
/// unreadable is one without values. For one thread.
class UserDefaults {
public:
    /// Opens the file at `path`, which need not exist; the first assignment makes it.
    explicit UserDefaults(const QString& path);

    /// The file of the application called `name`: `$XDG_CONFIG_HOME/name/name.conf`.
    static QString standardPath(const QString& name);

    /// Whether the key holds any value, of whatever type.
    bool hasObject(const QString& key) const;

    /// The text as it stands; absent without a value or where the value is a list.
    std::optional<QString> string(const QString& key) const;

    /// The number that the text reads as, white space around it aside; 0 where it reads as none.
    double doubleValue(const QString& key) const;

    /// The same, cut towards zero and held within 64 bits.
    std::int64_t integer(const QString& key) const;

    /// True for `true` and `yes` in any case, and for every number but 0.
    bool boolean(const QString& key) const;

    /// The list of texts; a single text is a list of one; absent without a value.
    std::optional<QStringList> stringArray(const QString& key) const;

    /// What a key can be given; the first stands for nothing, and removes the key.
    using Value = std::variant<std::monostate, QString, double, std::int64_t, bool, QStringList>;

    /// Whether the file has it now. Where it has not, the value counts as long as the program runs,
    /// and is written with the next one.
    bool set(const QString& key, const Value& value);

    /// Assigns several keys in their order, which reach the disk together.
    bool set(std::span<const std::pair<QString, Value>> values);
    bool set(std::initializer_list<std::pair<QString, Value>> values);

private:
    std::unique_ptr<QSettings> settings_;
};

} // namespace platform
