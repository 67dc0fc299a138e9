#include "platform/linux/bus/MessageBus.h"

#include <QMetaObject>

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;

// After so many messages the event loop gets its turn, however many calls a client sends.
constexpr int messagesAtATime = 32;

// A bus that drops each connection costs five attempts a second at most. And a bus that has just made its
// socket needs a moment before it listens on it.
constexpr auto pauseBeforeConnecting = 200ms;

}  // namespace

MessageBus::MessageBus(Kind kind) : m_kind(kind) {
  m_connectSoon.setSingleShot(true);
  m_connectSoon.setInterval(pauseBeforeConnecting);
  connect(&m_connectSoon, &QTimer::timeout, this, &MessageBus::connectNow);
  connect(&m_socketWatcher, &BusSocketWatcher::changed, this, &MessageBus::connectSoon);
}

void MessageBus::attach(const QObject* service, const std::function<void()>& introduce) {
  m_isWanted = true;
  connect(this, &MessageBus::opened, service, introduce);
  if (isOpen()) {
    introduce();
  } else {
    connectNow();
  }
}

void MessageBus::tryAgain() {
  if (m_isWanted && !isOpen()) {
    connectNow();
  }
}

void MessageBus::connectSoon() {
  if (!m_connectSoon.isActive()) {
    m_connectSoon.start();
  }
}

void MessageBus::connectNow() {
  m_connectSoon.stop();
  // The second attempt is for a bus that came just before its folder was watched.
  if (open() || (watchSocket() && open())) {
    m_socketWatcher.stop();
    Q_EMIT opened();
  }
}

bool MessageBus::open() {
  sd_bus* connection = nullptr;
  if ((m_kind == Kind::system ? sd_bus_open_system(&connection) : sd_bus_open_user(&connection)) < 0) {
    return false;
  }
  m_connection.reset(connection);
  // The bus may take as long as it likes.
  sd_bus_set_method_call_timeout(connection, UINT64_MAX);
  watch();
  return true;
}

QByteArray MessageBus::uniqueName() const {
  const char* name = nullptr;
  sd_bus_get_unique_name(m_connection.get(), &name);
  return name;
}

MessageBus::Slot MessageBus::addObject(const char* path, const char* interface, const sd_bus_vtable* table,
                                       void* userdata) {
  sd_bus_slot* slot = nullptr;
  sd_bus_add_object_vtable(m_connection.get(), &slot, path, interface, table, userdata);
  return Slot(slot);
}

MessageBus::Slot MessageBus::listen(const char* rule, Handler handle, void* userdata) {
  sd_bus_slot* slot = nullptr;
  sd_bus_add_match_async(m_connection.get(), &slot, rule, handle, ignoreAnswer, userdata);
  watch();
  return Slot(slot);
}

MessageBus::Slot MessageBus::listenToOwner(const QByteArray& name, Handler handle, void* userdata) {
  const QByteArray rule =
      "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" + name + "'";
  return listen(rule.constData(), handle, userdata);
}

MessageBus::Slot MessageBus::requestName(const QByteArray& name, IfTaken ifTaken, Handler handle,
                                         void* userdata) {
  sd_bus_slot* slot = nullptr;
  sd_bus_request_name_async(m_connection.get(), &slot, name.constData(),
                            ifTaken == IfTaken::wait ? SD_BUS_NAME_QUEUE : 0, handle, userdata);
  watch();
  return Slot(slot);
}

void MessageBus::releaseName(const QByteArray& name) {
  if (isOpen()) {
    sd_bus_release_name_async(m_connection.get(), nullptr, name.constData(), ignoreAnswer, nullptr);
    watch();
  }
}

MessageBus::Slot MessageBus::call(const Method& method, std::initializer_list<const char*> arguments,
                                  Start start, Handler handle, void* userdata) {
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
  watch();
  return Slot(slot);
}

void MessageBus::emitPropertiesChanged(const char* path, const char* interface,
                                       std::vector<const char*> names) {
  names.push_back(nullptr);
  // The C interface takes the names as changeable texts, but does not change them.
  sd_bus_emit_properties_changed_strv(m_connection.get(), path, interface, const_cast<char**>(names.data()));
  watch();
}

/// Without it, sd-bus would end the connection when the bus refuses a rule or a name.
int MessageBus::ignoreAnswer(sd_bus_message*, void*, sd_bus_error*) {
  return 0;
}

void MessageBus::process() {
  m_processingSoon = false;
  for (int i = 0; isOpen() && i < messagesAtATime; ++i) {
    m_busHasAccepted = m_busHasAccepted || sd_bus_is_ready(m_connection.get()) > 0;
    const int progress = sd_bus_process(m_connection.get(), nullptr);
    if (progress < 0) {
      const bool hadAccepted = std::exchange(m_busHasAccepted, false);
      close();
      Q_EMIT lost();
      if (hadAccepted) {
        connectSoon();
      } else {
        watchSocket();
      }
      return;
    }
    if (progress == 0) {
      break;
    }
  }
  watch();
}

/// Arms the notifiers for what the connection waits for. Needed after each change of it.
void MessageBus::watch() {
  if (!isOpen()) {
    return;
  }
  const int descriptor = sd_bus_get_fd(m_connection.get());
  const int events = sd_bus_get_events(m_connection.get());
  std::uint64_t due = UINT64_MAX;
  const int hasDue = sd_bus_get_timeout(m_connection.get(), &due);
  // It changes when a bus has several addresses and does not answer at the first.
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
  // Messages that were read already make no descriptor readable. Later deadlines are ignored: they belong to
  // the bus's answer at the start, which may take long.
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
}

}  // namespace mireval
