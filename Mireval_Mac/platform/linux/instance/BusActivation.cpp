#include "platform/linux/instance/BusActivation.h"

#include "platform/linux/bus/BusValues.h"

#include <systemd/sd-bus.h>

#include <string_view>
#include <utility>

namespace mireval {
namespace {

using Request = SingleInstance::Request;

constexpr const char* applicationInterface = "org.freedesktop.Application";
// An action of the desktop file.
constexpr std::string_view settingsAction = "Settings";

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

struct BusActivation::Callbacks {
  using Self = BusActivation;

  static int activate(sd_bus_message* call, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    if (!std::exchange(self.m_isStarting, false)) {
      self.request(Request::showPanel, readToken(call));
    }
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int open(sd_bus_message* call, void* userdata, sd_bus_error* error) {
    sd_bus_message_enter_container(call, 'a', "s");
    if (sd_bus_message_at_end(call, 0) == 0) {
      static_cast<Self*>(userdata)->m_isStarting = false;
      return sd_bus_error_set(error, SD_BUS_ERROR_NOT_SUPPORTED, "Files cannot be opened");
    }
    sd_bus_message_exit_container(call);
    return activate(call, userdata, error);
  }

  static int activateAction(sd_bus_message* call, void* userdata, sd_bus_error* error) {
    Self& self = *static_cast<Self*>(userdata);
    self.m_isStarting = false;
    const char* action = nullptr;
    sd_bus_message_read(call, "s", &action);
    if (action != settingsAction) {
      return sd_bus_error_setf(error, SD_BUS_ERROR_INVALID_ARGS, "There is no action '%s'", action);
    }
    sd_bus_message_skip(call, "av");
    self.request(Request::showSettings, readToken(call));
    return sd_bus_reply_method_return(call, nullptr);
  }

  static const sd_bus_vtable application[];
};

const sd_bus_vtable BusActivation::Callbacks::application[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Activate", SD_BUS_ARGS("a{sv}", platform_data), SD_BUS_NO_RESULT, activate, 0),
    SD_BUS_METHOD_WITH_ARGS("Open", SD_BUS_ARGS("as", uris, "a{sv}", platform_data), SD_BUS_NO_RESULT, open,
                            0),
    SD_BUS_METHOD_WITH_ARGS("ActivateAction",
                            SD_BUS_ARGS("s", action_name, "av", parameter, "a{sv}", platform_data),
                            SD_BUS_NO_RESULT, activateAction, 0),
    SD_BUS_VTABLE_END,
};

BusActivation::BusActivation(MessageBus& sessionBus, QByteArray applicationId, StartedBy startedBy)
    : m_applicationId(std::move(applicationId)),
      m_objectPath(objectPathOf(m_applicationId)),
      m_isStarting(startedBy == StartedBy::bus),
      m_bus(sessionBus) {
  connect(&m_bus, &MessageBus::lost, this, [this] {
    m_object.reset();
    m_nameRequest.reset();
  });
}

BusActivation::~BusActivation() {
  m_bus.releaseName(m_applicationId);
}

void BusActivation::appear() {
  m_bus.attach(this, [this] { introduce(); });
}

void BusActivation::introduce() {
  // The object first: the bus passes on at once what has waited for the name.
  m_object = m_bus.addObject(m_objectPath.constData(), applicationInterface, Callbacks::application, this);
  m_nameRequest = m_bus.requestName(m_applicationId, MessageBus::IfTaken::wait);
}

void BusActivation::request(Request request, const QByteArray& token) {
  setActivationToken(token);
  Q_EMIT requested(request);
}

}  // namespace mireval
