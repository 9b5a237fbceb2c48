#pragma once

namespace platform {

/// What a surface looks like behind text drawn on it.
enum class Appearance { light, dark };

} // namespace platform
