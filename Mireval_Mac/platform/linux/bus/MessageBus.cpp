#include "platform/linux/bus/MessageBus.h"

#include <QMetaObject>

#include <poll.h>

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

// Between these the event loop gets its turn, however many calls a client sends.
constexpr int messagesAtATime = 32;

}  // namespace

// One object for both callbacks of a rule, which share their user data.
struct MessageBus::Listener {
  MessageBus& bus;
  std::function<void(sd_bus_message* message)> handle;

  static int handleMessage(sd_bus_message* message, void* userdata, sd_bus_error*) {
    static_cast<Listener*>(userdata)->handle(message);
    return 0;
  }

  static int handleRuleReply(sd_bus_message* reply, void* userdata, sd_bus_error* error) {
    return handleBusReply(reply, &static_cast<Listener*>(userdata)->bus, error);
  }
};

MessageBus::MessageBus(Kind kind) : m_kind(kind) {}

MessageBus::~MessageBus() {
  close();
}

void MessageBus::Close::operator()(sd_bus* connection) const {
  // Not flushed: that would wait for a bus that does not read.
  sd_bus_close_unref(connection);
}

void MessageBus::DropSlot::operator()(sd_bus_slot* slot) const {
  sd_bus_slot_unref(slot);
}

bool MessageBus::open() {
  close();
  sd_bus* connection = nullptr;
  if ((m_kind == Kind::system ? sd_bus_open_system(&connection) : sd_bus_open_user(&connection)) < 0) {
    return false;
  }
  m_connection.reset(connection);
  sd_bus_set_method_call_timeout(connection, UINT64_MAX);
  watch();
  return isOpen();
}

bool MessageBus::keepOpen() {
  m_keepsOpen = true;
  if (!open()) {
    return false;
  }
  Q_EMIT opened();
  return isOpen();
}

void MessageBus::listen(const char* rule, std::function<void(sd_bus_message* message)> handle) {
  m_listeners.push_back(std::unique_ptr<Listener>(new Listener{*this, std::move(handle)}));
  sd_bus_add_match_async(m_connection.get(), nullptr, rule, Listener::handleMessage,
                         Listener::handleRuleReply, m_listeners.back().get());
}

void MessageBus::requestName(const char* name) {
  sd_bus_request_name_async(m_connection.get(), nullptr, name, SD_BUS_NAME_QUEUE, handleBusReply, this);
}

int MessageBus::handleBusReply(sd_bus_message* reply, void* userdata, sd_bus_error*) {
  if (sd_bus_message_is_method_error(reply, nullptr) == 0) {
    static_cast<MessageBus*>(userdata)->m_isWelcome = true;
  }
  return 0;
}

MessageBus::Slot MessageBus::call(const Method& method, std::initializer_list<const char*> arguments,
                                  Start start, AnswerHandler handle, void* userdata) {
  sd_bus_message* message = nullptr;
  sd_bus_slot* slot = nullptr;
  int result = sd_bus_message_new_method_call(m_connection.get(), &message, method.service, method.path,
                                              method.interface, method.name);
  for (const char* const argument : arguments) {
    if (result >= 0) {
      result = sd_bus_message_append(message, "s", argument);
    }
  }
  if (result >= 0 && sd_bus_message_set_auto_start(message, start == Start::yes ? 1 : 0) >= 0) {
    sd_bus_call_async(m_connection.get(), &slot, message, handle, userdata, 0);
  }
  sd_bus_message_unref(message);
  flush();
  return Slot(slot);
}

void MessageBus::process() {
  m_processingSoon = false;
  for (int i = 0; isOpen() && i < messagesAtATime; ++i) {
    const int progress = sd_bus_process(m_connection.get(), nullptr);
    if (progress < 0) {
      const bool again = m_keepsOpen && m_isWelcome;
      close();
      Q_EMIT lost();
      if (again) {
        keepOpen();
      }
      return;
    }
    if (progress == 0) {
      break;
    }
  }
  watch();
}

void MessageBus::watch() {
  if (!isOpen()) {
    return;
  }
  // Another one after a bus with several addresses did not answer at the first.
  const int descriptor = sd_bus_get_fd(m_connection.get());
  const int events = sd_bus_get_events(m_connection.get());
  std::uint64_t due = UINT64_MAX;
  const int hasDue = sd_bus_get_timeout(m_connection.get(), &due);
  if (descriptor >= 0 && descriptor != m_descriptor) {
    m_descriptor = descriptor;
    m_readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &MessageBus::process);
    connect(m_writable.get(), &QSocketNotifier::activated, this, &MessageBus::process);
  }
  if (m_readable) {
    m_readable->setEnabled((events & POLLIN) != 0);
    m_writable->setEnabled((events & POLLOUT) != 0);
  }
  // Messages that were read already make no descriptor readable. Other times are left alone: an answer of the
  // bus that is long in coming is still welcome.
  const bool pending = hasDue >= 0 && due == 0;
  if ((descriptor < 0 || events < 0 || pending) && !m_processingSoon) {
    m_processingSoon = true;
    QMetaObject::invokeMethod(this, &MessageBus::process, Qt::QueuedConnection);
  }
}

void MessageBus::close() {
  m_readable.reset();
  m_writable.reset();
  m_descriptor = -1;
  m_connection.reset();
  m_listeners.clear();
  m_isWelcome = false;
}

}  // namespace mireval
