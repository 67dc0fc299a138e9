#pragma once

#include "platform/linux/instance/SingleInstance.h"

#include <optional>
#include <string_view>

namespace mireval {

/// The request of an action of the desktop file, by its exact name: "Settings", or the name of a mode, which
/// the command line knows as well. Nothing for any other name.
std::optional<SingleInstance::Request> requestNamed(std::string_view name);

/// The name of the action; empty for a request that is no action.
std::string_view nameOf(SingleInstance::Request request);

}  // namespace mireval
