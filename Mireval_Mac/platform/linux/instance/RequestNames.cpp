#include "platform/linux/instance/RequestNames.h"

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using Request = SingleInstance::Request;

struct RequestName {
  Request request;
  std::string_view name;
};

constexpr std::array names{
    RequestName{Request::showSettings, "Settings"},     RequestName{Request::playFocus, "focus"},
    RequestName{Request::playTempo, "tempo"},           RequestName{Request::playCreative, "creative"},
    RequestName{Request::playRelaxation, "relaxation"},
};

}  // namespace

std::optional<Request> requestNamed(std::string_view name) {
  const auto* const match = std::ranges::find(names, name, &RequestName::name);
  return match == names.end() ? std::nullopt : std::optional(match->request);
}

std::string_view nameOf(Request request) {
  const auto* const match = std::ranges::find(names, request, &RequestName::request);
  return match == names.end() ? std::string_view() : match->name;
}

}  // namespace mireval
