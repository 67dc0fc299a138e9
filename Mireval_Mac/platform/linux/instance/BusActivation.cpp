#include "platform/linux/instance/BusActivation.h"

#include "platform/linux/bus/BusHandlers.h"
#include "platform/linux/bus/BusValues.h"
#include "platform/linux/instance/RequestNames.h"

#include <systemd/sd-bus.h>

#include <optional>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

using Request = SingleInstance::Request;

constexpr const char* applicationInterface = "org.freedesktop.Application";

QByteArray objectPathOf(const QByteArray& applicationId) {
  return '/' + QByteArray(applicationId).replace('.', '/').replace('-', '_');
}

/// The activation token that the caller sends, or the startup id; empty if there is neither.
QByteArray readToken(sd_bus_message* call) {
  QByteArray activationToken;
  QByteArray startupId;
  sd_bus_message_enter_container(call, 'a', "{sv}");
  while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
    const char* key = nullptr;
    const char* value = nullptr;
    sd_bus_message_read(call, "s", &key);
    if (sd_bus_message_read(call, "v", "s", &value) < 0) {
      sd_bus_message_skip(call, "v");
    } else if (std::string_view(key) == "activation-token") {
      activationToken = value;
    } else if (std::string_view(key) == "desktop-startup-id") {
      startupId = value;
    }
    sd_bus_message_exit_container(call);
  }
  sd_bus_message_exit_container(call);
  return activationToken.isEmpty() ? startupId : activationToken;
}

}  // namespace

const sd_bus_vtable BusActivation::applicationTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Activate", SD_BUS_ARGS("a{sv}", platform_data), SD_BUS_NO_RESULT,
                            methodHandler<&BusActivation::activate>, 0),
    SD_BUS_METHOD_WITH_ARGS("Open", SD_BUS_ARGS("as", uris, "a{sv}", platform_data), SD_BUS_NO_RESULT,
                            methodHandler<&BusActivation::open>, 0),
    SD_BUS_METHOD_WITH_ARGS("ActivateAction",
                            SD_BUS_ARGS("s", action_name, "av", parameter, "a{sv}", platform_data),
                            SD_BUS_NO_RESULT, methodHandler<&BusActivation::activateAction>, 0),
    SD_BUS_VTABLE_END,
};

BusActivation::BusActivation(MessageBus& sessionBus, QByteArray applicationId, StartedBy startedBy)
    : m_applicationId(std::move(applicationId)),
      m_objectPath(objectPathOf(m_applicationId)),
      m_isStarting(startedBy == StartedBy::bus),
      m_bus(sessionBus) {}

BusActivation::~BusActivation() {
  m_bus.releaseName(m_applicationId);
}

void BusActivation::appear() {
  m_bus.attach(this, [this] { introduce(); });
}

void BusActivation::introduce() {
  // The object first: the bus passes on at once what has waited for the name.
  m_object = m_bus.addObject(m_objectPath.constData(), applicationInterface, applicationTable, this);
  m_nameRequest = m_bus.requestName(m_applicationId, MessageBus::IfTaken::wait);
}

void BusActivation::activate(sd_bus_message* call) {
  if (!std::exchange(m_isStarting, false)) {
    setActivationToken(readToken(call));
    Q_EMIT requested(Request::showPanel);
  }
}

int BusActivation::open(sd_bus_message* call) {
  if (!readTexts(call).isEmpty()) {
    m_isStarting = false;
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_NOT_SUPPORTED, "Files cannot be opened");
  }
  activate(call);
  return sd_bus_reply_method_return(call, nullptr);
}

int BusActivation::activateAction(sd_bus_message* call) {
  m_isStarting = false;
  const char* action = nullptr;
  sd_bus_message_read(call, "s", &action);
  const std::optional<Request> request = requestNamed(action);
  if (!request) {
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "There is no action '%s'", action);
  }
  sd_bus_message_skip(call, "av");
  // Nothing else opens a window, which the token is for.
  if (request == Request::showSettings) {
    setActivationToken(readToken(call));
  }
  Q_EMIT requested(*request);
  return sd_bus_reply_method_return(call, nullptr);
}

}  // namespace mireval
