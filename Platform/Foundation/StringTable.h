#pragma once

#include <QString>

namespace platform {

/// The wording of a text in the interface language, looked up in the tables of translations that
/// the application has installed; the English wording itself where they have none.
///
/// @param context the module whose table it is, such as "QuorvelKit"
/// @param english the key; `%1` stands for what the caller fills in with `arg`
QString localized(const char* context, const char* english);

} // namespace platform
