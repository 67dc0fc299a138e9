#include "BusPeer.h"

#include "FuzzedValues.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QCoreApplication>
#include <QtGlobal>

#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

constexpr const char* nameOfTheProgram = ":1.1";
constexpr const char* nameOfAnother = ":1.2";
constexpr sd_id128_t serverId{{1}};

/// The program's notifiers need up to this many rounds without a message before all is quiet.
constexpr int quietRounds = 2;

/// Ends the process, since a fuzzer without a connection would test nothing.
void require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// Listens on a socket, and makes it the session bus and the system bus of this process.
FileDescriptor becomeTheBus() {
  FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  // With a name that is as short as this, the kernel chooses an abstract one.
  require(bind(socket.get(), reinterpret_cast<const sockaddr*>(&name), sizeof name.sun_family) == 0);
  require(listen(socket.get(), 1) == 0);
  socklen_t size = sizeof name;
  require(getsockname(socket.get(), reinterpret_cast<sockaddr*>(&name), &size) == 0);
  constexpr std::size_t start = offsetof(sockaddr_un, sun_path) + 1;
  const QByteArray address =
      "unix:abstract=" + QByteArray(name.sun_path + 1, qsizetype{size} - qsizetype{start});
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
  return socket;
}

/// The socket that all connections of this process come to.
int listeningSocket() {
  static const FileDescriptor socket = becomeTheBus();
  return socket.get();
}

}  // namespace

BusPeer::BusPeer() : m_listening(listeningSocket()) {}

BusPeer::~BusPeer() = default;

void BusPeer::settle() {
  if (!m_bus) {
    accept();
  }
  for (int quiet = 0; quiet < quietRounds;) {
    QCoreApplication::processEvents();
    quiet = process() ? 0 : quiet + 1;
  }
}

void BusPeer::settleConnected(const MessageBus& bus) {
  settle();
  require(bus.isOpen());
}

BusPeer::Outline BusPeer::ownerChanged(const char* name) {
  return {"/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged", "sss", {name}};
}

void BusPeer::accept() {
  const int socket = accept4(m_listening, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  require(socket >= 0);
  sd_bus* bus = nullptr;
  require(sd_bus_new(&bus) >= 0);
  m_bus.reset(bus);
  require(sd_bus_set_fd(bus, socket, socket) >= 0);
  require(sd_bus_set_server(bus, 1, serverId) >= 0);
  require(sd_bus_add_filter(bus, nullptr, receive, this) >= 0);
  require(sd_bus_start(bus) >= 0);
}

/// Whether there was anything to do.
bool BusPeer::process() {
  bool any = false;
  while (m_bus && sd_bus_process(m_bus.get(), nullptr) > 0) {
    any = true;
  }
  return any;
}

int BusPeer::receive(sd_bus_message* message, void* peer, sd_bus_error*) {
  auto* const self = static_cast<BusPeer*>(peer);
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) > 0 &&
      sd_bus_message_get_expect_reply(message) > 0) {
    const std::string_view member = sd_bus_message_get_member(message);
    if (member == "Hello") {
      self->replyAtOnce(message, nameOfTheProgram);
    } else if (member == "AddMatch") {
      self->replyAtOnce(message, nullptr);
    } else {
      self->m_questions.emplace_back(sd_bus_message_ref(message));
    }
  }
  return 1;
}

void BusPeer::replyAtOnce(sd_bus_message* call, const char* text) {
  sd_bus_message* reply = nullptr;
  require(sd_bus_message_new_method_return(call, &reply) >= 0);
  const Message owned(reply);
  require(text == nullptr || sd_bus_message_append(reply, "s", text) >= 0);
  send(owned);
}

void BusPeer::call(const Outline& outline, FuzzInput& input) {
  settle();
  sd_bus_message* message = nullptr;
  require(sd_bus_message_new_method_call(m_bus.get(), &message, nameOfTheProgram, outline.path,
                                         outline.interface, outline.member) >= 0);
  const Message owned(message);
  require(sd_bus_message_set_sender(message, nameOfAnother) >= 0);
  FuzzedValues(input).append(message, outline.types, outline.leadingTexts);
  send(owned);
  settle();
}

void BusPeer::emit(const char* sender, const Outline& outline, FuzzInput& input) {
  settle();
  sd_bus_message* message = nullptr;
  require(sd_bus_message_new_signal(m_bus.get(), &message, outline.path, outline.interface, outline.member) >=
          0);
  const Message owned(message);
  require(sd_bus_message_set_sender(message, sender) >= 0);
  if (input.choice(16) == 15) {
    sd_bus_message_set_destination(message, nameOfTheProgram);
  }
  FuzzedValues(input).append(message, outline.types, outline.leadingTexts);
  send(owned);
  settle();
}

void BusPeer::answer(const char* types, FuzzInput& input) {
  settle();
  if (m_questions.empty()) {
    return;
  }
  const Message question = std::exchange(m_questions.front(), nullptr);
  m_questions.pop_front();
  sd_bus_message* reply = nullptr;
  const std::size_t kind = input.choice(16);
  if (kind == 14) {
    sd_bus_message_new_method_errorf(question.get(), &reply, SD_BUS_ERROR_NAME_HAS_NO_OWNER, "None");
  } else if (kind == 15) {
    sd_bus_message_new_method_errorf(question.get(), &reply, SD_BUS_ERROR_FAILED, "%s",
                                     input.utf8Text().c_str());
  } else {
    sd_bus_message_new_method_return(question.get(), &reply);
    FuzzedValues(input).append(reply, types, {});
  }
  require(reply != nullptr);
  send(Message(reply));
  settle();
}

/// With a cookie, sd-bus asks for an answer.
void BusPeer::send(const Message& message) {
  std::uint64_t cookie = 0;
  sd_bus_send(m_bus.get(), message.get(), &cookie);
}

}  // namespace mireval
