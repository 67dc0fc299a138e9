#pragma once

#include "FuzzInput.h"

#include <systemd/sd-bus.h>

#include <deque>
#include <memory>
#include <vector>

namespace mireval {

class MessageBus;

/// The other end of the next connection that a MessageBus opens: it stands for the bus and for everybody on
/// it. What it sends is made from a fuzzer's input. Its thread is that of the MessageBus, and has an
/// application object. It accepts one connection.
class BusPeer {
 public:
  /// A message to the program, without its values.
  struct Outline {
    const char* path;
    const char* interface;
    const char* member;
    /// What the values should be; some messages get others.
    const char* types;
    /// The values of the first types, which are texts then.
    std::vector<const char*> leadingTexts = {};
  };

  /// From the first one on, this process knows no other session bus and no other system bus.
  BusPeer();
  ~BusPeer();
  BusPeer(const BusPeer&) = delete;
  BusPeer& operator=(const BusPeer&) = delete;

  /// Handles messages in both directions until there are none.
  void settle();

  /// The same. Ends the process as a failure if the program is not connected by its bus then.
  void settleConnected(const MessageBus& bus);

  /// The signal of the bus that the name has another owner.
  static Outline ownerChanged(const char* name);

  /// Sends a call, which gets an answer.
  void call(const Outline& outline, FuzzInput& input);

  /// Sends a signal of this sender.
  void emit(const char* sender, const Outline& outline, FuzzInput& input);

  /// Whether the program waits for an answer.
  bool isAsked() const { return !m_questions.empty(); }

  /// Answers the program's oldest call, with an error now and then.
  void answer(const char* types, FuzzInput& input);

 private:
  struct BusDeleter {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
  };
  struct MessageDeleter {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
  };
  using Message = std::unique_ptr<sd_bus_message, MessageDeleter>;

  static int receive(sd_bus_message* message, void* peer, sd_bus_error* error);

  void accept();
  bool process();
  void send(const Message& message);
  void replyAtOnce(sd_bus_message* call, const char* text);

  const int m_listening;
  std::unique_ptr<sd_bus, BusDeleter> m_bus;
  /// The program's calls without an answer, the oldest first.
  std::deque<Message> m_questions;
};

}  // namespace mireval
