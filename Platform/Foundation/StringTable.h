// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

/// The wording of a text in the interface language, looked up in the tables in force (see
/// `InstalledTables`); the English wording itself where they have none. Any thread.
///
/// Both arguments are literals in every call, which is how `./dev check translations` finds the
/// texts.
///
/// @param context the module whose code this is and whose table it is, such as "QuorvelKit"
/// @param english the key; `%1` stands for what the caller fills in with `arg`
QString localized(const char* context, const char* english);

} // namespace platform
